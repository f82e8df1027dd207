#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItem.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/FileHeaderBase.h"
#include "korvelfile/data/FileInfo.h"

/// The header of an object text file; its infos are the `FileInfo` items of its list.
class KORVELFILE_EXPORT FileHeader : public DataItem<FileHeader>,
                                     public DataItemListObject,
                                     public FileHeaderBase {
 public:
  FileHeader() = default;
  /// A header of a new file: its type and version, and an empty "Description".
  FileHeader(const std::string& fileType, int version);
  FileHeader(const FileHeader& other) = default;
  FileHeader& operator=(FileHeader other);
  ~FileHeader() override = default;

  /// The first info of exactly this name, or null.
  const FileInfo* FindInfo(const std::string& name) const override;

  using FileHeaderBase::GetInfo;
  /// True, with the info's value, if there is one; else false with `value` unchanged.
  bool GetInfo(const std::string& name, std::string& value) const;

  void SetInfo(const std::string& name, const std::string& value) override;
};
