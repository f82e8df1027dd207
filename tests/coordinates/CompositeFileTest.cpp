#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "korvelfile/coordinates/CompositeFile.h"

namespace {

using namespace FileFactoryBase;

struct NamedFile : FileBase {
  void WriteToFile(const std::wstring& path) const override { written = path; }
  std::wstring GetFilename() const override { return name; }
  void SetFilename(const std::wstring& newName) override { name = newName; }
  bool CanChangeFilename() const override { return true; }
  bool FilenameSpecified() const override { return !name.empty(); }
  void Accept(std::shared_ptr<IFileBaseVisitor>) override { FAIL(); }

  std::wstring name;
  mutable std::wstring written;
};

struct Keeper : IFileBaseVisitor {
  void VisitFile(std::shared_ptr<FileBase>) override { FAIL(); }
  void VisitComposite(std::shared_ptr<CompositeFile> file) override { composite = file; }

  std::shared_ptr<CompositeFile> composite;
};

TEST(CompositeFileTest, PassesForItsMainFile) {
  const auto main = std::make_shared<NamedFile>();
  const auto other = std::make_shared<NamedFile>();
  const auto composite = std::make_shared<CompositeFile>(main);
  composite->GetFileBaseCollection().push_back(other);
  FileBase& file = *composite;
  EXPECT_FALSE(file.FilenameSpecified());
  file.SetFilename(L"a");
  file.WriteToFile(L"b");
  EXPECT_TRUE(file.CanChangeFilename() && file.FilenameSpecified());
  EXPECT_EQ(file.GetFilename() + main->name + main->written, L"aab");
  EXPECT_EQ(other->name + other->written, L"");

  const auto keeper = std::make_shared<Keeper>();
  file.Accept(keeper);
  EXPECT_EQ(keeper->composite, composite);
  const CompositeFile copy(*composite);
  EXPECT_EQ(copy.GetFile(), main);
  EXPECT_EQ(copy.GetFileBaseCollection().at(0), other);
}

}  // namespace
