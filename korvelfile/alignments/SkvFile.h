#pragma once

#include "korvelfile/Export.h"
#include "korvelfile/coordinates/GraphicsObjectInterface.h"
#include "korvelfile/outside/base/ArrayTemplate.h"
#include "korvelfile/outside/base/String.h"
#include "korvelfile/outside/base/StringArray.h"

class GeoFile;

/// The camber of a road along its line, two slopes at each of a list of chainages, and its `.skv`
/// file.
///
/// Chainages are metres. Slopes are ratios in memory and per cent in the file. Copies are deep. One
/// thread at a time.
class KORVELFILE_EXPORT SkvFile : public GraphicsObjectInterface {
 public:
  SkvFile();
  ~SkvFile() override;
  SkvFile(const SkvFile&);             ///< A deep copy.
  SkvFile(SkvFile&&) noexcept;         ///< Leaves the source empty.
  SkvFile& operator=(const SkvFile&);  ///< A deep copy.
  SkvFile& operator=(SkvFile&&) noexcept;

  void* GetGraphicsObject() override;  ///< This `SkvFile`.
  int GetProxyType() override;         ///< 3.
  bool IsForReadOnly() override;       ///< False.

  /// Reads a file and appends its elements to those in memory.
  ///
  /// The list ends, without a word, at the first record that isn't whole. An element number ends at
  /// its first blank. A column without a number is 0.
  /// @param name path, narrow text as the system takes it
  /// @return 0; -9 if the file can't be opened, or, with a system message, if it doesn't hold the
  ///   two header records
  int Open(const char* name);

  /// Writes all elements in the place of the file, with today's local date.
  ///
  /// An element number is cut at 12 characters. A number wider than its column isn't: the records
  /// behind it can't be read then.
  /// @return 0; -9, with system messages, if the file can't be written: the old one then stays
  int Save(const char* name);

  /// Gives the number of elements.
  void GetTotalElements(int& count) const;

  /// One element, its slopes as ratios; unchanged without an element `index`.
  void GetElement(int index, String& elemNo, double& section, double& slope1, double& slope2) const;

  /// Inserts, overwrites or appends an element.
  ///
  /// @param index   with `insert` the place before which it comes, -1 to append; else the element
  ///                overwritten, or at or above the count to append; nothing happens if negative
  /// @param slope1  ratio, as `slope2`
  /// @param insert  becomes false if it was true
  void SetElement(int index, String elemNo, double section, double slope1, double slope2,
                  bool& insert);

  /// Removes an element; nothing happens without an element `index`.
  void DeleteElement(int index);

  /// Removes all elements.
  void Delete();

 private:
  void MakeRoom(int index);
  void WriteAll(GeoFile& file) const;

  deprecated::StringArray elemNo_;
  deprecated::ArrayTemplate<double> section_;
  deprecated::ArrayTemplate<double> slope1_;
  deprecated::ArrayTemplate<double> slope2_;
};
