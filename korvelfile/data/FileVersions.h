/// @file
/// Versions of the file formats: the major number in the high 16 bits, the minor one in the low 16,
/// so that they compare as numbers. They are written into files and never change.
#pragma once

/// `.geo` and `.llc`, also of points and lines: 2.01.
inline constexpr int giMarlinGeoFileVersion = 0x00020001;

/// Cross-section object text: 1.03.
inline constexpr int giMarlinSecFileVersion = 0x00010003;

/// `.atr`: 1.03.
inline constexpr int giAtrFileVersion = 0x00010003;
