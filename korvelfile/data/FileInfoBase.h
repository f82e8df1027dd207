#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/Streamable.h"

/// One named text of a file header.
class KORVELFILE_EXPORT FileInfoBase : public virtual Streamable {
 public:
  FileInfoBase() = default;
  FileInfoBase(const std::string& name, const std::string& value);

  std::string GetName() const { return name_; }
  std::string GetValue() const { return value_; }
  void SetName(const std::string& name) { name_ = name; }
  void SetValue(const std::string& value) { value_ = value; }
  void Swap(FileInfoBase& other);

  /// 0: the row has had the same fields in all versions.
  int GetVersion() const override { return 0; }
  void Stream(DataStream& stream, int version) override;

 private:
  std::string name_;
  std::string value_;
};
