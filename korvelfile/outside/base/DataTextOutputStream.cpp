#include "korvelfile/outside/base/DataTextOutputStream.h"

#include <array>

#include "korvelfile/outside/base/NumberText.h"
#include "korvelfile/outside/base/String.h"

DataTextOutputStream::DataTextOutputStream(std::string& out, int fieldsBefore)
    : out_(out), hasFields_(fieldsBefore > 0) {}

void DataTextOutputStream::Separate() {
  if (hasFields_) out_ += ',';
  hasFields_ = true;
}

void DataTextOutputStream::Stream(std::string& value, std::string_view /*absent*/) {
  Separate();
  String::AppendQuoted(out_, value);
}

void DataTextOutputStream::Stream(double& value, double /*absent*/) {
  Separate();
  std::array<char, kObjectNumberSize> buffer;
  out_.append(buffer.data(), PutObjectNumber(buffer.data(), value));
}

long long DataTextOutputStream::StreamInteger(long long value, long long /*absent*/,
                                              long long /*lowest*/, long long /*highest*/) {
  Separate();
  std::array<char, kObjectNumberSize> buffer;
  out_.append(buffer.data(), PutInteger(buffer.data(), value));
  return value;
}
