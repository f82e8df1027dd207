/// @file
/// What is wrong with the elements of line files and profiles, one fault at a time.
///
/// The library's check compares an element with what its own start and the next one's ask for. Here
/// its report is read as an engineer does: differences of bearings are folded at the full circle,
/// figures that the check carried over from the element before aren't shown, and chainages behind
/// an element without a length aren't judged. What the check doesn't look at is added: an element
/// whose end misses the next one, and chainages that fall.
#pragma once

#include <string>
#include <vector>

#include "korvelfile/alignments/LinFile.h"
#include "korvelfile/alignments/PrfFile.h"

namespace korvel {

/// One fault of one element. Figures that a fault doesn't have are undefined.
struct ElementFault {
  int index = 0;  ///< of the element in its file, from 0
  std::string number;
  std::string kind;       ///< of the element
  double chainage = 0.0;  ///< stored, metres
  std::string what;
  double stored;      ///< in `unit`
  double required;    ///< what neighbours ask for
  double difference;  ///< required less stored
  std::string unit;
};

/// A checked file.
template <class File>
struct CheckedFile {
  std::vector<ElementFault> faults;  ///< by element
  /// The file with what could be corrected. An element whose geometry can't be found stays as it
  /// is, and so do chainages behind it.
  File corrected;
};

/// @name Check all elements
/// @{
CheckedFile<LinFile> CheckElements(const LinFile& file);
CheckedFile<PrfFile> CheckElements(const PrfFile& file);
/// @}

}  // namespace korvel
