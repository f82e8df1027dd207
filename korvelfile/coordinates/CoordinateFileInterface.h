#pragma once

#include <atomic>
#include <memory>

#include "korvelfile/Export.h"
#include "korvelfile/data/DataCollectionInterface.h"

class LineDataItem;
class PointDataItem;

/// A collector of points and lines.
///
/// Names are compared exactly. Insertions and removals flag the collector dirty, and may come from
/// several threads; the extent isn't guarded against other threads.
class KORVELFILE_EXPORT CoordinateFileInterface : public DataCollectionInterface {
 public:
  /// Appends a line, which the collector owns from here.
  void InsertLine(LineDataItem* line);
  void InsertLine(std::unique_ptr<LineDataItem> line);

  /// Appends a point to the first line of the file that has the name of `line`, or to the free
  /// points if `line` is null. Without such a line the point isn't taken and stays the caller's.
  void InsertPoint(PointDataItem* point, const LineDataItem* line);
  void InsertPoint(std::unique_ptr<PointDataItem> point);
  /// A point that isn't taken is deleted.
  void InsertPoint(std::unique_ptr<PointDataItem> point, const LineDataItem& line);

  /// Deletes free point number `index`, from 0.
  /// @param line must be -1
  /// @return 0, or -1 if there is no such point
  int RemovePoint(int index, int line);

  /// Deletes item number `index` of the first line of this name; 0 or -1.
  int RemovePoint(int index, const char* lineName);

  /// Deletes the first point of this name in any line of the name `lineName`, or among the free
  /// points if that is null; 0 or -1.
  int RemovePoint(const char* pointName, const char* lineName);

  /// Not offered: always -1, and nothing changes.
  int RemovePoint(PointDataItem* point, LineDataItem* line);

  /// The extent of all points, in metres. Worked out anew after an insertion or a new reading, not
  /// after a removal.
  /// Without points the minima are 9.9e+100 and the maxima -9.9e+100. An undefined coordinate
  /// counts as the tiny number it is.
  virtual double GetMaxX();
  virtual double GetMaxY();
  virtual double GetMaxZ();
  virtual double GetMinX();
  virtual double GetMinY();
  virtual double GetMinZ();

  /// Lets the extent be worked out anew when it is next asked for: after a reading, and after
  /// points of lines came in or were moved.
  void ForgetExtent() { isExtentValid_ = false; }

 protected:
  virtual void CalculateMinMax();

 private:
  static constexpr double kFarOut = 9.9e+100;

  void FreeCollector() override;
  void InsertInLine(std::unique_ptr<PointDataItem>& point, const LineDataItem& line);
  void WidenByPointsOf(const DataItemListObject& list);

  double minX_ = kFarOut;
  double minY_ = kFarOut;
  double minZ_ = kFarOut;
  double maxX_ = -kFarOut;
  double maxY_ = -kFarOut;
  double maxZ_ = -kFarOut;
  std::atomic<bool> isExtentValid_ = false;  ///< cleared by any thread that inserts
};
