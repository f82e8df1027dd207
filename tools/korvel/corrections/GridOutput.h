#pragma once

#include <functional>
#include <string>

#include "korvelfile/corrections/CcgInputGrid.h"

namespace korvel {

/// Throws InputError unless a grid of these rows and columns has room in a file, which ends at
/// 2 GiB.
void RequireRoom(const std::string& path, double rows, double columns, int values);

/// Makes the correction grid `path` out of `grid`, or puts `grid` into the one that is there. The
/// file changes whole or not at all.
/// @param isUpdate true keeps what the file holds beyond `grid`
/// @throws InputError that says why that fails
void WriteGrid(const std::string& path, CcgInputGrid grid, bool isUpdate);

/// Writes what became of `path` on standard output: rows, columns, nodes with a value.
void PrintGrid(const std::string& path);

}  // namespace korvel
