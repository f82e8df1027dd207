#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "korvelfile/alignments/GeoFileLinPrfProxy.h"
#include "korvelfile/outside/base/CircleArc.h"
#include "korvelfile/outside/base/Vector.h"

class DataItemListObject;
class PointDataItem;
class PxyCoordinateFile;

namespace File::detail {

/// The points of a coordinate file as a chain of nodes with chainages.
class GeoConverter {
 public:
  /// See `GeoFileLinPrfProxy`.
  GeoConverter(const std::wstring& fileName, GeoFileLinPrfProxy::UsePointsAs use, int lineIndex);
  ~GeoConverter();
  GeoConverter(const GeoConverter&) = delete;
  GeoConverter& operator=(const GeoConverter&) = delete;

  int GetCount() const { return static_cast<int>(nodes_.size()); }  ///< How many nodes.
  bool HasNode(int index) const { return index >= 0 && index < GetCount(); }

  /// @name Of node number `index`, from 0 and below the count
  /// @{
  double GetChainage(int index) const { return nodes_[static_cast<std::size_t>(index)].first; }
  const PointDataItem& GetPoint(int index) const {
    return *nodes_[static_cast<std::size_t>(index)].second;
  }
  Vector GetPosition(int index) const;
  /// @}

  /// The arc from node `index` to the next one; false if the step is straight.
  bool GetArc(int index, CircleArc& arc) const;

 private:
  void AddPoints(const DataItemListObject& list);
  void AddLines(int first, int last);
  double StepFrom(int index) const;

  std::shared_ptr<PxyCoordinateFile> file_;
  std::vector<std::pair<double, PointDataItem*>> nodes_;
};

}  // namespace File::detail
