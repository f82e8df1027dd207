#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/coordinates/CodeProxies.h"
#include "korvelfile/coordinates/SharedCodes.h"
#include "korvelfile/data/DataItem.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/FileVersions.h"
#include "korvelfile/data/Streamable.h"
#include "korvelfile/outside/base/Vector3d.h"

/// Kind of a point, for applications.
enum class PointDataItemType : int {
  Ordinary = 0,
  Radius = 1,  ///< its remark holds the radius of an arc
};

/// A point: name, coordinates in metres (x east, y north, z height; y stands before x in files),
/// and a code triple that equal points share.
///
/// An undefined coordinate is `kUndefined`. The child list holds at most the point's
/// `GeoAttribList`. The fields aren't guarded against other threads.
class KORVELFILE_EXPORT PointDataItem : public DataItem<PointDataItem>,
                                        public DataItemListObject,
                                        public Vector3d,
                                        public Streamable {
 public:
  PointDataItem() = default;
  PointDataItem(const Vector3d& position, const std::string& name, const std::string& pointCode,
                const std::string& specialCode, const std::string& remark);
  /// A point without a name, with a triple that others have already: needs no look-up at all.
  PointDataItem(const Vector3d& position, const detail::SharedCodes& codes);
  /// The link of a copy is null.
  PointDataItem(const PointDataItem& other);
  /// Takes everything but the link, which stays.
  PointDataItem& operator=(PointDataItem other);
  /// Replaces the coordinates and nothing else.
  PointDataItem& operator=(const Vector3d& position);
  ~PointDataItem() override = default;

  /// Exchanges codes and types, and nothing else.
  void Swap(PointDataItem& other);

  const std::string& GetPointCode() const { return codes_.Get().GetPointCode(); }
  const std::string& GetSpecialCode() const { return codes_.Get().GetSpecialCode(); }
  const std::string& GetRemark() const { return codes_.Get().GetRemark(); }

  /// Change one text, and through the proxy up to two more in the same statement.
  detail::PointCodeProxy SetPointCode(const std::string& text);
  /// Sets the type to `Radius` too if `text` starts with "R".
  detail::SpecialCodeProxy SetSpecialCode(const std::string& text);
  detail::RemarkProxy SetRemark(const std::string& text);

  /// See `detail::CodesAndRemark::GetRemarkAsFloat`.
  double GetRemarkAsFloat() const { return codes_.Get().GetRemarkAsFloat(); }

  /// Stores "%.*f" of `value` as the remark, cut at 12 characters.
  void SetRemarkAsFloat(double value, int decimals);

  /// Turns the first comma of the remark into a point.
  void MakeRemarkDecimal();

  /// The radius in metres that the remark holds under the special code "R", else 0.
  double GetRadius() const;

  /// The bearing in radians that the remark holds, in gon, under the special code "B".
  /// @return false, with `bearing` 0, under any other code
  bool GetBearing(double& bearing) const;

  /// The same bearing, or undefined.
  double GetBearing() const;

  /// The name up to the first `separator`; empty if there is none.
  std::string GetLineNo(char separator) const;

  /// Cuts the name down to what follows the first `separator`, if there is one.
  void RemoveLineNo(char separator);

  /// True if both names hold a "." and are equal, and not empty, before the first one.
  bool ConnectedTo(const std::string& otherName) const;

  PointDataItemType GetType() const { return type_; }
  void SetType(PointDataItemType type) { type_ = type; }

  /// An application's own pointer: null after construction and in copies.
  void* GetLink() const { return link_; }
  void SetLink(void* link) { link_ = link; }

  /// Writes the row of object text into `buffer`, with a terminator.
  /// @param buffer room for the indentation, twice the length of the four texts, and 120 bytes
  /// @return length of the row in bytes
  int SprintfStream(char* buffer, const char* indent) const;

  /// The version of the `.geo` format.
  int GetVersion() const override { return giMarlinGeoFileVersion; }

  /// The row name, y, x, z, point code, special code, remark; the same in all versions.
  void Stream(DataStream& stream, int version) override;

 private:
  PointDataItemType type_ = PointDataItemType::Ordinary;
  detail::SharedCodes codes_;
  void* link_ = nullptr;
};
