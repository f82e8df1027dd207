#pragma once

#include <array>
#include <string_view>

/// One element of a profile: a copy, which changes nothing in the file when it changes.
///
/// Metres; slopes are ratios, height per chainage. An element of radius 0 is a straight grade, any
/// other a vertical curve: positive where the slope grows, in a sag, negative on a crest. It ends
/// where the next one starts. A plain value, all zero when new.
class TPrf {
 public:
  TPrf() = default;

  /// An element with a number, of which 15 bytes are kept.
  explicit TPrf(std::string_view elemNo) { elemNo.copy(elemNo_.data(), elemNo_.size() - 1); }

  const char* GetElemNo() const {
    return elemNo_.data();
  }                                               ///< Element number; lives as long as this.
  double GetSection() const { return section_; }  ///< Chainage of the start.
  double GetZ() const { return z_; }              ///< Height of the start.
  double GetSlope() const { return slope_; }      ///< At the start, ratio.
  double GetRadius() const { return radius_; }    ///< Of the vertical curve, or 0.
  double GetLength() const { return length_; }    ///< Along the chainage.
  double GetCamberL() const { return camberL_; }  ///< Left camber; in no file.
  double GetCamberR() const { return camberR_; }  ///< Right camber; in no file.
  double GetOffsL() const { return offsL_; }      ///< Left offset.
  double GetOffsR() const { return offsR_; }      ///< Right offset.

  void SetSection(double section) { section_ = section; }  ///< See `GetSection`.
  void SetZ(double z) { z_ = z; }                          ///< See `GetZ`.
  void SetSlope(double slope) { slope_ = slope; }          ///< See `GetSlope`.
  void SetRadius(double radius) { radius_ = radius; }      ///< See `GetRadius`.
  void SetLength(double length) { length_ = length; }      ///< See `GetLength`.
  void SetCamberL(double camberL) { camberL_ = camberL; }  ///< See `GetCamberL`.
  void SetCamberR(double camberR) { camberR_ = camberR; }  ///< See `GetCamberR`.
  void SetOffsL(double offsL) { offsL_ = offsL; }          ///< See `GetOffsL`.
  void SetOffsR(double offsR) { offsR_ = offsR; }          ///< See `GetOffsR`.

 private:
  std::array<char, 16> elemNo_{};
  double section_ = 0.0;
  double z_ = 0.0;
  double slope_ = 0.0;
  double radius_ = 0.0;
  double length_ = 0.0;
  double camberL_ = 0.0;
  double camberR_ = 0.0;
  double offsL_ = 0.0;
  double offsR_ = 0.0;
};
