#pragma once

#include <cstdint>
#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItem.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/FileVersions.h"
#include "korvelfile/data/Streamable.h"
#include "korvelfile/outside/base/Vector3d.h"

/// A named sequence of points, the `PointDataItem`s of its list, with a `GeoAttribList` if
/// attributes were read for it.
class KORVELFILE_EXPORT LineDataItem : public DataItem<LineDataItem>,
                                       public DataItemListObject,
                                       public Streamable {
 public:
  /// Any value but 0 marks a closed line. For applications to set.
  std::uint8_t LineType = 0;

  LineDataItem() = default;
  /// The link of a copy is null.
  LineDataItem(const LineDataItem& other);
  /// Takes everything but the link, which stays.
  LineDataItem& operator=(LineDataItem other);
  ~LineDataItem() override = default;

  std::wstring GetCode() const;
  void SetCode(const std::wstring& code);

  /// The code as it stands in files.
  const std::string& CodeText() const { return code_; }

  /// Appends a point.
  void AddPoint(const std::string& name, double x, double y, double z, const std::string& pointCode,
                const std::string& specialCode, const std::string& remark);
  void AddPoint(const std::string& name, const Vector3d& position, const std::string& pointCode,
                const std::string& specialCode, const std::string& remark);

  /// Appends two points with the same name and texts.
  void AddLine(const std::string& name, const Vector3d& from, const Vector3d& to,
               const std::string& pointCode, const std::string& specialCode,
               const std::string& remark);

  /// Appends two points, the first with the special code "R" and the radius in metres, to 16
  /// digits, as its remark.
  void AddArc(const std::string& name, const Vector3d& from, const Vector3d& to, double radius,
              const std::string& pointCode);

  /// An application's own pointer: null after construction and in copies.
  void* GetLink() const { return link_; }
  void SetLink(void* link) { link_ = link; }

  /// Writes the row of object text into `buffer`, with a terminator.
  /// @param buffer room for the indentation, twice the length of both texts, and 20 bytes
  /// @return length of the row in bytes
  int SprintfStream(char* buffer, const char* indent);

  /// The version of the `.geo` format.
  int GetVersion() const override { return giMarlinGeoFileVersion; }

  /// The row name, line type, code; the same in all versions.
  void Stream(DataStream& stream, int version) override;

 private:
  std::string code_;
  void* link_ = nullptr;
};
