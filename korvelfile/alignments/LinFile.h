#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "korvelfile/Export.h"
#include "korvelfile/alignments/TLin.h"
#include "korvelfile/alignments/TLinCtrl.h"
#include "korvelfile/coordinates/GraphicsObjectInterface.h"
#include "korvelfile/outside/base/Vector.h"

class GeoFile;

/// A horizontal alignment, the centre line of a road or railway, and its `.lin` file: straights,
/// arcs and clothoids, closed by one last element of length 0 whose start is the alignment's end.
///
/// What the figures of an element mean stands with `TLin`. Copies are deep. One thread at a time.
class KORVELFILE_EXPORT LinFile : public GraphicsObjectInterface {
 public:
  LinFile();
  ~LinFile() override;
  LinFile(const LinFile&);             ///< A deep copy.
  LinFile& operator=(const LinFile&);  ///< A deep copy.

  void* GetGraphicsObject() override;  ///< This `LinFile`.
  int GetProxyType() override;         ///< 1.
  bool IsForReadOnly() override;       ///< False.

  /// Reads a file and appends its elements to those in memory.
  ///
  /// An element of length 0 loses its radius and parameter.
  /// @param name path, narrow text as the system takes it
  /// @return 0; -9 if the file can't be opened, or, with a system message, if it is corrupt; the
  ///   elements before the fault then stay in memory
  int Open(const char* name);

  /// Writes all elements in the place of the file. A number too wide for its field isn't cut.
  ///
  /// @return 0; -9, with system messages, if the file can't be written: the old one then stays
  int Save(const char* name);

  std::size_t GetTotalElements() const { return section_.size(); }  ///< How many elements.

  /// A copy of an element; empty if `index` isn't below the count.
  std::shared_ptr<TLin> GetElement(std::size_t index) const;

  /// The figures of an element; unchanged if `index` isn't below the count.
  void GetElement(std::size_t index, std::string& elemNo, double& y, double& x, double& section,
                  double& radius, double& bearing, double& parameter, double& eRadius,
                  double& length) const;

  /// Inserts, overwrites or appends an element.
  ///
  /// @param index   with `insert` the place before which it comes, at most the count; else the
  ///                element overwritten, or at or above the count to append
  /// @param insert  becomes false if it was true
  void SetElement(std::size_t index, const std::string& elemNo, double y, double x, double section,
                  double radius, double bearing, double parameter, double eRadius, double length,
                  bool& insert);

  /// Removes an element; nothing happens if `index` isn't below the count.
  void DeleteElement(std::size_t index);

  double GetStartSection() const;  ///< Chainage of the first element; 0 without elements.

  /// Chainage of the last element and its length; 0 without elements.
  double GetStopSection() const;

  /// The end of an element by its own stored figures.
  ///
  /// @return its start if the figures make no element or aren't finite; (0, 0) if there is no
  ///   element `index`
  Vector FindEndPosOfElement(int index) const;

  /// Compares the stored figures of every element with what its own start and the next one's ask
  /// for, and appends a line to `report` for each that doesn't agree. Changes no element.
  ///
  /// An element is reported if its kink is above 0.1 gon, its length off by more than 1 mm, its
  /// bearing by more than 0.001 gon, or its chainage by more than 1 mm from the start's chainage
  /// plus the lengths before it, or if one of these isn't a number. Differences of bearings aren't
  /// folded at 400 gon. Where the geometry isn't found, figures that it would give are those of the
  /// last element where it was, 0 if none. Fewer than two elements are never reported.
  void LinDataCheck(std::vector<TLinCtrl>& report) const;

  /// Puts the corrected elements of a report in their places. Nothing is saved.
  void LinDataCorrect(std::vector<TLinCtrl>& report);

 private:
  struct Columns;

  // The geometry of `first` as fixed by the start of `second`: bearings in gon, `status` as
  // `TLinCtrl::Status`. Where the geometry isn't found, some of the others keep their values.
  void berBeringBlen(const TLin& first, const TLin& second, double& startBearing,
                     double& endBearing, double& length, double& parameter, int& status) const;

  TLin GetAt(std::size_t index) const;
  void MakeRoom(std::size_t index);
  void WriteAll(GeoFile& file) const;

  std::vector<std::string> elemNo_;
  std::vector<double> length_;
  std::vector<double> section_;
  std::vector<double> y_;
  std::vector<double> x_;
  std::vector<double> radius_;
  std::vector<double> bearing_;
  std::vector<double> parameter_;
  std::vector<double> eRadius_;
};
