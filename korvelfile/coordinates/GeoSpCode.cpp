#include "korvelfile/coordinates/GeoSpCode.h"

#include "korvelfile/data/CodeTable.h"

namespace {

constexpr CodeRow<GeoSpCodeId> kCodes[] = {{GeoSpCodeRadius, "R"},
                                           {GeoSpCodeC, "C"},
                                           {GeoSpCodeBearing, "B"},
                                           {GeoSpCodeMinusOne, "-1"},
                                           {GeoSpCodeCF, "CF"}};

}  // namespace

bool GeoSpCode::operator=(const char* text) {
  id_ = FindCode(kCodes, text, GeoSpCodeOther);
  return id_ != GeoSpCodeOther;
}

bool GeoSpCode::operator==(const char* text) const {
  return id_ == FindCode(kCodes, text, GeoSpCodeOther);
}

GeoSpCode::operator const char*() const { return CodeText(kCodes, id_); }

std::vector<std::string> GeoSpCode::GetSpCodeList() { return CodeTexts(kCodes); }
