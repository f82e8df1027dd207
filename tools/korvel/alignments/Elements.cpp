#include "tools/korvel/alignments/Elements.h"

#include "korvelfile/outside/base/Undefined.h"

namespace korvel {

std::vector<TLin> ElementsOf(const LinFile& file) {
  std::vector<TLin> elements;
  for (std::size_t i = 0; i < file.GetTotalElements(); ++i) elements.push_back(*file.GetElement(i));
  return elements;
}

std::vector<TPrf> ElementsOf(const PrfFile& file) {
  int count = 0;
  file.GetTotalElements(count);
  std::vector<TPrf> elements;
  for (int i = 0; i < count; ++i) {
    String number;
    double section = 0.0, z = 0.0, slope = 0.0, radius = 0.0, length = 0.0, left = 0.0, right = 0.0;
    file.GetElement(i, number, section, z, slope, radius, length, left, right);
    TPrf element(number);
    element.SetSection(section);
    element.SetZ(z);
    element.SetSlope(slope);
    element.SetRadius(radius);
    element.SetLength(length);
    elements.push_back(element);
  }
  return elements;
}

std::vector<CamberPoint> ElementsOf(const SkvFile& file) {
  int count = 0;
  file.GetTotalElements(count);
  std::vector<CamberPoint> points;
  for (int i = 0; i < count; ++i) {
    String number;
    CamberPoint point;
    file.GetElement(i, number, point.chainage, point.slope1, point.slope2);
    point.number = number;
    points.push_back(point);
  }
  return points;
}

bool IsClothoid(const TLin& element) { return element.GetParameter() != 0.0; }

bool IsArc(const TLin& element) { return !IsClothoid(element) && element.GetRadius() != 0.0; }

std::string KindOf(const TLin& element) {
  if (!IsClothoid(element) && element.GetLength() == 0.0) return "end";
  if (IsArc(element)) return element.GetRadius() > 0.0 ? "arc right" : "arc left";
  if (!IsClothoid(element)) return "straight";
  if (element.GetRadius() * element.GetERadius() < 0.0) return "clothoid S";
  return element.GetRadius() + element.GetERadius() > 0.0 ? "clothoid right" : "clothoid left";
}

std::string KindOf(const TPrf& element) {
  if (element.GetLength() == 0.0) return "end";
  if (element.GetRadius() == 0.0) return "grade";
  return element.GetRadius() > 0.0 ? "sag" : "crest";
}

double FiniteRadius(double radius) { return radius == 0.0 ? kUndefined : radius; }

}  // namespace korvel
