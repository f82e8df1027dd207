// The key functions of the interfaces: each class's table of virtual functions is made here.

#include "korvelfile/outside/services/ICoordinateFile.h"
#include "korvelfile/outside/services/IProgressIndicator.h"
#include "korvelfile/outside/services/IPxyPoint.h"
#include "korvelfile/outside/services/RegistryException.h"

namespace Korvel {

IPxyPoint::~IPxyPoint() = default;
ICoordinateLine::~ICoordinateLine() = default;
ICoordinateLineList::~ICoordinateLineList() = default;
ICoordinateFile::~ICoordinateFile() = default;
IProgressIndicator::~IProgressIndicator() = default;

}  // namespace Korvel

Registry::Exception::~Exception() = default;
