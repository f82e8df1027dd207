#pragma once

#include <string>
#include <string_view>

#include "korvelfile/outside/base/DataStream.h"

/// Reads the comma-separated fields of one object text row.
///
/// A text stands between double quotes, spelled as by `String::QuoteString`; a bare text goes up to
/// the next comma. What stands between a closing quote and the next comma is passed over. Numbers
/// follow `ParseDouble` and `ParseInteger`; "?" is DBL_MAX. Fields behind the end of the row are
/// blank. No input is an error.
class KORVELBASE_EXPORT DataTextInputStream final : public DataStream {
 public:
  /// @param fields the text behind the keyword, which must outlive the stream
  explicit DataTextInputStream(std::string_view fields);

  bool IsStoring() const override { return false; }
  void Stream(std::string& value, std::string_view absent = {}) override;
  void Stream(double& value, double absent = kUndefined) override;
  using DataStream::Stream;

 private:
  struct Field {
    std::string_view text;  ///< between the quotes, if it is quoted
    bool isQuoted;
    bool isEscaped;  ///< holds a backslash
  };

  long long StreamInteger(long long value, long long absent, long long lowest,
                          long long highest) override;
  Field TakeField();
  Field TakeQuoted();
  void SkipPastComma();

  std::string_view rest_;
};
