#include "korvelfile/measurements/SpCode.h"

#include "korvelfile/data/CodeTable.h"

namespace {

constexpr CodeRow<SpCodeId> kCodes[] = {
    {SpCodeF2, "F2"},    {SpCodeF3, "F3"}, {SpCodeC2, "C2"}, {SpCodeC3, "C3"}, {SpCodeR2, "R2"},
    {SpCodeR3, "R3"},    {SpCodeE, "E"},   {SpCodePI, "PI"}, {SpCodePP, "PP"}, {SpCodeKP, "KP"},
    {SpCodeLL, "LL"},    {SpCodeLH, "LH"}, {SpCodeLH, "HL"}, {SpCodeSM, "SM"}, {SpCodeRF, "RF"},
    {SpCodeZPlus, "Z+"}, {SpCodeZC, "ZC"}};

SpCodeId IdOf(const char* text) { return FindCode(kCodes, text, SpCodeUnknown); }

}  // namespace

bool SpCode::operator=(const char* text) {
  id_ = IdOf(text);
  return id_ != SpCodeUnknown;
}

bool SpCode::operator==(const char* text) const { return id_ == IdOf(text); }

SpCode::operator const char*() const { return CodeText(kCodes, id_); }

std::vector<std::string> SpCode::GetSpCodeList() { return CodeTexts(kCodes); }
