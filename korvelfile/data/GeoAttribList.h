#pragma once

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItem.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/Streamable.h"

/// The attributes of one object: the `GeoAttrib` items of its list. Its row has no fields.
class KORVELFILE_EXPORT GeoAttribList : public DataItem<GeoAttribList>,
                                        public DataItemListObject,
                                        public virtual Streamable {
 public:
  GeoAttribList() = default;
  GeoAttribList(const GeoAttribList& other) = default;
  GeoAttribList& operator=(GeoAttribList other);
  ~GeoAttribList() override = default;

  int GetVersion() const override { return 1; }
  void Stream(DataStream& stream, int version) override;
};
