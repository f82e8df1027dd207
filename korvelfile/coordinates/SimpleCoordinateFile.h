#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "korvelfile/Export.h"
#include "korvelfile/coordinates/CoordinatesKeeper.h"
#include "korvelfile/coordinates/GraphicsObjectInterface.h"
#include "korvelfile/coordinates/SimpleRecords.h"

class LineDataItem;
class PointDataItem;

/// The compact read-only store: plain records, filled once and then addressed by index or cursor.
///
/// Free points must be inserted before the first line; from then on every point belongs to the line
/// inserted last. Texts are cut to the size of their record fields. A copy has records of its own.
/// One thread at a time: the cursors are part of the object.
class KORVELFILE_EXPORT SimpleCoordinateFile : public CoordinatesKeeper,
                                               public GraphicsObjectInterface {
 public:
  SimpleCoordinateFile();
  SimpleCoordinateFile(const SimpleCoordinateFile& other);
  SimpleCoordinateFile& operator=(const SimpleCoordinateFile& other);
  ~SimpleCoordinateFile() override;

  /// Stores a copy of `point`; false for null, or without memory.
  bool InsertPoint(PointDataItem* point, unsigned int colour);

  /// Stores a point from its parts.
  bool InsertPoint(const Vector3d& position, std::string_view name, std::string_view pointCode,
                   std::string_view specialCode, std::string_view remark, unsigned int colour);

  /// Starts a line with the name, code and type of `line`; false for null, or without memory.
  bool InsertLine(LineDataItem* line);

  /// Colour of the line inserted last, and of the file; 0xFFFFFFFF for none.
  void InsertLineColor(unsigned int colour);
  void SetFileColor(unsigned int colour);
  unsigned int GetFileColor() const;

  /// Ends the filling.
  void FinishedReading();

  int GetPointCount() const;
  int GetLineCount() const;

  ThrowableErrorCode<bool> GetPoint(SimpleGeoPt& point, int kind, int mode, int index);
  ThrowableErrorCode<bool> GetPoint(CooPtData& point, int kind, int mode, int index) override;
  /// Moves the point cursor to the line's first point too.
  ThrowableErrorCode<bool> GetLine(SimpleGeoLine& line, int mode, int index);
  ThrowableErrorCode<bool> GetLine(CooLineData& line, int mode, int index) override;
  ThrowableErrorCode<bool> GetPointInLine(CooPtData& point, int line, int index) const override;
  ThrowableErrorCode<bool> IsPointNearLine(const CooPtData& point, double distance,
                                           std::vector<int>& lines) override;
  ThrowableErrorCode<bool> LineIntersectsBox(const CooPtData& a, const CooPtData& b,
                                             std::vector<int>& lines) override;
  void CloseFile() override {}

  void* GetGraphicsObject() override { return this; }
  int GetProxyType() override { return 20; }
  bool IsForReadOnly() override { return true; }

 private:
  struct State;

  std::unique_ptr<State> state_;
};
