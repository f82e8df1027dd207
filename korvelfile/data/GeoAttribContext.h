#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItem.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/Streamable.h"

/// A context of attribute definitions; its `GeoAttribType`s are the items of its list.
class KORVELFILE_EXPORT GeoAttribContext : public DataItem<GeoAttribContext>,
                                           public DataItemListObject,
                                           public virtual Streamable {
 public:
  std::string Name;
  std::string Text2;  ///< carried for applications

  GeoAttribContext() = default;
  GeoAttribContext(const GeoAttribContext& other) = default;
  GeoAttribContext& operator=(GeoAttribContext other);
  ~GeoAttribContext() override = default;

  int GetVersion() const override;
  void Stream(DataStream& stream, int version) override;
};
