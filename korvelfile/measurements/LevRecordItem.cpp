#include "korvelfile/measurements/LevRecordItem.h"

#include "korvelfile/measurements/internal/ItemFields.h"
#include "korvelfile/outside/base/DataStream.h"
#include "korvelfile/outside/base/Text.h"

namespace {

void StreamWide(DataStream& stream, std::wstring& value) {
  std::string narrow = Narrow(value);
  stream.Stream(narrow);
  if (!stream.IsStoring()) value = Widen(narrow);
}

}  // namespace

void LevRecordItem::Stream(DataStream& stream, int /*version*/) {
  StreamWide(stream, pointName_);
  internal::StreamAs<unsigned char>(stream, levType_);
  stream.Stream(backwards_);
  stream.Stream(forwards_);
  stream.Stream(dist_);
  stream.Stream(height_);
  StreamWide(stream, code_);
}
