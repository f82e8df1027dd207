// Searching instead of walking: lines that run along a section, or many in one place, would else
// take a time that grows with the square of the points in the section.

#include "korvelfile/alignments/internal/Section.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "korvelfile/outside/base/Line.h"

namespace File::detail {

namespace {

bool SortsBefore(double offset, double other, double tolerance) {
  return other - tolerance > offset;
}

bool AreEquivalent(const SectionRecord& a, const SectionRecord& b) {
  return !SortsBefore(OffsetOf(a), OffsetOf(b), a.tolerance) &&
         !SortsBefore(OffsetOf(b), OffsetOf(a), a.tolerance);
}

// Slope of the surface from `a` to `b`.
double SlopeBetween(const SectionRecord& a, const SectionRecord& b) {
  return Line({OffsetOf(a), a.Position().z}, {OffsetOf(b), b.Position().z}).GetSlope();
}

// The record next to number `place` in the direction `step`, 1 or -1, that belongs to another line
// and doesn't coincide with it; the record number `end` if there is none. `run` holds for each
// record the farthest one in this direction with nothing but its own line between.
template <class Index>
const SectionRecord& Neighbour(const std::vector<SectionRecord>& records, std::size_t place,
                               std::size_t end, int step, const std::vector<Index>& run) {
  const SectionRecord& own = records[place];
  for (std::size_t i = run[place]; i != end;) {
    i += static_cast<std::size_t>(step);
    if (records[i].line == own.line) {
      i = run[i];
    } else if (!Coincide(own, records[i])) {
      return records[i];
    }
  }
  return records[end];
}

}  // namespace

void Section::Add(const SectionRecord& record) { records_.push_back(record); }

std::vector<Section::Index> Section::InOrder() const {
  const auto offset = [this](Index i) { return OffsetOf(records_[i]); };
  std::vector<Index> order(records_.size());
  std::iota(order.begin(), order.end(), Index{0});
  std::sort(order.begin(), order.end(),
            [&](Index a, Index b) { return std::pair(offset(a), a) < std::pair(offset(b), b); });
  for (auto first = order.begin(); first != order.end();) {
    const SectionRecord& least = records_[*first];
    const auto last = std::find_if(first, order.end(), [&](Index i) {
      return SortsBefore(OffsetOf(least), offset(i), least.tolerance);
    });
    std::sort(first, last);
    first = last;
  }
  return order;
}

void Section::Arrange() {
  if (guides_.size() == records_.size()) return;
  std::vector<SectionRecord> arranged;
  arranged.reserve(records_.size());
  for (const Index i : InOrder()) arranged.push_back(std::move(records_[i]));
  records_ = std::move(arranged);
  guides_.assign(records_.size(), {});
  GuideClusters();
  GuideLines();
  GuideBreaks();
}

// A cluster ends where a record no longer agrees with the least offset so far; as clusters don't
// overlap, the least offset of each can be taken from the records behind its start.
void Section::GuideClusters() {
  const auto count = static_cast<Index>(records_.size());
  std::vector<double> leastBehind(count);
  double least = OffsetOf(records_.back());
  for (Index i = count; i-- > 0;) leastBehind[i] = least = std::min(least, OffsetOf(records_[i]));
  for (Index first = 0, last = 0; first < count; first = last) {
    const double offset = leastBehind[first];
    while (last < count && !SortsBefore(offset, OffsetOf(records_[last]), records_[last].tolerance))
      ++last;
    for (Index i = first; i < last; ++i) {
      guides_[i].clusterOffset = offset;
      guides_[i].clusterStart = first;
      guides_[i].clusterEnd = last;
    }
  }
}

void Section::GuideLines() {
  std::vector<Index> order(records_.size());
  std::iota(order.begin(), order.end(), Index{0});
  std::stable_sort(order.begin(), order.end(),
                   [this](Index a, Index b) { return records_[a].line < records_[b].line; });
  for (std::size_t i = 0; i < order.size(); ++i) guides_[i].byLine = order[i];
}

void Section::GuideBreaks() {
  const std::size_t count = records_.size();
  for (std::size_t i = 0; i < count; ++i) {
    const Index before = i == 0 ? Index{0} : guides_[i - 1].breakLeft;
    guides_[i].breakLeft = records_[i].isBreak ? static_cast<Index>(i) : before;
  }
  for (std::size_t i = count; i-- > 0;) {
    const Index behind = i + 1 == count ? static_cast<Index>(i) : guides_[i + 1].breakRight;
    guides_[i].breakRight = records_[i].isBreak ? static_cast<Index>(i) : behind;
  }
}

bool Section::IsBreak(std::size_t place, const std::vector<Index>& runStart,
                      const std::vector<Index>& runEnd) const {
  const SectionRecord& own = records_[place];
  if (HaveSameOffset(own, records_.front()) || HaveSameOffset(own, records_.back())) return true;
  const SectionRecord& left = Neighbour(records_, place, 0, -1, runStart);
  const SectionRecord& right = Neighbour(records_, place, records_.size() - 1, 1, runEnd);
  if (HaveSameOffset(left, right)) return Coincide(left, right);
  return std::fabs(SlopeBetween(left, own) - SlopeBetween(own, right)) > own.tolerance;
}

void Section::MarkBreaks() {
  Arrange();
  const std::size_t count = records_.size();
  std::vector<Index> runStart(count);
  std::vector<Index> runEnd(count);
  const auto sameLine = [this](std::size_t i, std::size_t j) {
    return records_[i].line == records_[j].line;
  };
  for (std::size_t i = 0; i < count; ++i)
    runStart[i] = i > 0 && sameLine(i, i - 1) ? runStart[i - 1] : static_cast<Index>(i);
  for (std::size_t i = count; i-- > 0;)
    runEnd[i] = i + 1 < count && sameLine(i, i + 1) ? runEnd[i + 1] : static_cast<Index>(i);
  for (std::size_t i = 0; i < count; ++i) records_[i].isBreak = IsBreak(i, runStart, runEnd);
  GuideBreaks();
}

const SectionRecord* Section::Find(const SectionRecord& point) const {
  // Wide enough for all clusters that may hold an equivalent record.
  const double offset = OffsetOf(point);
  const auto from = [&](double least) {
    const auto place =
        std::partition_point(guides_.begin(), guides_.end(),
                             [&](const Guide& guide) { return guide.clusterOffset < least; });
    return static_cast<Index>(place - guides_.begin());
  };
  const Index first = from(offset - 3.0 * point.tolerance);
  const Index last = from(offset + 2.0 * point.tolerance);

  const SectionRecord* found = nullptr;
  for (Index i = first; i < last; ++i) {
    if (!AreEquivalent(point, records_[i])) continue;
    if (found) return FindOnLine(point, first, last);
    found = &records_[i];
  }
  return found;
}

const SectionRecord* Section::FindOnLine(const SectionRecord& point, Index first,
                                         Index last) const {
  auto place = std::partition_point(guides_.begin(), guides_.end(), [&](const Guide& guide) {
    return std::pair(records_[guide.byLine].line, guide.byLine) < std::pair(point.line, first);
  });
  for (; place != guides_.end() && place->byLine < last; ++place) {
    const SectionRecord& record = records_[place->byLine];
    if (record.line != point.line) break;
    if (AreEquivalent(point, record) &&
        std::fabs(record.Position().z - point.Position().z) <= point.tolerance)
      return &record;
  }
  return nullptr;
}

const SectionRecord& Section::LeftOf(const SectionRecord& record) const {
  std::size_t i = guides_[static_cast<std::size_t>(&record - records_.data())].clusterStart;
  while (i > 0 && HaveSameOffset(record, records_[i - 1])) --i;
  return records_[i == 0 ? 0 : guides_[i - 1].breakLeft];
}

const SectionRecord& Section::RightOf(const SectionRecord& record) const {
  const std::size_t end = records_.size();
  std::size_t i = guides_[static_cast<std::size_t>(&record - records_.data())].clusterEnd;
  while (i < end && HaveSameOffset(record, records_[i])) ++i;
  return records_[i == end ? end - 1 : guides_[i].breakRight];
}

}  // namespace File::detail
