#pragma once

/// Names of the infos in a file header.
namespace FileHeaderFields {

inline constexpr const char* szFileInfoApplication = "Application";
inline constexpr const char* szFileInfoSerialNo = "SerialNo";
inline constexpr const char* szFileInfoAuthor = "Author";
inline constexpr const char* szFileInfoCompany = "Company";
inline constexpr const char* szFileInfoDescription = "Description";
inline constexpr const char* szFileInfoProjectDescription = "Project Description";
inline constexpr const char* szFileInfoCoordinateSystem = "Coordinate System";
inline constexpr const char* szFileInfoKnownPointFiles = "Known Point Files";
inline constexpr const char* szFileInfoSourceFile = "Source File";
inline constexpr const char* szFileInfoCreated = "Created";
inline constexpr const char* szFileInfoCenterLine = "Center Line";

}  // namespace FileHeaderFields
