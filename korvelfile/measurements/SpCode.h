#pragma once

#include <string>
#include <vector>

#include "korvelfile/Export.h"

/// The special codes of a record. Those with a comment act on its reduction, through the number in
/// the remark where they have one, see PolarReductions.h.
enum SpCodeId {
  SpCodeF2,
  SpCodeF3,
  SpCodeC2,
  SpCodeC3,
  SpCodeR2,
  SpCodeR3,
  SpCodeE,
  SpCodePI,
  SpCodePP,
  SpCodeKP,
  SpCodeLL,     ///< "LL": metres to add to the measured distance
  SpCodeLH,     ///< "LH", also spelled "HL": metres to add to the reduced horizontal distance
  SpCodeSM,     ///< "SM": metres to add to the sideways offset
  SpCodeRF,     ///< "RF": the station's offsets change sign
  SpCodeZPlus,  ///< "Z+": metres to add to the height difference
  SpCodeZC,
  SpCodeUnknown  ///< any other text, the empty one included
};

/// A special code, by number and by text. Texts are compared exactly, case included.
class KORVELFILE_EXPORT SpCode {
 public:
  SpCode() = default;
  SpCode(SpCodeId id) : id_(id) {}

  /// Takes the code of `text`, which must not be null.
  /// @return false, with the code `SpCodeUnknown`, if it is none
  bool operator=(const char* text);

  /// True if `text`, which must not be null, stands for this code; every text that isn't a code
  /// equals `SpCodeUnknown`.
  bool operator==(const char* text) const;

  operator SpCodeId() const { return id_; }

  /// The text of the code, "LH" for both its spellings, empty for `SpCodeUnknown`.
  operator const char*() const;

  /// The 16 texts in the order of their numbers.
  static std::vector<std::string> GetSpCodeList();

 private:
  SpCodeId id_ = SpCodeUnknown;
};
