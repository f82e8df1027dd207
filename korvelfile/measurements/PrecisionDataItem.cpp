#include "korvelfile/measurements/PrecisionDataItem.h"

#include "korvelfile/outside/base/DataStream.h"

PrecisionDataItem& PrecisionDataItem::operator=(PrecisionDataItem other) {
  DataItem::operator=(other);
  DataItemListObject::Swap(other);
  AngleError = other.AngleError;
  VerticalError = other.VerticalError;
  DistanceError = other.DistanceError;
  DistancePpm = other.DistancePpm;
  FifthError = other.FifthError;
  return *this;
}

bool PrecisionDataItem::IsValid() const {
  return !IsUndefined(AngleError) && !IsUndefined(VerticalError) && !IsUndefined(DistanceError) &&
         !IsUndefined(DistancePpm);
}

void PrecisionDataItem::Stream(DataStream& stream, int version) {
  stream.Stream(AngleError);
  stream.Stream(VerticalError);
  stream.Stream(DistanceError);
  stream.Stream(DistancePpm);
  if (version >= PlmTypes::kFifthError) stream.Stream(FifthError);
}
