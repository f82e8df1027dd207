#pragma once

#include <memory>
#include <string>

#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "korvelfile/coordinates/internal/GapBuffer.h"
#include "korvelfile/outside/services/ICoordinateFile.h"

class LineDataItem;
class PointDataItem;

namespace internal {

/// A line of a coordinate file. New points are kept here until they are settled, so that none of
/// them moves all points behind it.
class FileLine : public Korvel::ICoordinateLine {
 public:
  FileLine(std::shared_ptr<PxyCoordinateFile> file, LineDataItem& line);
  ~FileLine() override;
  FileLine(const FileLine&) = delete;
  FileLine& operator=(const FileLine&) = delete;

  int GetPointCount() const override { return static_cast<int>(points_.size()); }
  std::shared_ptr<Korvel::IPxyPoint> GetPoint(int index) override;
  std::shared_ptr<Korvel::IPxyPoint> InsertPoint(int index, const Vector3d& position,
                                                 const std::string& name) override;

  /// Hands the new points over to the file.
  void Settle();

 private:
  struct Slot {
    PointDataItem* point;
    bool isNew;  ///< owned by this line until it is settled
  };

  std::shared_ptr<PxyCoordinateFile> file_;
  LineDataItem& line_;
  GapBuffer<Slot> points_;
  bool hasNew_ = false;
};

}  // namespace internal
