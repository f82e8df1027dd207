#pragma once

#include <cstdint>
#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItem.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/Streamable.h"

/// The definition of one attribute, in the order of its row.
///
/// The library reads the name and the token list; the rest it carries for applications.
class KORVELFILE_EXPORT GeoAttribType : public DataItem<GeoAttribType>,
                                        public DataItemListObject,
                                        public Streamable {
 public:
  std::string Name;
  std::string Text2;
  std::uint8_t Flag1 = 0;
  std::uint16_t Number1 = 0;
  std::string Text3;
  std::string Text4;
  std::string Text5;
  std::string TokenList;  ///< comma-separated
  std::uint8_t Flag2 = 0;
  std::uint8_t Flag3 = 0;  ///< this and the next three from version 1.02
  std::uint8_t Flag4 = 0;
  int Number2 = 0;
  std::uint8_t Flag5 = 0;

  GeoAttribType() = default;
  GeoAttribType(const GeoAttribType& other) = default;
  GeoAttribType& operator=(const GeoAttribType& other) = default;
  ~GeoAttribType() override = default;

  /// Entry `index` of the token list, from 0; empty if the list is shorter or `index` negative.
  std::string GetTokenByIndex(int index) const;

  int GetVersion() const override;
  void Stream(DataStream& stream, int version) override;
};
