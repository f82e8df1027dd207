#include <algorithm>
#include <cmath>
#include <utility>

#include "korvelfile/outside/base/Undefined.h"
#include "tools/korvel/alignments/ElementFaults.h"
#include "tools/korvel/alignments/Elements.h"

namespace {

using korvel::kPercent;

constexpr double kLengthLimit = 0.001;  // metres, that of the library's check
constexpr double kSlopeLimit = 0.001;   // ratio
constexpr double kBreakLimit = 0.1;     // ratio

// True for what isn't a number, too.
bool Exceeds(double difference, double limit) { return !(std::fabs(difference) <= limit); }

/// Reads the report of one profile.
class ProfileCheck {
 public:
  explicit ProfileCheck(const PrfFile& file)
      : file_(file), elements_(korvel::ElementsOf(file)), result_{{}, file} {}

  korvel::CheckedFile<PrfFile> Run() {
    std::vector<TPrfCtrl> report, corrections;
    file_.PrfDataCheck(report);
    for (const TPrfCtrl& line : report)
      if (ReadLine(line)) corrections.push_back(line);
    result_.corrected.PrfDataCorrect(corrections);
    AddFallingChainages();
    return std::move(result_);
  }

 private:
  // Adds the faults of a line of the report; false if the geometry of its element isn't found.
  bool ReadLine(const TPrfCtrl& line) {
    const TPrf& stored = elements_[static_cast<std::size_t>(line.GetPos())];
    const int lost = std::exchange(lost_, line.GetComment() ? line.GetPos() : lost_);
    if (line.GetComment() != TPrfCtrl::kFound) {
      AddGeometry(line.GetPos());
      return false;
    }
    if (Exceeds(line.GetdLength(), kLengthLimit))
      Add(line.GetPos(), "length", stored.GetLength(), line.GetElement().GetLength(),
          line.GetdLength(), "m");
    if (Exceeds(line.GetdSlope(), kSlopeLimit))
      AddSlope(line.GetPos(), "slope", stored.GetSlope(), line.GetElement().GetSlope());
    if (lost + 1 != line.GetPos() && Exceeds(line.GetmdTP(), kBreakLimit))
      AddSlope(line.GetPos(), "break of slope", line.GetElement().GetSlope() + line.GetmdTP(),
               line.GetElement().GetSlope());
    return true;
  }

  void AddGeometry(int index) {
    const TPrf& element = elements_[static_cast<std::size_t>(index)];
    const TPrf& next = elements_[static_cast<std::size_t>(index) + 1];
    const double radius = std::fabs(element.GetRadius());
    const double least =
        std::hypot(next.GetSection() - element.GetSection(), next.GetZ() - element.GetZ()) / 2.0;
    if (!std::isfinite(least + radius))
      Add(index, "holds what is no number", kUndefined, kUndefined, kUndefined, "");
    else if (least > radius)
      Add(index, "chord too long for the radius", radius, least, least - radius, "m");
    else
      Add(index, "curve ends vertically", kUndefined, kUndefined, kUndefined, "");
  }

  void AddFallingChainages() {
    for (std::size_t i = 0; i + 1 < elements_.size(); ++i) {
      const double here = elements_[i].GetSection();
      const double next = elements_[i + 1].GetSection();
      if (next < here)
        Add(static_cast<int>(i) + 1, "chainage falls", next, kUndefined, next - here, "m");
    }
    std::stable_sort(result_.faults.begin(), result_.faults.end(),
                     [](const auto& a, const auto& b) { return a.index < b.index; });
  }

  void AddSlope(int index, const std::string& what, double stored, double required) {
    Add(index, what, stored * kPercent, required * kPercent, (required - stored) * kPercent, "%");
  }
  void Add(int index, const std::string& what, double stored, double required, double difference,
           const std::string& unit) {
    const TPrf& element = elements_[static_cast<std::size_t>(index)];
    result_.faults.push_back({index, element.GetElemNo(), korvel::KindOf(element),
                              element.GetSection(), what, stored, required, difference, unit});
  }

  const PrfFile& file_;
  std::vector<TPrf> elements_;
  korvel::CheckedFile<PrfFile> result_;
  int lost_ = -2;  // the last element whose geometry isn't found
};

}  // namespace

korvel::CheckedFile<PrfFile> korvel::CheckElements(const PrfFile& file) {
  return ProfileCheck(file).Run();
}
