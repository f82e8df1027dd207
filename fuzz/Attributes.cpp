// Reads attribute definitions and writes them back.
// Seeds: fuzz/seeds/atr tests/golden/atr

#include "fuzz/support/Harness.h"
#include "korvelfile/data/AttributeFile.h"
#include "korvelfile/data/GeoAttribContext.h"
#include "korvelfile/data/GeoAttribType.h"
#include "korvelfile/data/TypedItemCursor.h"

namespace {

void AskTypes(AttributeFile& file) {
  TypedItemCursor<GeoAttribContext> contexts(file);
  GeoAttribContext* context = nullptr;
  while (contexts.Next(context) == 0) {
    file.GetAttribContext(context->Name.c_str());
    TypedItemCursor<GeoAttribType> types(*context);
    GeoAttribType* type = nullptr;
    while (types.Next(type) == 0) {
      file.GetAttribType(context, type->Name.c_str());
      for (int i = -1; i < 3; ++i) type->GetTokenByIndex(i);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::CheckReader<AttributeFile>(fuzz::Input(data, size), "job.atr", AskTypes);
  return 0;
}
