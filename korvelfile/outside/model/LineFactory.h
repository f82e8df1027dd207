#pragma once

#include <memory>

#include "korvelfile/Export.h"
#include "korvelfile/outside/model/ILine.h"
#include "korvelfile/outside/model/IRoadLine.h"
#include "korvelfile/outside/model/Proxies.h"

namespace Model {

/// Makes lines of our own: straights, circular arcs and clothoids.
class KORVELFILE_EXPORT LineFactory : public ILineFactory {
 public:
  ~LineFactory() override;

  /// A new `IRoadLine` without elements.
  std::shared_ptr<ILine> CreateLine() override;
};

/// An element of a record, to be appended to a line of our own. It begins at its own chainage.
///
/// It is a clothoid if its parameter isn't 0, else an arc if its radius isn't 0, else a straight,
/// and goes from its own start, in its own direction, over its own length. The end radius of an arc
/// is of no account.
/// @throws LineException for numbers that aren't finite, a negative length, an arc of a turn or
///   more, a clothoid of equal radii
KORVELFILE_EXPORT std::shared_ptr<IHorizontalElement> CreateElement(
    const Proxy::LineElement& element);

/// Builds a line of all elements of `line`, with heights and crossfalls if given.
///
/// The proxies are read here and not kept. Elements ascend in chainage, while records of profile
/// and crossfall may come in any order.
/// @throws LineException for an element that `CreateElement` refuses or that begins before the one
///   before it, and for a height or crossfall whose chainage isn't finite
KORVELFILE_EXPORT std::shared_ptr<IRoadLine> BuildLine(const ILineFileProxy& line,
                                                       const IProfileFileProxy* profile = nullptr,
                                                       const ICamberFileProxy* camber = nullptr);

}  // namespace Model
