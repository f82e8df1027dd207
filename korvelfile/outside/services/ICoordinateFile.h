/// @file
/// A coordinate file as those see it who change its lines: lines and their points, by number.
#pragma once

#include <memory>
#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/outside/base/Vector3d.h"
#include "korvelfile/outside/services/IPxyPoint.h"

namespace Korvel {

/// A line of a coordinate file. Points count from 0.
class KORVELFILE_EXPORT ICoordinateLine {
 public:
  virtual ~ICoordinateLine();

  /// How many points there are.
  virtual int GetPointCount() const = 0;

  /// @param index below the count
  /// @return the point, which stays valid as long as somebody holds it and the file is in use
  virtual std::shared_ptr<IPxyPoint> GetPoint(int index) = 0;

  /// Inserts a new point before the one at `index`.
  ///
  /// Runs of insertions close to each other don't take longer in long lines than in short ones.
  /// @param index    at most the count, which appends
  /// @param position metres
  /// @return the new point, without codes and remark
  virtual std::shared_ptr<IPxyPoint> InsertPoint(int index, const Vector3d& position,
                                                 const std::string& name) = 0;
};

/// The lines of a coordinate file. Lines count from 0.
class KORVELFILE_EXPORT ICoordinateLineList {
 public:
  virtual ~ICoordinateLineList();

  /// How many lines there are.
  virtual int GetLineCount() const = 0;

  /// @param index below the count
  virtual std::shared_ptr<ICoordinateLine> GetLine(int index) = 0;

  /// Inserts a new line before the one at `index`.
  /// @param index at most the count, which appends
  /// @return the new line, without points
  virtual std::shared_ptr<ICoordinateLine> InsertLine(int index, const std::string& name) = 0;
};

/// A coordinate file whose lines may be changed.
class KORVELFILE_EXPORT ICoordinateFile : public ICoordinateLineList {
 public:
  ~ICoordinateFile() override;

  /// Called once by who has filled the file, when all is in.
  virtual void Finish() = 0;
};

}  // namespace Korvel
