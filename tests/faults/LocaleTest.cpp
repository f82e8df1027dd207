// Locales with a decimal comma, thousands marks and another encoding change nothing in any file.

#include <clocale>
#include <cstdlib>
#include <limits>
#include <locale>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/measurements/LevFile.h"
#include "korvelfile/measurements/MeasurementFile.h"
#include "korvelfile/outside/base/GeoFile.h"
#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/String.h"
#include "korvelfile/outside/base/Text.h"
#include "tests/support/Files.h"
#include "tests/support/Surroundings.h"

namespace {

// The process runs under a locale for the life of this, as a user and an application may set it.
class ProcessLocale {
 public:
  explicit ProcessLocale(const std::string& name) {
    setenv("LC_ALL", name.c_str(), 1);
    try {
      std::locale::global(std::locale(name));
    } catch (const std::runtime_error&) {
      ADD_FAILURE() << "no locale " << name << "; scripts/install-deps.sh makes it";
    }
    EXPECT_NE(std::setlocale(LC_ALL, name.c_str()), nullptr) << name;
  }
  ~ProcessLocale() {
    std::locale::global(std::locale::classic());
    std::setlocale(LC_ALL, "C");
    unsetenv("LC_ALL");
  }
  ProcessLocale(const ProcessLocale&) = delete;
  ProcessLocale& operator=(const ProcessLocale&) = delete;
};

class LocaleTest : public testing::TestWithParam<const char*> {
 protected:
  LocaleTest() { SetGoldenIdentity(); }

  CaughtMessages messages_;
  TempFolder folder_;
};

// A locale that isn't in force would let all the rest pass.
TEST_P(LocaleTest, IsInForce) {
  const ProcessLocale locale(GetParam());
  EXPECT_STREQ(std::localeconv()->decimal_point, ",");
  EXPECT_EQ(std::use_facet<std::numpunct<char>>(std::locale()).decimal_point(), ',');
}

TEST_P(LocaleTest, Numbers) {
  const ProcessLocale locale(GetParam());
  EXPECT_EQ(FixedText(1234567.5, 4), "1234567.5000");
  EXPECT_EQ(ScientificText(-0.25), "-2.500000000000000e-01");
  EXPECT_EQ(GeneralText(1234567.5, 15), "1234567.5");
  EXPECT_EQ(SF::dformat("%.2f|%12.4f|%i", 0.5, 1234567.5, 1234567), "0.50|1234567.5000|1234567");
  EXPECT_EQ(ParseDouble("1234.5"), 1234.5);
  EXPECT_EQ(ParseDouble("1,5"), 1.0);
  EXPECT_EQ(ParseDouble("-1.5e400"), -std::numeric_limits<double>::infinity());
  EXPECT_EQ(ParseDouble("0x1.8p1"), 3.0);
  EXPECT_EQ(ParseInt("1.234"), 1);
}

void Choose(LevFile& file, const std::string& path) { file.SetFile(Widen(path)); }
template <class File>
void Choose(File& file, const std::string& path) {
  file.ChooseFile(path.c_str());
}

// The bytes that the file `from` has once it is read and written again as `to`.
template <class File>
std::string Rewritten(File&& file, const std::string& from, const std::string& to) {
  Choose(file, from);
  EXPECT_EQ(file.UseCollector(), 0) << from;
  Choose(file, to);
  EXPECT_EQ(file.AutoSave(), 0) << to;
  return ReadBytes(to);
}

template <class File>
void ExpectSameUnder(const char* name, File&& plain, File&& local, const std::string& from,
                     const std::string& to) {
  const std::string expected = Rewritten(plain, from, to);
  const ProcessLocale locale(name);
  EXPECT_EQ(Rewritten(local, from, to), expected) << from;
}

TEST_P(LocaleTest, GoldenFiles) {
  const ProcessLocale locale(GetParam());
  const std::string plm = KORVELFILE_GOLDEN "/plm/job.plm";
  EXPECT_EQ(Rewritten(MeasurementFile(), plm, folder_.Path("a.plm")), ReadBytes(plm));
  const std::string lvt = KORVELFILE_GOLDEN "/lvt/job.lvt";
  EXPECT_EQ(Rewritten(LevFile(), lvt, folder_.Path("a.lvt")), ReadBytes(lvt));
}

TEST_P(LocaleTest, RealFiles) {
  const std::string data = KORVELFILE_TEST_DATA;
  for (const char* extension : {".geo", ".pxy"}) {
    ExpectSameUnder(GetParam(), PxyCoordinateFile(false), PxyCoordinateFile(false),
                    data + "/points/m3_breaklines" + extension,
                    folder_.Path(std::string("a") + extension));
  }
  for (const char* job : {"crane_8001", "fieldbook_2setups", "niemeier_z108"}) {
    const std::string folder = data + "/jobs/" + job;
    ExpectSameUnder(GetParam(), PxyCoordinateFile(false), PxyCoordinateFile(false),
                    folder + "/known.geo", folder_.Path("known.geo"));
    ExpectSameUnder(GetParam(), MeasurementFile(), MeasurementFile(), folder + "/job.plm",
                    folder_.Path("job.plm"));
  }
}

INSTANTIATE_TEST_SUITE_P(German, LocaleTest, testing::Values("de_DE.UTF-8", "de_DE.ISO-8859-1"),
                         [](const auto& locale) {
                           return std::string(locale.param).ends_with("8") ? "Utf8" : "Latin1";
                         });

}  // namespace
