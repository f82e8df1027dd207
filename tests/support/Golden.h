/// @file
/// Golden files: exact bytes, which the pages of the formats show as they are.
#pragma once

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/outside/base/String.h"
#include "korvelfile/outside/base/Time.h"
#include "tests/support/Files.h"

/// Expects that the page of a format, "geo.md", shows `golden`.
inline void ExpectOnPage(const std::string& page, std::string golden) {
  std::erase(golden, '\r');
  EXPECT_THAT(ReadBytes(KORVELFILE_SOURCE "/docs/formats/" + page),
              testing::HasSubstr("```\n" + golden + "```\n"));
}

/// A golden file of fixed columns with the date of today in its header.
inline std::string DatedToday(std::string golden) {
  const GeoDate today = _Time::GetDateLocal();
  return golden.replace(23, 10, SF::dformat("%04i-%02i-%02i", today.year, today.month, today.day));
}
