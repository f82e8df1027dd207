// What reports are made of: numbers, texts and tables.

#include <cfloat>
#include <cmath>
#include <sstream>

#include <gtest/gtest.h>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tools/korvel/AngleUnit.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/Printable.h"
#include "tools/korvel/TextTable.h"

TEST(TextTable, ColumnsStandByCharactersNotBytes) {
  korvel::TextTable table({{"name", korvel::TextTable::Align::Left}, {"m"}, {"empty"}});
  table.AddRow({"\xC3\xBC", "1.5"});
  table.AddRow({"long name", "-10.0"});
  std::ostringstream out;
  table.Print(out, "> ");
  EXPECT_EQ(out.str(),
            "> name           m\n"
            "> \xC3\xBC            1.5\n"
            "> long name  -10.0\n");
}

TEST(NumberFormat, OddNumbers) {
  EXPECT_EQ(korvel::NumberText(-0.00001, 3), "0.000");
  EXPECT_EQ(korvel::NumberText(-0.0015, 3), "-0.002");
  for (const double value : {kUndefined, DBL_MAX, HUGE_VAL, std::nan("")})
    EXPECT_EQ(korvel::MillimetreText(value), "-");
}

TEST(AngleUnit, DirectionsStayWithinOneTurn) {
  const korvel::AngleUnit& gon = korvel::FindAngleUnit("gon");
  EXPECT_EQ(gon.DirectionText(-kHalfPi), "300.00000");
  EXPECT_EQ(gon.DirectionText(-1e-12), "0.00000");
  EXPECT_EQ(gon.DirectionText(5 * kPi), "200.00000");
  EXPECT_EQ(korvel::FindAngleUnit("deg").DirectionText(kHalfPi), "90.000000");
  EXPECT_EQ(korvel::FindAngleUnit("deg").SmallText(kPi / 180 / 3600 * -2.04), "-2.0");
  EXPECT_EQ(korvel::FindAngleUnit("rad").BearingText(1.0), "1.000");
}

TEST(Printable, AnyBytesBecomeUtf8) {
  EXPECT_EQ(korvel::ToUtf8("a\xFC"
                           "b"),
            "a\u00FCb");
  EXPECT_EQ(korvel::Printable("a\x1B"
                              "b\nc\x7F\x9B"),
            "a?b\nc??");
  EXPECT_EQ(korvel::CharacterCount("\u00FC\u20AC"
                                   "x"),
            3U);
}
