#pragma once

#include <string>

#include "korvelfile/Export.h"
#include "korvelfile/data/Streamable.h"

class FileInfoBase;

/// Version, type and infos that open an object text file.
class KORVELFILE_EXPORT FileHeaderBase : public virtual Streamable {
 protected:
  /// The info of exactly this name, or null.
  virtual const FileInfoBase* FindInfo(const std::string& name) const = 0;

 public:
  /// The version number of the file, major in the high 16 bits; 0 if it has no valid one.
  int GetVersion() const override { return version_; }
  bool IsValid() const { return version_ > 0; }

  std::string GetFileType() const { return fileType_; }
  void SetFileType(const std::string& fileType) { fileType_ = fileType; }

  /// Sets the version, and the infos "Application", "SerialNo", "Author" and "Company" to the
  /// identity that `_GHAL` gives.
  void SetFileVersion(int version);

  /// The value of an info, or an empty text if there is none. Names are compared exactly.
  std::string GetInfo(const std::string& name) const;

  /// Changes an info in its place, or appends a new one.
  virtual void SetInfo(const std::string& name, const std::string& value) = 0;

  std::string GetDescription() const;
  void SetDescription(const std::string& description);

  /// Exchanges version and type.
  void Swap(FileHeaderBase& other);

  /// The header row: magic with version, then the type. A row without the magic reads as version 0,
  /// with a system message.
  void Stream(DataStream& stream, int version) override;

 private:
  int version_ = 0;
  std::string fileType_;
};
