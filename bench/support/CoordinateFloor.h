/// @file
/// The least that reading and writing coordinate files can cost: a memory map and
/// `std::from_chars` into plain arrays, `std::to_chars` into one buffer and one write.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Points as plain arrays. Texts read lie in the memory map.
struct PlainPoints {
  std::vector<std::string_view> name, pointCode, specialCode, remark;
  std::vector<double> y, x, z;

  void Reserve(std::size_t count);
};

/// A file mapped into memory.
class MappedFile {
 public:
  explicit MappedFile(const std::string& path);
  ~MappedFile();
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;

  std::string_view Text() const { return text_; }

 private:
  std::string_view text_;
};

PlainPoints ReadGeoFloor(const MappedFile& file, std::size_t count);
PlainPoints ReadPxyFloor(const MappedFile& file, std::size_t count);
void WriteGeoFloor(const std::string& path, const PlainPoints& points);
void WritePxyFloor(const std::string& path, const PlainPoints& points);
