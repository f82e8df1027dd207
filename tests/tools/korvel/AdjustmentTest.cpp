// What the tool adds to an adjustment: residuals to draw, and judgements on it.

#include <cmath>
#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/measurements/RecordDataItem.h"
#include "korvelfile/measurements/StationDataItem.h"
#include "tools/korvel/Adjustment.h"

namespace {

using korvel::Adjusted;
using korvel::HeightMethod;
using korvel::SightResidual;

constexpr Vector kPlaces[] = {{100, 900}, {300, -400}, {-500, 80}, {20, -60}};  // E, N

// From (0, 0) with orientation 0; one distance is too long.
FreeStn StationWithBlunder(std::size_t index, double blunder) {
  StationDataItem station;
  station.SlopeDistance = 0;
  station.VerticalIsHeightDiff = 1;
  FreeStn free;
  for (std::size_t i = 0; i < std::size(kPlaces); ++i) {
    RecordDataItem record;
    record.SetName(std::to_string(i));
    record.Distance = kPlaces[i].GetLength() + (i == index ? blunder : 0.0);
    record.HorAngle = std::atan2(kPlaces[i].x, kPlaces[i].y);
    free.AddBacksight(station, record, {kPlaces[i].x, kPlaces[i].y, 7.0}, 0.0);
  }
  return free;
}

}  // namespace

TEST(Adjustment, DisplacementsAreThePlaneResidualsWithADirection) {
  FreeStn free = StationWithBlunder(0, 0.5);
  const Adjusted adjusted = korvel::Adjust(free, HeightMethod::Mean);
  ASSERT_EQ(adjusted.failure, "");
  const auto residuals = korvel::ResidualsOf(free, adjusted.result);
  ASSERT_EQ(residuals.size(), 4U);
  for (const SightResidual& v : residuals) EXPECT_NEAR(v.displacement.GetLength(), v.plane, 1e-9);
  EXPECT_LT(residuals[0].distance, -0.2);  // computed less observed, and the observed is too long
  const double along = residuals[0].displacement.GetScalarProduct(kPlaces[0]);
  EXPECT_GT(along, 0.9 * residuals[0].plane * kPlaces[0].GetLength());
}

TEST(Adjustment, LargestResidualsAreThoseOfTheReport) {
  FreeStn free = StationWithBlunder(2, 0.5);
  Adjusted adjusted = korvel::Adjust(free, HeightMethod::Weighted);
  const auto residuals = korvel::ResidualsOf(free, adjusted.result);
  EXPECT_EQ(adjusted.result.MaxDistanceName, "2");
  EXPECT_NEAR(residuals[2].distance, adjusted.result.MaxDistanceResidual, 1e-8);
  EXPECT_TRUE(korvel::HasConverged(residuals, adjusted.result));
  adjusted.result.MaxDistanceResidual *= 1.001;
  EXPECT_FALSE(korvel::HasConverged(residuals, adjusted.result));
}

TEST(Adjustment, FailuresSayWhatIsMissing) {
  FreeStn none;
  EXPECT_NE(korvel::Adjust(none, HeightMethod::Mean).failure.find("too few"), std::string::npos);

  FreeStn flat = StationWithBlunder(0, 0.0);
  for (CBacksight& b : flat.Backsights) b.HeightDiff = kUndefined;
  flat.HeightCount = 0;
  const Adjusted adjusted = korvel::Adjust(flat, HeightMethod::Weighted);
  EXPECT_EQ(adjusted.failure, "");
  EXPECT_EQ(adjusted.heightNote, "no backsight gives a height");
  EXPECT_TRUE(IsUndefined(adjusted.result.Position.z));
}
