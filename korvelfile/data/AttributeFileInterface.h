#pragma once

#include "korvelfile/Export.h"
#include "korvelfile/data/DataCollectionInterface.h"

class GeoAttribContext;
class GeoAttribType;

/// A collector of attribute definitions. Names are compared without regard to case; a pointer given
/// stays owned by the collector.
class KORVELFILE_EXPORT AttributeFileInterface : public DataCollectionInterface {
 public:
  /// The first context of this name, or null.
  virtual GeoAttribContext* GetAttribContext(const char* name);

  /// The first type of this name in `context`, or null; null for a null context.
  virtual GeoAttribType* GetAttribType(GeoAttribContext* context, const char* name);

 private:
  void FreeCollector() override;
};
