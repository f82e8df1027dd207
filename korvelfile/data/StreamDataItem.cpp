#include "korvelfile/data/StreamDataItem.h"

#include <cstddef>
#include <typeinfo>

#include "korvelfile/data/DataItemListObject.h"
#include "korvelfile/data/Streamable.h"
#include "korvelfile/outside/base/DataTextOutputStream.h"

namespace Data {

namespace {

constexpr std::size_t kDeepest = 1000;

std::string NameBy(const ClassToString::value_type& entry, DataItemListObject& item) {
  try {
    return entry(item);
  } catch (const std::bad_cast&) {
    return {};
  }
}

DataItemListObject& ListOf(DataItemInterface& item) {
  DataItemListObject* list = item.GetItemListObject();
  if (!list) {
    throw std::runtime_error(
        "Can not serialize if you don't implement DataItemInterface::GetItemListObject");
  }
  return *list;
}

}  // namespace

class StreamDataItem::Implementation {
 public:
  Implementation(std::ostream& out, int version, const ClassToString& names,
                 const std::string& prefix)
      : out_(out), version_(version), names_(names), prefix_(prefix) {}

  void WriteItem(DataItemListObject& item, std::size_t depth) {
    if (depth > kDeepest) throw std::runtime_error("Items are nested too deeply");
    WriteLine(depth, RowOf(item));
    if (item.empty()) return;
    WriteLine(depth, "begin");
    for (DataItemInterface& child : item) WriteItem(ListOf(child), depth + 1);
    WriteLine(depth, "end");
  }

 private:
  void WriteLine(std::size_t depth, const std::string& text) {
    out_ << prefix_ << std::string(depth, '\t') << text << "\r\n";
  }

  std::string ClassNameOf(DataItemListObject& item) const {
    for (const auto& entry : names_) {
      std::string name = NameBy(entry, item);
      if (!name.empty()) return name;
    }
    throw UnregisteredClass(typeid(item).name());
  }

  std::string RowOf(DataItemListObject& item) const {
    std::string row = ClassNameOf(item) + ' ';
    DataTextOutputStream fields(row);
    dynamic_cast<Streamable&>(item).Stream(fields, version_);
    return row;
  }

  std::ostream& out_;
  int version_;
  ClassToString names_;
  std::string prefix_;
};

StreamDataItem::StreamDataItem(std::ostream& out, int version, const ClassToString& names,
                               const std::string& prefix)
    : implementation_(std::make_shared<Implementation>(out, version, names, prefix)) {}

void StreamDataItem::WriteItem(DataItemListObject& item) { implementation_->WriteItem(item, 0); }

}  // namespace Data
