#pragma once

#include <string>
#include <vector>

namespace korvel {

class LibraryMessages;
struct StationOutcome;

/// Writes the stations and their new points to a `.geo` or `.pxy` file, which is replaced whole.
///
/// Each station stands before its points; points of records in a line go to a line of the same
/// name, code and form, which comes behind the free points.
/// @throws InputError if the file can't be written
void WritePointsFile(const std::string& path, const std::vector<StationOutcome>& outcomes,
                     LibraryMessages& messages);

}  // namespace korvel
