// Destructors of the interfaces stand here, so that each has one place for its type information:
// what one library throws or casts, another one recognises.

#include "korvelfile/outside/model/ILine.h"
#include "korvelfile/outside/model/LineException.h"
#include "korvelfile/outside/model/Proxies.h"

namespace Model {

ILineFileProxy::~ILineFileProxy() = default;
IProfileFileProxy::~IProfileFileProxy() = default;
ICamberFileProxy::~ICamberFileProxy() = default;
LineException::~LineException() = default;
IHorizontalElement::~IHorizontalElement() = default;
IHorizontalElementList::~IHorizontalElementList() = default;
ILineVisitor::~ILineVisitor() = default;
IHorizontalGeometryVisitor::~IHorizontalGeometryVisitor() = default;
IHorizontalElementVisitor::~IHorizontalElementVisitor() = default;
IHorizontalAlignment::~IHorizontalAlignment() = default;
ILine::~ILine() = default;
ILineFactory::~ILineFactory() = default;

}  // namespace Model
