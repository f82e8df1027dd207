/// @file
/// What is wrong with a file, in words, beginning with its name and, where there is one, the line.
#pragma once

#include <string>
#include <vector>

class DataCollectionInterface;

namespace korvel {

class LibraryMessages;

/// The extension of a path in lower case, with its dot; "" if it has none.
std::string ExtensionOf(const std::string& path);

/// Takes an empty path or one with an extension of `extensions`, which are in lower case.
/// @throws InputError that tells which there are
void RequireExtension(const std::string& path, const std::vector<std::string>& extensions);

/// @throws InputError that tells why, if the file can't be opened for reading
void RequireReadable(const std::string& path);

/// True if both name the same existing file, or the same place for a new one.
bool IsSameFile(const std::string& a, const std::string& b);

/// Describes why `file` couldn't be read.
/// @param file     collector whose `UseCollector` failed just before
/// @param kind     what the file should have been, with its article: "a measurement file"
/// @param messages what the library said meanwhile
std::string DescribeReadFault(const std::string& path, const DataCollectionInterface& file,
                              const std::string& kind, const LibraryMessages& messages);

}  // namespace korvel
