#include "tools/korvel/CoordinateFile.h"

#include "korvelfile/coordinates/PxyCoordinateFile.h"
#include "tools/korvel/FileFault.h"
#include "tools/korvel/InputError.h"
#include "tools/korvel/LibraryMessages.h"

namespace korvel {

bool IsCoordinateFile(const std::string& path) {
  const std::string extension = ExtensionOf(path);
  return extension == ".geo" || extension == ".pxy" || extension == ".llc";
}

void ReadCoordinateFile(const std::string& path, PxyCoordinateFile& file,
                        LibraryMessages& messages) {
  messages.Clear();
  file.ChooseFile(path.c_str());
  if (file.UseCollector() != 0)
    throw InputError(DescribeReadFault(path, file, "a coordinate file", messages));
}

void SaveCoordinateFile(const std::string& path, PxyCoordinateFile& file,
                        LibraryMessages& messages) {
  messages.Clear();
  file.ChooseFile(path.c_str());
  file.FlagDirty();
  const int result = file.SaveCollector();
  file.UnUseCollector();
  if (result != 0) throw InputError(path + ": can't be written" + messages.Explanation(path));
}

std::string FullName(const PointDataItem& point, const LineDataItem* line) {
  return line ? line->NameText() + '.' + point.NameText() : point.NameText();
}

}  // namespace korvel
