#include "tools/korvel/corrections/CorrectionQuery.h"

#include <algorithm>

#include "korvelfile/outside/base/Angles.h"
#include "korvelfile/outside/base/Undefined.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/NumberFormat.h"
#include "tools/korvel/corrections/CorrectionModel.h"

namespace korvel {

CorrectionQuery::CorrectionQuery(const CorrectionModel& model, const ModelUnits& units,
                                 bool isInverse)
    : model_(model), units_(units), isInverse_(isInverse) {
  if (isInverse && !model.GetTraits().hasInverse)
    throw InputError("the model has forward corrections only, no inverse");
}

std::string CorrectionQuery::Fault(double north, double east) const {
  if (!IsKnown(north) || !IsKnown(east)) return "no coordinates";
  const ModelExtent& extent = model_.GetExtent();
  const bool isInside = extent.Contains(north, east) ||
                        (units_.IsGeographic() && extent.Contains(north, east + kTwoPi));
  return isInside ? "no value there" : "outside";
}

CorrectedPoint CorrectionQuery::Correct(const QueryPoint& point) const {
  const double north = units_.ToModel(point.north);
  const double east = units_.ToModel(point.east);
  Vector3d c;
  const bool isThere =
      IsKnown(north) && IsKnown(east) &&
      (isInverse_ ? model_.FindInverse(north, east, c) : model_.Find(north, east, c));
  if (!isThere)
    return {Fault(north, east),
            {kUndefined, kUndefined, kUndefined},
            kUndefined,
            kUndefined,
            kUndefined};
  const Vector3d correction(units_.FromModel(c.x), units_.FromModel(c.y), c.z);
  const Vector3d step = isInverse_ ? correction * -1.0 : correction;
  return {"", correction, point.north + step.x, point.east + step.y,
          IsKnown(point.height) ? point.height + step.z : kUndefined};
}

}  // namespace korvel
