#pragma once

#include <vector>

#include "korvelfile/outside/model/Proxies.h"

/// A road of straights, clothoids and arcs, right and left, each element 125 m long on average,
/// every other dozen mirrored so that it doesn't cross itself.
class Road : public Model::ILineFileProxy {
 public:
  /// Of so many elements.
  explicit Road(int count);

  int GetElementCount() const override;
  Model::Proxy::LineElement GetAt(int index) const override;

 private:
  std::vector<Model::Proxy::LineElement> elements_;
};
