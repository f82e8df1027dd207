#include "support/CoordinateFloor.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::size_t kPxyLine = 77;
constexpr std::size_t kRowRoom = 200;

const char* Find(const char* from, const char* end, char c) {
  const void* found = std::memchr(from, c, static_cast<std::size_t>(end - from));
  return found ? static_cast<const char*>(found) : end;
}

std::string_view TakeQuoted(const char*& p, const char* end) {
  const char* start = Find(p, end, '"') + 1;
  const char* stop = Find(start, end, '"');
  p = stop + 1;
  return {start, static_cast<std::size_t>(stop - start)};
}

double TakeNumber(const char*& p, const char* end) {
  double value = 0.0;
  p = std::from_chars(p + 1, end, value).ptr;
  return value;
}

double ColumnNumber(const char* p) {
  const char* end = p + 12;
  while (p != end && *p == ' ') ++p;
  double value = 0.0;
  std::from_chars(p, end, value);
  return value;
}

std::string_view ColumnText(const char* p, std::size_t width) {
  while (width > 0 && p[width - 1] == ' ') --width;
  return {p, width};
}

char* PutText(char* out, std::string_view text) { return std::copy(text.begin(), text.end(), out); }

char* PutQuoted(char* out, std::string_view text) {
  *out++ = '"';
  out = PutText(out, text);
  *out++ = '"';
  *out++ = ',';
  return out;
}

char* PutNumber(char* out, double value) {
  const bool isSmall = std::fabs(value) < 1.0 && value != 0.0;
  const auto format = isSmall ? std::chars_format::scientific : std::chars_format::general;
  out = std::to_chars(out, out + 40, value, format, 15).ptr;
  *out++ = ',';
  return out;
}

char* PutColumn(char* out, std::string_view text, std::size_t width) {
  const std::size_t length = std::min(text.size(), width);
  out = PutText(out, text.substr(0, length));
  return std::fill_n(out, width - length, ' ');
}

char* PutColumnNumber(char* out, double value) {
  char text[40];
  char* end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 4).ptr;
  out = std::fill_n(out, 12 - (end - text), ' ');
  return std::copy(text, end, out);
}

template <class PutRow>
void WriteRows(const std::string& path, std::size_t count, PutRow putRow) {
  const std::unique_ptr<char[]> buffer(new char[count * kRowRoom]);
  char* end = buffer.get();
  for (std::size_t i = 0; i < count; ++i) end = putRow(end, i);
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  const auto size = static_cast<std::size_t>(end - buffer.get());
  if (write(file, buffer.get(), size) != static_cast<ssize_t>(size)) std::abort();
  close(file);
}

}  // namespace

void PlainPoints::Reserve(std::size_t count) {
  for (auto* texts : {&name, &pointCode, &specialCode, &remark}) texts->reserve(count);
  for (auto* numbers : {&y, &x, &z}) numbers->reserve(count);
}

MappedFile::MappedFile(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY);
  struct stat status {};
  if (file < 0 || fstat(file, &status) != 0) std::abort();
  const auto size = static_cast<std::size_t>(status.st_size);
  void* address = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
  if (address == MAP_FAILED) std::abort();
  text_ = {static_cast<const char*>(address), size};
  close(file);
}

MappedFile::~MappedFile() { munmap(const_cast<char*>(text_.data()), text_.size()); }

PlainPoints ReadGeoFloor(const MappedFile& file, std::size_t count) {
  PlainPoints points;
  points.Reserve(count);
  const char* p = file.Text().data();
  const char* const end = p + file.Text().size();
  while (p < end) {
    const char* const next = Find(p, end, '\n') + 1;
    if (std::strncmp(p, "\tPoint ", 7) == 0) {
      p += 7;
      points.name.push_back(TakeQuoted(p, next));
      points.y.push_back(TakeNumber(p, next));
      points.x.push_back(TakeNumber(p, next));
      points.z.push_back(TakeNumber(p, next));
      points.pointCode.push_back(TakeQuoted(p, next));
      points.specialCode.push_back(TakeQuoted(p, next));
      points.remark.push_back(TakeQuoted(p, next));
    }
    p = next;
  }
  return points;
}

PlainPoints ReadPxyFloor(const MappedFile& file, std::size_t count) {
  PlainPoints points;
  points.Reserve(count);
  const char* p = file.Text().data();
  const char* const end = p + file.Text().size();
  for (int i = 0; i < 2; ++i) p = Find(p, end, '\n') + 1;
  while (p < end) {
    points.name.push_back(ColumnText(p, 12));
    points.y.push_back(ColumnNumber(p + 14));
    points.x.push_back(ColumnNumber(p + 26));
    points.z.push_back(ColumnNumber(p + 38));
    points.pointCode.push_back(ColumnText(p + 51, 8));
    points.specialCode.push_back(ColumnText(p + 60, 2));
    points.remark.push_back(ColumnText(p + 62, 12));
    p = Find(p, end, '\n') + 1;
  }
  return points;
}

void WriteGeoFloor(const std::string& path, const PlainPoints& points) {
  WriteRows(path, points.name.size(), [&](char* out, std::size_t i) {
    out = PutQuoted(PutText(out, "\tPoint "), points.name[i]);
    out = PutNumber(out, points.y[i]);
    out = PutNumber(out, points.x[i]);
    out = PutNumber(out, points.z[i]);
    out = PutQuoted(out, points.pointCode[i]);
    out = PutQuoted(out, points.specialCode[i]);
    return PutText(PutQuoted(out, points.remark[i]) - 1, "\r\n");
  });
}

void WritePxyFloor(const std::string& path, const PlainPoints& points) {
  static_assert(kPxyLine < kRowRoom);
  WriteRows(path, points.name.size(), [&](char* out, std::size_t i) {
    out = PutText(PutColumn(out, points.name[i], 12), "  ");
    out = PutColumnNumber(out, points.y[i]);
    out = PutColumnNumber(out, points.x[i]);
    out = PutColumnNumber(out, points.z[i]);
    out = PutText(PutColumn(PutText(out, " "), points.pointCode[i], 8), " ");
    out = PutColumn(PutColumn(out, points.specialCode[i], 2), points.remark[i], 12);
    return PutText(out, ",\r\n");
  });
}
