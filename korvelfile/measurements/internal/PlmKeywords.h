/// @file
/// What reader and writer of the `.plm` file share. The keywords stand in files and never change.
#pragma once

namespace internal::plm {

inline constexpr const char* kStationList = "InmStnList";
inline constexpr const char* kStation = "InmStation";
inline constexpr const char* kRecordList = "InmRecordList";
inline constexpr const char* kRecord = "InmRecord";
inline constexpr const char* kLine = "InmLine";
inline constexpr const char* kPrecision = "InmPrecision";
inline constexpr const char* kAttributeList = "AttributeList";

/// How many lines may lie within each other. The format has no limit; this one keeps a damaged or
/// hostile file from exhausting the stack, and files from being written that can't be read back.
inline constexpr int kDeepestLine = 256;

}  // namespace internal::plm
