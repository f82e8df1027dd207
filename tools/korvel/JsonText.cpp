#include "tools/korvel/JsonText.h"

#include <ostream>

#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/Printable.h"

namespace korvel {

Json JsonNumber(double value) { return IsKnown(value) ? Json(value) : Json(nullptr); }

Json JsonText(const std::string& text) { return ToUtf8(text); }

void PrintJson(const Json& json, std::ostream& out) {
  constexpr int kIndent = 2;
  out << json.dump(kIndent) << '\n';
}

}  // namespace korvel
