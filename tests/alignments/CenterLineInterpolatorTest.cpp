#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/alignments/CenterLineInterpolator.h"
#include "korvelfile/coordinates/CoordinateFileAdapter.h"
#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/outside/base/CircleArc.h"
#include "korvelfile/outside/base/Undefined.h"
#include "korvelfile/outside/model/LineFactory.h"
#include "korvelfile/outside/services/ITranslationService.h"
#include "korvelfile/outside/services/Translations.h"
#include "tests/support/Roads.h"

namespace {

using File::CenterLineInterpolator;
using Korvel::PointInformation;
using testing::ElementsAre;
using Value = CenterLineInterpolator::Value;

struct Place {
  double arc, offset, z;
};
using Lines = std::vector<std::vector<Place>>;

struct Settings {
  double maxDeviation = 0.01;
  double maxHeightDeviation = 0.01;
  double tolerance = 0.001;
  bool useSections = false;
  int maxPoints = 1000;
};

struct NotedProgress : Korvel::IProgressIndicator {
  std::vector<std::wstring> texts;
  int total = 0;
  int steps = 0;
  void Begin(const std::wstring& text, int count) override {
    texts.push_back(text);
    total += count;
  }
  void Step() override { ++steps; }
};

std::shared_ptr<PxyCoordinateFile> EmptyFile() {
  auto file = std::make_shared<PxyCoordinateFile>(false);
  file->InitAndUseCollectorWithoutFuckingDisk();
  return file;
}

/// Lines along a centre line, and what becomes of them.
class Design {
 public:
  Design(const Model::ILine& line, const Lines& lines) : line_(line) {
    for (const auto& places : lines) {
      auto item = std::make_unique<LineDataItem>();
      for (const Place& place : places) {
        // Beyond an end of the line, in its tangent.
        const double arc = std::clamp(place.arc, line.GetStartArc(), line.GetEndArc());
        const Model::Coordinate at = line.PointAt(arc, place.offset);
        const double direction = line.DirectionAt(arc);
        item->AddPoint("", at.X + (place.arc - arc) * std::cos(direction),
                       at.Y + (place.arc - arc) * std::sin(direction), place.z, "E", "", "");
      }
      file_->InsertLine(std::move(item));
    }
  }

  Value Refine(const Settings& s) {
    const CenterLineInterpolator interpolator(line_, s.maxDeviation, s.maxHeightDeviation,
                                              s.tolerance, s.useSections, s.maxPoints, progress_);
    const auto sections = std::make_shared<CoordinateFileAdapter>(sections_);
    return interpolator.ApplyTo(std::make_shared<CoordinateFileAdapter>(file_), sections);
  }

  std::vector<PointInformation> Points(int line) const { return PointsOf(file_, line); }
  std::vector<PointInformation> Section(int line) const { return PointsOf(sections_, line); }
  int CountSections() const { return CoordinateFileAdapter(sections_).GetLineCount(); }
  const NotedProgress& Progress() const { return *progress_; }

  /// Chainages of the points of a line.
  std::vector<double> Arcs(int line) const {
    std::vector<double> arcs;
    for (const PointInformation& point : Points(line)) arcs.push_back(Station(point).Arc);
    return arcs;
  }

  Model::LineStation Station(const PointInformation& point) const {
    return line_.Station({point.position.y, point.position.x, 0.0});
  }

 private:
  static std::vector<PointInformation> PointsOf(const std::shared_ptr<PxyCoordinateFile>& file,
                                                int number) {
    const auto line = CoordinateFileAdapter(file).GetLine(number);
    std::vector<PointInformation> points;
    for (int i = 0; i < line->GetPointCount(); ++i)
      points.push_back(line->GetPoint(i)->GetInformation());
    return points;
  }

  const Model::ILine& line_;
  std::shared_ptr<PxyCoordinateFile> file_ = EmptyFile();
  std::shared_ptr<PxyCoordinateFile> sections_ = EmptyFile();
  std::shared_ptr<NotedProgress> progress_ = std::make_shared<NotedProgress>();
};

std::shared_ptr<Model::IRoadLine> Straight() {
  LineRecords line;
  line.records = {{L"", {500, 700}, 0.0, 0.4, 0, 0, 100, 0}};
  return Model::BuildLine(line);
}

/// Three straights of 100 m in a row.
std::shared_ptr<Model::IRoadLine> ThreeElements() {
  LineRecords line;
  for (int i = 0; i < 3; ++i)
    line.records.push_back({L"", {100.0 * i, 0}, 100.0 * i, 0.0, 0, 0, 100, 0});
  return Model::BuildLine(line);
}

// A quarter, half and three quarters along what a point and its radius say of the way to the next.
std::vector<Vector> Between(const PointInformation& from, const PointInformation& to) {
  const Vector a = from.position.GetXY();
  const Vector b = to.position.GetXY();
  std::vector<Vector> places;
  CircleArc arc;
  const bool isArc = from.specialCode == "R" && arc.Set(a, b, std::stod(from.remark), 0, 0);
  for (const double share : {0.25, 0.5, 0.75}) {
    if (isArc) {
      const CircleArc part(a, arc.GetRadius(), arc.GetBearing(), share * arc.GetLength(), 0, 0);
      places.push_back(part.GetEndPoint());
    } else {
      places.push_back(a + share * (b - a));
    }
  }
  return places;
}

TEST(CenterLineInterpolator, LinesFollowStraightsArcsAndClothoids) {
  ProfileRecords profile;
  profile.records = {{L"", 1000.0, 50.0, -0.03, 20000.0, 1200.0, 0, 0}};
  const auto line = Model::BuildLine(MakeRoad(1), &profile);
  Lines lines;
  for (const double offset : {-15.0, 0.0, 12.0}) {
    lines.emplace_back();
    for (double arc = 1005.0; arc < 2135.0; arc += 45.0)
      lines.back().push_back({arc, offset, line->PointAt(arc, 0.0).Z - 0.02 * std::fabs(offset)});
  }
  Design design(*line, lines);
  const Settings settings;
  EXPECT_EQ(design.Refine(settings), Value::Complete);
  for (int i = 0; i < 3; ++i) {
    const auto& given = lines[static_cast<std::size_t>(i)];
    const auto points = design.Points(i);
    const std::vector<double> arcs = design.Arcs(i);
    EXPECT_TRUE(std::is_sorted(arcs.begin(), arcs.end())) << i;
    for (const Place& place : given) {
      EXPECT_TRUE(std::any_of(arcs.begin(), arcs.end(), [&](double arc) {
        return std::fabs(arc - place.arc) < 1e-6;
      })) << place.arc;
    }
    EXPECT_LT(points.size(), 6 * given.size()) << "no more points than it takes";
    for (std::size_t p = 0; p + 1 < points.size(); ++p) {
      EXPECT_EQ(points[p].pointCode, "E");
      for (const Vector& place : Between(points[p], points[p + 1])) {
        const Model::LineStation station = line->Station({place.y, place.x, 0.0});
        EXPECT_NEAR(station.Offset, given.front().offset, settings.maxDeviation) << station.Arc;
      }
      const Model::LineStation station = design.Station(points[p]);
      EXPECT_NEAR(points[p].position.z, station.Height - 0.02 * std::fabs(station.Offset), 2e-3);
    }
  }
}

TEST(CenterLineInterpolator, PointsWhereElementsBegin) {
  const struct {
    const char* what;
    Lines lines;
    bool useSections;
    std::vector<double> arcs;  // of the first line
  } cases[] = {
      {"with the chainage", {{{50, 3, 0}, {250, 3, 0}}}, false, {50, 100, 200, 250}},
      {"against it", {{{250, 3, 0}, {50, 3, 0}}}, false, {250, 50}},
      {"within the tolerance of an end",
       {{{50, 3, 0}, {100.0005, 3, 0}, {199.9995, 3, 0}}},
       false,
       {50, 100.0005, 199.9995}},
      {"a section already",
       {{{50, 3, 0}, {250, 3, 0}}, {{100, -9, 0}, {150, -9, 0}}},
       true,
       {50, 200, 250}},
      {"no section without sections",
       {{{50, 3, 0}, {250, 3, 0}}, {{100, -9, 0}, {150, -9, 0}}},
       false,
       {50, 100, 200, 250}},
      {"up to a point beyond the end",
       {{{50, 3, 0}, {150, 3, 0}, {350, 3, 0}, {250, 3, 0}}},
       false,
       {50, 100, 150}},
      {"one point", {{{50, 3, 0}}}, false, {50}},
      {"none", {{}}, false, {}},
  };
  const auto line = ThreeElements();
  for (const auto& c : cases) {
    Design design(*line, c.lines);
    Settings settings;
    settings.useSections = c.useSections;
    design.Refine(settings);
    auto points = design.Points(0);
    if (points.size() == 5) points.resize(3);  // what lies beyond the end has no chainage
    ASSERT_EQ(points.size(), c.arcs.size()) << c.what;
    for (std::size_t i = 0; i < points.size(); ++i)
      EXPECT_NEAR(design.Station(points[i]).Arc, c.arcs[i], 1e-6) << c.what << ' ' << i;
  }
}

TEST(CenterLineInterpolator, ALineThatCannotBeStationedLeavesTheOthersAlone) {
  const auto line = ThreeElements();
  Design design(*line, {{{350, 1, 0}, {50, 1, 0}, {250, 1, 0}}, {{50, 4, 0}, {150, 4, 0}}});
  EXPECT_EQ(design.Refine({}), Value::Complete);
  EXPECT_EQ(design.Points(0).size(), 3U);
  EXPECT_EQ(design.Points(1).size(), 3U);
}

TEST(CenterLineInterpolator, Limits) {
  LineRecords arc;
  arc.records = {{L"", {0, 0}, 0.0, 0.0, 50, 80, 60, 0.0}};
  arc.records[0].Parameter = std::sqrt(60.0 / (1.0 / 50 - 1.0 / 80));
  const auto curve = Model::BuildLine(arc);
  const Lines spans = {{{0, 5, 0}, {30, 5, 0}, {60, 5, 0}}};
  const struct {
    const char* what;
    double maxDeviation;
    int maxPoints;
    Value value;
    std::size_t least, most;
  } cases[] = {
      {"enough", 1e-4, 1000, Value::Complete, 6, 40},
      {"one insertion in each segment", 1e-4, 0, Value::TooManyPoints, 5, 5},
      {"spans too short at once", 40.0, 1000, Value::SpanTooShort, 3, 3},
      {"spans too short in the end", 0.0, 1000, Value::TooManyPoints, 2000, 2006},
  };
  for (const auto& c : cases) {
    Design design(*curve, spans);
    Settings settings;
    settings.maxDeviation = c.maxDeviation;
    settings.maxPoints = c.maxPoints;
    EXPECT_EQ(design.Refine(settings), c.value) << c.what;
    EXPECT_GE(design.Points(0).size(), c.least) << c.what;
    EXPECT_LE(design.Points(0).size(), c.most) << c.what;
  }
}

// Over 40 m of a sag of 10 km the chord lies 20 mm high in its middle, and 5 mm over each half.
TEST(CenterLineInterpolator, HeightsAskForPointsFromTheirLimitOn) {
  LineRecords straight;
  straight.records = {{L"", {0, 0}, 0.0, 0.0, 0, 0, 40, 0}};
  ProfileRecords sag;
  sag.records = {{L"", 0.0, 5.0, -0.002, 10000.0, 40.0, 0, 0}};
  const auto line = Model::BuildLine(straight, &sag);
  const Lines chord = {{{0, 0, line->PointAt(0, 0).Z}, {40, 0, line->PointAt(40, 0).Z}}};
  for (const auto& [limit, points] : {std::pair(0.0201, 2U), {0.0199, 3U}, {0.00499, 5U}}) {
    Design design(*line, chord);
    Settings settings;
    settings.maxHeightDeviation = limit;
    EXPECT_EQ(design.Refine(settings), Value::Complete);
    EXPECT_EQ(design.Points(0).size(), points) << limit;
  }
}

// A left break line that leaves the centre line from 10 to 20 m, falling from 2 % to 4 %; beside
// the second line the surface runs straight across, while that line's own heights would not.
const Lines kWidening = {{{0, -10, -0.2}, {100, -20, -0.8}},
                         {{0, -8, -0.16}, {100, -5, -0.2}},
                         {{0, 0, 0}, {100, 0, 0}}};

TEST(CenterLineInterpolator, HeightsBetweenBreakLinesLieStraightAcross) {
  const auto line = Straight();
  for (const bool useSections : {true, false}) {
    Design design(*line, kWidening);
    Settings settings;
    settings.useSections = useSections;
    EXPECT_EQ(design.Refine(settings), Value::Complete);
    EXPECT_EQ(design.Points(0).size(), 2U);
    const auto points = design.Points(1);
    if (!useSections) {
      EXPECT_EQ(points.size(), 2U);
      continue;
    }
    EXPECT_GT(points.size(), 3U);
    for (const PointInformation& point : points) {
      const Model::LineStation at = design.Station(point);
      const double share = at.Arc / 100.0;
      const double breakOffset = std::lerp(-10.0, -20.0, share);
      const double breakHeight = std::lerp(-0.2, -0.8, share);
      EXPECT_NEAR(point.position.z, breakHeight * at.Offset / breakOffset, 1e-9) << at.Arc;
    }
  }
}

TEST(CenterLineInterpolator, SectionsAreWrittenWithTheirBreaks) {
  const auto line = Straight();
  const double third = 100.0 / 3.0;
  Lines lines = kWidening;
  lines.push_back({{third, 7, 1}});
  lines.push_back({{0, 8, 0.8}, {500, 8, 0.8}});
  Design design(*line, lines);
  Settings settings;
  settings.useSections = true;
  design.Refine(settings);
  ASSERT_EQ(design.CountSections(), 3);
  const auto first = design.Section(0);
  std::vector<std::pair<double, std::string>> found;
  for (const PointInformation& point : first)
    found.emplace_back(std::round(1e6 * std::stod(point.name)) / 1e6, point.remark);
  EXPECT_THAT(found, ElementsAre(std::pair(-10.0, "Break"), std::pair(-8.0, ""),
                                 std::pair(0.0, "Break"), std::pair(8.0, "Break")));
  const auto alone = design.Section(1);
  ASSERT_EQ(alone.size(), 1U);
  EXPECT_EQ(alone[0].remark, "Break");
  EXPECT_EQ(std::stod(alone[0].name), std::stod(alone[0].name.substr(0, 17)));
  EXPECT_NEAR(std::stod(alone[0].name), 7.0, 1e-12);
}

TEST(CenterLineInterpolator, UndefinedHeightsStayUndefined) {
  const auto line = ThreeElements();
  Design design(*line, {{{50, 3, kUndefined}, {150, 3, 8}}});
  design.Refine({});
  const auto points = design.Points(0);
  ASSERT_EQ(points.size(), 3U);
  EXPECT_TRUE(IsUndefined(points[1].position.z));
}

TEST(CenterLineInterpolator, WhatLeavesApplyTo) {
  const auto line = Straight();
  for (const double tolerance : {0.0, -1.0}) {
    Design design(*line, kWidening);
    Settings settings;
    settings.useSections = true;
    settings.tolerance = tolerance;
    try {
      design.Refine(settings);
      ADD_FAILURE() << tolerance;
    } catch (const std::runtime_error& fault) {
      EXPECT_STREQ(fault.what(), "SectionHandler::PopulateSectionMap: Error! Insert failed.");
    }
  }
  EXPECT_THROW(CenterLineInterpolator(*line, 1, 1, 1, false, 1, nullptr), std::invalid_argument);
}

struct OneText : Korvel::ITranslationService {
  std::wstring GetText(const std::type_info& key) const override {
    if (key == typeid(Translations::LandXmlImport::Interpolating)) return L"Verfeinert";
    throw Korvel::NonexistentLiteralString("no text");
  }
};

TEST(CenterLineInterpolator, ProgressIsToldInTheLanguageOfTheUser) {
  const auto line = Straight();
  for (const bool isTranslated : {false, true}) {
    Korvel::SetTranslationService(isTranslated ? std::make_shared<OneText>() : nullptr);
    Design design(*line, {{{0, 3, 0}, {50, 3, 0}, {100, 3, 0}}});
    Settings settings;
    settings.useSections = true;
    design.Refine(settings);
    EXPECT_THAT(design.Progress().texts,
                ElementsAre(L"Analyzing Sections...", L"Inserting Element Points...",
                            isTranslated ? L"Verfeinert" : L"Interpolating..."));
    EXPECT_EQ(design.Progress().total, 9);
    EXPECT_EQ(design.Progress().steps, 3 + 2 + 2);
  }
  Korvel::SetTranslationService(nullptr);
}

}  // namespace
