#pragma once

/// How an operation on a correction grid ended.
enum GeoStatus : int {
  GeoSuccess = 0,           ///< Done.
  GeoFileError = -304,      ///< The file can't be read or written, or is damaged.
  GeoGridMismatch = -1119,  ///< The grid doesn't fit the one in the file.
};
