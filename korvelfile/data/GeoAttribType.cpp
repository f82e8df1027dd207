#include "korvelfile/data/GeoAttribType.h"

#include <cstddef>
#include <string_view>

#include "korvelfile/data/FileVersions.h"
#include "korvelfile/outside/base/DataStream.h"

namespace {

constexpr int kVersionOfLastFields = 0x00010002;

}  // namespace

std::string GeoAttribType::GetTokenByIndex(int index) const {
  if (index < 0) return {};
  std::string_view rest = TokenList;
  for (; index > 0; --index) {
    const std::size_t comma = rest.find(',');
    if (comma == std::string_view::npos) return {};
    rest.remove_prefix(comma + 1);
  }
  return std::string(rest.substr(0, rest.find(',')));
}

int GeoAttribType::GetVersion() const { return giAtrFileVersion; }

void GeoAttribType::Stream(DataStream& stream, int version) {
  stream.Stream(Name);
  stream.Stream(Text2);
  stream.Stream(Flag1);
  stream.Stream(Number1);
  stream.Stream(Text3);
  stream.Stream(Text4);
  stream.Stream(Text5);
  stream.Stream(TokenList);
  stream.Stream(Flag2);
  if (version < kVersionOfLastFields) return;
  stream.Stream(Flag3);
  stream.Stream(Flag4);
  stream.Stream(Number2);
  stream.Stream(Flag5);
}
