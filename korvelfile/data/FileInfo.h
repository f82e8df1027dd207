#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/DataItem.h"
#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/FileInfoBase.h"

/// A header info as an item of its `FileHeader`'s list.
class KORVELFILE_EXPORT FileInfo : public DataItem<FileInfo>,
                                   public DataItemListObject,
                                   public FileInfoBase {
 public:
  using FileInfoBase::GetName;
  using FileInfoBase::SetName;

  FileInfo() = default;
  FileInfo(const std::string& name, const std::string& value);
  FileInfo(const FileInfo& other) = default;
  FileInfo& operator=(FileInfo other);
  ~FileInfo() override = default;
};
