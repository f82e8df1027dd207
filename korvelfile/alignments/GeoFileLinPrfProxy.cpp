#include "korvelfile/alignments/GeoFileLinPrfProxy.h"

#include <utility>

#include "korvelfile/alignments/internal/GeoConverter.h"
#include "korvelfile/coordinates/PointDataItem.h"
#include "korvelfile/outside/base/CircleArc.h"
#include "korvelfile/outside/base/Text.h"

namespace File {

GeoFileLinPrfProxy::GeoFileLinPrfProxy(const std::wstring& fileName, UsePointsAs use, int lineIndex)
    : nodes_(std::make_shared<detail::GeoConverter>(fileName, use, lineIndex)) {}

GeoFileLinPrfProxy::~GeoFileLinPrfProxy() = default;

std::shared_ptr<GeoFileLinPrfProxy::GeoPrfProxy> GeoFileLinPrfProxy::GetProfileFileProxy() const {
  return std::shared_ptr<GeoPrfProxy>(new GeoPrfProxy(nodes_));
}

int GeoFileLinPrfProxy::GetElementCount() const { return nodes_->GetCount(); }

Model::Proxy::LineElement GeoFileLinPrfProxy::GetAt(int index) const {
  Model::Proxy::LineElement e;
  if (!nodes_->HasNode(index)) return e;
  e.Name = Widen(nodes_->GetPoint(index).NameText());
  e.Start = nodes_->GetPosition(index);
  e.Section = nodes_->GetChainage(index);
  if (!nodes_->HasNode(index + 1)) return e;
  CircleArc arc;
  if (nodes_->GetArc(index, arc)) {
    e.Bearing = arc.GetBearing();
    e.Length = arc.GetLength();
    e.Radius = e.EndRadius = arc.GetRadius();
  } else {
    e.Bearing = e.Start.GetDirection(nodes_->GetPosition(index + 1));
    e.Length = nodes_->GetChainage(index + 1) - e.Section;
  }
  return e;
}

GeoFileLinPrfProxy::GeoPrfProxy::GeoPrfProxy(std::shared_ptr<const detail::GeoConverter> nodes)
    : nodes_(std::move(nodes)) {}

GeoFileLinPrfProxy::GeoPrfProxy::~GeoPrfProxy() = default;

int GeoFileLinPrfProxy::GeoPrfProxy::GetElementCount() const { return nodes_->GetCount(); }

Model::Proxy::ProfileElement GeoFileLinPrfProxy::GeoPrfProxy::GetAt(int index) const {
  Model::Proxy::ProfileElement e;
  if (!nodes_->HasNode(index)) return e;
  const PointDataItem& point = nodes_->GetPoint(index);
  e.Name = Widen(point.NameText());
  e.Section = nodes_->GetChainage(index);
  e.Z = point.z;
  if (!nodes_->HasNode(index + 1)) return e;
  e.Length = nodes_->GetChainage(index + 1) - e.Section;
  e.Slope = (nodes_->GetPoint(index + 1).z - e.Z) / e.Length;
  return e;
}

}  // namespace File
