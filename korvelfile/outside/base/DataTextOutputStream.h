#pragma once

#include <string>
#include <string_view>

#include "korvelfile/outside/base/DataStream.h"

/// Appends the comma-separated fields of one object text row to a text.
///
/// Texts are quoted by `String::QuoteString`, numbers follow `PutObjectNumber`.
class KORVELBASE_EXPORT DataTextOutputStream final : public DataStream {
 public:
  /// @param out the row so far, which must outlive the stream; fields go to its end
  /// @param fieldsBefore how many fields the row holds already: a comma comes first if any
  explicit DataTextOutputStream(std::string& out, int fieldsBefore = 0);

  bool IsStoring() const override { return true; }
  void Stream(std::string& value, std::string_view absent = {}) override;
  void Stream(double& value, double absent = kUndefined) override;
  using DataStream::Stream;

 private:
  long long StreamInteger(long long value, long long absent, long long lowest,
                          long long highest) override;
  void Separate();

  std::string& out_;
  bool hasFields_;
};
