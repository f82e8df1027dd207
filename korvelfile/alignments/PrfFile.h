#pragma once

#include <memory>
#include <vector>

#include "korvelfile/Export.h"
#include "korvelfile/alignments/TPrf.h"
#include "korvelfile/alignments/TPrfCtrl.h"
#include "korvelfile/coordinates/GraphicsObjectInterface.h"
#include "korvelfile/outside/base/ArrayTemplate.h"
#include "korvelfile/outside/base/GeometryInterface.h"
#include "korvelfile/outside/base/String.h"
#include "korvelfile/outside/base/StringArray.h"

class GeoFile;

/// A vertical alignment, the profile that belongs to a line, and its `.prf` file: straight grades
/// and circular curves in the plane of chainage and height.
///
/// What the figures of an element mean stands with `TPrf`. Copies are deep. One thread at a time.
class KORVELFILE_EXPORT PrfFile : public GraphicsObjectInterface {
 public:
  PrfFile();
  ~PrfFile() override;
  PrfFile(const PrfFile&);             ///< A deep copy.
  PrfFile& operator=(const PrfFile&);  ///< A deep copy.

  void* GetGraphicsObject() override;  ///< This `PrfFile`.
  int GetProxyType() override;         ///< 2.
  bool IsForReadOnly() override;       ///< False.

  /// Reads a file and appends its elements to those in memory.
  ///
  /// A curve that doesn't reach its end chainage is told by a system message and kept.
  /// @param name path, narrow text as the system takes it
  /// @return 0; -9 if the file can't be opened, or, with a system message, if it is corrupt; the
  ///   elements before the fault then stay in memory
  int Open(const char* name);

  /// Writes all elements in the place of the file. A number too wide for its field isn't cut.
  ///
  /// @return 0; -9, with system messages, if the file can't be written: the old one then stays
  int Save(const char* name);

  /// Gives the number of elements.
  void GetTotalElements(int& count) const;

  /// The figures of an element; unchanged without an element `index`.
  void GetElement(int index, String& elemNo, double& section, double& z, double& slope,
                  double& radius, double& length, double& offsL, double& offsR) const;

  /// Inserts, overwrites or appends an element.
  ///
  /// @param index   with `insert` the place before which it comes, -1 to append; else the element
  ///                overwritten, or at or above the count to append; nothing happens if negative
  /// @param insert  becomes false if it was true
  void SetElement(int index, String elemNo, double section, double z, double slope, double radius,
                  double length, double offsL, double offsR, bool& insert);

  /// Removes an element; nothing happens without an element `index`.
  void DeleteElement(int index);

  /// Removes all elements.
  void Delete();

  /// Compares the stored figures of every element with what its own point and the next one's ask
  /// for, and appends a line to `report` for each that doesn't agree. Changes no element.
  ///
  /// An element is reported if its length is off by more than 1 mm, its slope by more than 0.001,
  /// or its slope differs by more than 0.1 from that with which the element before ends, or if one
  /// of these isn't a number. Chainages aren't compared, and the last element is never reported.
  /// Where the geometry isn't found, figures that it would give are those of the last element where
  /// it was, 0 if none.
  void PrfDataCheck(std::vector<TPrfCtrl>& report) const;

  /// Puts the corrected elements of a report in their places. Nothing is saved.
  void PrfDataCorrect(std::vector<TPrfCtrl>& report);

 private:
  struct Columns;

  // The geometry of `first` as fixed by the start of `second`: `status` as `TPrfCtrl::Status`.
  // Where the geometry isn't found, some of the others keep their values.
  void CalcLenSlope(TPrf first, TPrf second, double& startSlope, double& endSlope, double& length,
                    int& status) const;

  bool HasElement(int index) const { return index >= 0 && index < section_.GetCount(); }
  TPrf GetAt(int index) const;
  void MakeRoom(int index);
  void WriteAll(GeoFile& file) const;

  // Of the elements read, in the plane of chainage and height. Never changed, so that copies share
  // them.
  deprecated::ArrayTemplate<std::shared_ptr<const GeometryInterface>> geometry_;
  deprecated::ArrayTemplate<double> offsL_;
  deprecated::ArrayTemplate<double> offsR_;
  deprecated::ArrayTemplate<double> length_;
  deprecated::ArrayTemplate<double> section_;
  deprecated::ArrayTemplate<double> z_;
  deprecated::ArrayTemplate<double> slope_;
  deprecated::ArrayTemplate<double> radius_;
  deprecated::StringArray elemNo_;
};
