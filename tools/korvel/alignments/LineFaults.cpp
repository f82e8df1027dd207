#include <algorithm>
#include <cmath>
#include <set>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tools/korvel/alignments/ElementFaults.h"
#include "tools/korvel/alignments/Elements.h"

namespace {

using korvel::ElementFault;

constexpr double kLengthLimit = 0.001;   // metres, that of the library's check
constexpr double kBearingLimit = 0.001;  // gon
constexpr double kKinkLimit = 0.1;       // gon
constexpr double kFullCircle = 400.0;    // gon
// What length and bearing within their limits let the end of an element miss, for each metre.
constexpr double kMissPerMetre = kBearingLimit * kRadiansPerGon;

double Folded(double gon) { return std::remainder(gon, kFullCircle); }

// True for what isn't a number, too.
bool Exceeds(double difference, double limit) { return !(std::fabs(difference) <= limit); }

Vector StartOf(const TLin& element) { return {element.GetX(), element.GetY()}; }

bool IsFinite(const TLin& e) {
  return std::isfinite(e.GetX() + e.GetY() + e.GetRadius() + e.GetERadius() + e.GetParameter() +
                       e.GetBearing() + e.GetLength() + e.GetSection());
}

/// Reads the report of one line file.
class LineCheck {
 public:
  explicit LineCheck(const LinFile& file)
      : file_(file), elements_(korvel::ElementsOf(file)), result_{{}, file} {}

  korvel::CheckedFile<LinFile> Run() {
    std::vector<TLinCtrl> report, corrections;
    file_.LinDataCheck(report);
    for (TLinCtrl& line : report) {
      const std::size_t before = result_.faults.size();
      const bool isFound = ReadLine(line);
      if (isFound && result_.faults.size() > before) corrections.push_back(line);
    }
    result_.corrected.LinDataCorrect(corrections);
    AddGaps();
    return std::move(result_);
  }

 private:
  // Adds the faults of a line of the report; false if the geometry of its element isn't found.
  bool ReadLine(TLinCtrl& line) {
    const auto i = static_cast<std::size_t>(line.GetPos());
    const bool isLast = i + 1 == elements_.size();
    const bool isFound = isLast || line.GetComment() == TLinCtrl::kFound;
    if (hasLostChainage_) line.GetElement().SetSection(elements_[i].GetSection());
    if (!isFound) AddGeometry(line);
    if (isFound && !isLast) AddFigures(line);
    if (isFound && lost_ + 1 != line.GetPos() && Exceeds(Folded(line.GetmdTP()), kKinkLimit))
      Add(line.GetPos(), "kink", Folded(line.GetElement().GetBearing() + line.GetmdTP()),
          line.GetElement().GetBearing(), -Folded(line.GetmdTP()), "gon");
    AddIf(line.GetPos(), "chainage", elements_[i].GetSection(), line.GetElement().GetSection(),
          kLengthLimit, "m");
    if (isFound) return true;
    hasLostChainage_ = true;
    lost_ = line.GetPos();
    return false;
  }

  void AddFigures(const TLinCtrl& line) {
    const TLin& stored = elements_[static_cast<std::size_t>(line.GetPos())];
    const TLin& required = line.GetElement();
    AddIf(line.GetPos(), "length", stored.GetLength(), required.GetLength(), kLengthLimit, "m");
    const double turn = Folded(line.GetdBearing());
    if (Exceeds(turn, kBearingLimit))
      Add(line.GetPos(), "bearing", stored.GetBearing(), required.GetBearing(), turn, "gon");
    if (korvel::IsClothoid(stored))
      AddIf(line.GetPos(), "parameter", std::fabs(stored.GetParameter()), required.GetParameter(),
            kLengthLimit, "m");
    else
      AddIf(line.GetPos(), "end radius", stored.GetERadius(), required.GetERadius(), kLengthLimit,
            "m");
  }

  void AddGeometry(const TLinCtrl& line) {
    const auto i = static_cast<std::size_t>(line.GetPos());
    const double chord = (StartOf(elements_[i + 1]) - StartOf(elements_[i])).GetLength();
    const double radius = std::fabs(elements_[i].GetRadius());
    if (line.GetComment() == TLinCtrl::kChordTooLong)
      Add(line.GetPos(), "chord too long for the radius", radius, chord / 2.0, chord / 2.0 - radius,
          "m");
    else if (line.GetComment() == TLinCtrl::kEqualRadii)
      Add(line.GetPos(), "no clothoid of equal radii", kUndefined, kUndefined, kUndefined, "");
    else
      AddMiss(i, "clothoid doesn't settle");
  }

  // Elements that the report passes over, and that don't lead to the next one all the same.
  void AddGaps() {
    std::set<int> reported;
    for (const ElementFault& fault : result_.faults) reported.insert(fault.index);
    for (std::size_t i = 0; i + 1 < elements_.size(); ++i) {
      const double limit = kLengthLimit + kMissPerMetre * std::fabs(elements_[i].GetLength());
      if (!reported.contains(static_cast<int>(i)) && Exceeds(MissOf(i), 2.0 * limit))
        AddMiss(i, "misses the next element");
    }
    std::stable_sort(result_.faults.begin(), result_.faults.end(),
                     [](const auto& a, const auto& b) { return a.index < b.index; });
  }
  double MissOf(std::size_t i) const {
    return (StartOf(elements_[i + 1]) - file_.FindEndPosOfElement(static_cast<int>(i))).GetLength();
  }
  void AddMiss(std::size_t i, const std::string& what) {
    const bool areNumbers = IsFinite(elements_[i]) && IsFinite(elements_[i + 1]);
    Add(static_cast<int>(i), areNumbers ? what : "holds what is no number", kUndefined, kUndefined,
        MissOf(i), "m");
  }

  void AddIf(int index, const std::string& what, double stored, double required, double limit,
             const std::string& unit) {
    if (Exceeds(required - stored, limit))
      Add(index, what, stored, required, required - stored, unit);
  }
  void Add(int index, const std::string& what, double stored, double required, double difference,
           const std::string& unit) {
    const TLin& element = elements_[static_cast<std::size_t>(index)];
    result_.faults.push_back({index, element.GetElemNo(), korvel::KindOf(element),
                              element.GetSection(), what, stored, required, difference, unit});
  }

  const LinFile& file_;
  std::vector<TLin> elements_;
  korvel::CheckedFile<LinFile> result_;
  bool hasLostChainage_ = false;  // an element before has no length
  int lost_ = -2;                 // the last such element; before any if there is none
};

}  // namespace

korvel::CheckedFile<LinFile> korvel::CheckElements(const LinFile& file) {
  return LineCheck(file).Run();
}
