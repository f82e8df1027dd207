#include "tools/korvel/alignments/TunnelOutline.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include <CLI/CLI.hpp>

#include "korvelfile/outside/model/LineFactory.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"

namespace {

TunFile Read(const std::string& path, korvel::LibraryMessages& messages) {
  korvel::RequireExtension(path, {".tun", ".geo", ".pxy"});
  korvel::RequireReadable(path);
  messages.Clear();
  TunFile file(std::make_shared<Model::LineFactory>());
  if (file.Open(path.c_str()) != 0)
    throw korvel::InputError(path + ": can't be read as a tunnel outline" +
                             messages.Explanation(path));
  if (file.GetNumNodes() == 0) throw korvel::InputError(path + ": holds no outline");
  return file;
}

double LengthOf(const TunElement& e) {
  const double chord = e.Start.GetDistance(e.End);
  if (e.Radius == 0.0) return chord;
  const double radius = std::fabs(e.Radius);
  return 2.0 * radius * std::asin(std::min(0.5 * chord / radius, 1.0));
}

}  // namespace

namespace korvel {

TunnelOutline::TunnelOutline(const std::string& path, LibraryMessages& messages)
    : file_(Read(path, messages)), arcs_{file_.GetStartArc()} {
  for (int i = 0; i < file_.GetNumNodes(); ++i) {
    TunElement element;
    file_.GetElement(i, element);
    elements_.push_back(element);
    arcs_.push_back(arcs_.back() + LengthOf(element));
  }
}

PlanLine TunnelOutline::Plan() const {
  PlanLine plan;
  for (std::size_t i = 0; i < elements_.size(); ++i) {
    const double radius = elements_[i].Radius;
    plan.elements.push_back({arcs_[i], arcs_[i + 1] - arcs_[i],
                             radius == 0.0 ? 0.0 : std::fabs(1.0 / radius),
                             radius == 0.0 ? kStraightColour : kArcColour,
                             radius == 0.0 ? std::string() : FigureText("R", radius)});
  }
  plan.range = {file_.GetStartArc(), file_.GetEndArc()};
  plan.axes.east.name = "side m";
  plan.axes.north.name = "height m";
  plan.placeAt = [this](double arc) -> std::optional<PlanPlace> {
    PlanPlace place{};
    if (!file_.GetDirAndPosFromArc(arc, &place.at, &place.direction)) return std::nullopt;
    return place;
  };
  return plan;
}

int TunnelOutline::ElementAt(double arc) const {
  const auto behind = std::upper_bound(arcs_.begin(), arcs_.end() - 1, arc);
  return std::max(1, static_cast<int>(behind - arcs_.begin()));
}

void AddTunnelPath(CLI::App& verb, std::string& path) {
  verb.add_option("TUNNEL", path, "outline, .tun .geo .pxy")->required()->type_name("");
}

}  // namespace korvel
