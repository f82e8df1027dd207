// Road designs refined with sections: 200 lines of 2,000, 4,000 and 8,000 points each, 10 m apart,
// and 1,600 lines of 250 points, whose sections are eight times as wide.
//
// Floor: 200 lines of 2,000 points, refined once for each time that their points go into the work.
// A ratio near 1 is a time in proportion to the points handled and inserted, whatever the lines and
// sections.

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "korvelfile/alignments/CenterLineInterpolator.h"
#include "korvelfile/coordinates/CoordinateFileAdapter.h"
#include "korvelfile/coordinates/LineDataItem.h"
#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/outside/model/LineFactory.h"
#include "support/Ratio.h"
#include "support/Road.h"

namespace {

constexpr int kLines = 200;
constexpr int kPoints = 2000;
constexpr int kRounds = 1;
constexpr double kBar = 1.3;
constexpr double kApart = 10.0;  // points of a line, metres
constexpr double kWide = 40.0;   // the design, metres

struct NoProgress : Korvel::IProgressIndicator {
  void Begin(const std::wstring& /*text*/, int /*total*/) override {}
  void Step() override {}
};

/// Lines beside a road.
class Design {
 public:
  Design(int lines, int points) : road_(BuildLine(Road(points * 10 / 125 + 2))) {
    file_->InitAndUseCollectorWithoutFuckingDisk();
    for (int i = 0; i < lines; ++i) file_->InsertLine(MakeLine(kWide * i / lines, points));
  }

  void Refine() const {
    const File::CenterLineInterpolator interpolator(*road_, 0.005, 0.005, 0.001, true, 1000,
                                                    std::make_shared<NoProgress>());
    Keep(static_cast<File::CenterLineInterpolator::Value>(
        interpolator.ApplyTo(std::make_shared<CoordinateFileAdapter>(file_))));
  }

  int CountPoints() const {
    CoordinateFileAdapter adapter(file_);
    int count = 0;
    for (int i = 0; i < adapter.GetLineCount(); ++i) count += adapter.GetLine(i)->GetPointCount();
    return count;
  }

 private:
  std::unique_ptr<LineDataItem> MakeLine(double offset, int points) const {
    auto line = std::make_unique<LineDataItem>();
    for (int i = 0; i < points; ++i) {
      const Model::Coordinate at = road_->PointAt(kApart * i, offset);
      line->AddPoint("", at.X, at.Y, -0.02 * offset, "", "", "");
    }
    return line;
  }

  std::shared_ptr<Model::IRoadLine> road_;
  std::shared_ptr<PxyCoordinateFile> file_ = std::make_shared<PxyCoordinateFile>(false);
};

/// Designs that are made anew for each run, as one that is refined takes no more points.
class Designs {
 public:
  Designs(int count, int lines, int points) : count_(count), lines_(lines), points_(points) {
    Renew();
  }

  void Renew() {
    designs_.clear();
    for (int i = 0; i < count_; ++i) designs_.push_back(std::make_unique<Design>(lines_, points_));
  }

  void Refine() const {
    for (const auto& design : designs_) design->Refine();
  }

  std::string Tell() const {
    const int before = lines_ * points_;
    const int after = Design(*designs_.front()).CountPoints();
    return std::to_string(lines_) + " lines of " + std::to_string(points_) + " points, " +
           std::to_string(after - before) + " inserted";
  }

 private:
  int count_;
  int lines_;
  int points_;
  std::vector<std::unique_ptr<Design>> designs_;
};

void Measure(int lines, int points) {
  Designs small(lines * points / (kLines * kPoints), kLines, kPoints);
  Designs large(1, lines, points);
  large.Refine();
  const std::string what = large.Tell();
  large.Renew();
  PrintRatio(
      what, kBar, kRounds, [&] { small.Refine(); }, [&] { large.Refine(); },
      [&] {
        small.Renew();
        large.Renew();
      });
}

}  // namespace

int main() {
  for (const int times : {1, 2, 4}) Measure(kLines, times * kPoints);
  Measure(8 * kLines, kPoints / 8);
}
