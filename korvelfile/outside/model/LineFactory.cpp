#include "korvelfile/outside/model/LineFactory.h"

#include <cmath>

#include "korvelfile/outside/model/LineException.h"
#include "korvelfile/outside/model/internal/ArcShape.h"
#include "korvelfile/outside/model/internal/ClothoidShape.h"
#include "korvelfile/outside/model/internal/CrossfallTable.h"
#include "korvelfile/outside/model/internal/ElementList.h"
#include "korvelfile/outside/model/internal/Elements.h"
#include "korvelfile/outside/model/internal/HeightProfile.h"
#include "korvelfile/outside/model/internal/RoadLine.h"
#include "korvelfile/outside/model/internal/StraightShape.h"

namespace Model {

IRoadLine::~IRoadLine() = default;
LineFactory::~LineFactory() = default;

std::shared_ptr<ILine> LineFactory::CreateLine() { return std::make_shared<RoadLine>(); }

std::shared_ptr<IHorizontalElement> CreateElement(const Proxy::LineElement& e) {
  const Place start{e.Start, e.Bearing};
  if (e.Parameter != 0.0) {
    auto shape =
        std::make_shared<ClothoidShape>(start, e.Parameter, e.Radius, e.EndRadius, e.Length);
    return std::make_shared<ClothoidElement>(std::move(shape), e.Section, e.Radius, e.EndRadius);
  }
  if (e.Radius != 0.0) {
    auto shape = std::make_shared<ArcShape>(start, e.Radius, e.Length);
    return std::make_shared<ArcElement>(std::move(shape), e.Section, e.Radius, e.Radius);
  }
  auto shape = std::make_shared<StraightShape>(start, e.Length);
  return std::make_shared<StraightElement>(std::move(shape), e.Section);
}

std::shared_ptr<IRoadLine> BuildLine(const ILineFileProxy& line, const IProfileFileProxy* profile,
                                     const ICamberFileProxy* camber) {
  auto built = std::make_shared<RoadLine>(profile ? HeightProfile(*profile) : HeightProfile(),
                                          camber ? CrossfallTable(*camber) : CrossfallTable());
  const int count = line.GetElementCount();
  for (int i = 0; i < count; ++i) built->Elements().Append(CreateElement(line.GetAt(i)), true);
  return built;
}

}  // namespace Model
