#include <atomic>
#include <chrono>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/data/FileInfo.h"
#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/ScopedLock.h"
#include "korvelfile/data/TypedItemCursor.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

static_assert(std::random_access_iterator<DataItemListObject::iterator>);
static_assert(std::random_access_iterator<DataItemListObject::const_iterator>);
static_assert(std::random_access_iterator<DataItemListObject::reverse_iterator>);
static_assert(std::is_base_of_v<DataItemListObject::const_iterator, DataItemListObject::iterator>);

GeoAttrib* NewItem(const std::string& name) { return new GeoAttrib(name, ""); }

// Tells when it is deleted.
class Mortal : public DataItem<Mortal>, public DataItemListObject {
 public:
  explicit Mortal(std::vector<std::string>& deaths, const std::string& name = "")
      : DataItem(name), deaths_(deaths) {}
  Mortal(const Mortal&) = default;
  ~Mortal() override { deaths_.push_back(GetName()); }

 private:
  std::vector<std::string>& deaths_;
};

template <class List>
std::vector<std::string> NamesOf(List& list) {
  std::vector<std::string> names;
  for (auto& item : list) names.push_back(dynamic_cast<const GeoAttrib&>(item).Name);
  return names;
}

class DataItemListObjectTest : public testing::Test {
 protected:
  void Fill(const std::vector<std::string>& names) {
    for (const std::string& name : names) list_.InsertItem(NewItem(name), -1);
  }

  DataItemListObject list_;
};

TEST_F(DataItemListObjectTest, InsertItemTakesThePlaceAsked) {
  GeoAttrib* first = NewItem("b");
  EXPECT_EQ(list_.InsertItem(first, 0), first);
  list_.InsertItem(NewItem("a"), 0);
  list_.InsertItem(NewItem("d"), 2);
  list_.InsertItem(NewItem("e"), -7);
  list_.InsertItem(NewItem("c"), 2);
  EXPECT_THAT(NamesOf(list_), ElementsAre("a", "b", "c", "d", "e"));
  EXPECT_EQ(list_.GetItem(1), first);
  EXPECT_EQ(list_.GetNumberOfItems(), 5);
}

TEST_F(DataItemListObjectTest, RemovingGivesTheItemBackAndDeletingDoesNot) {
  std::vector<std::string> deaths;
  auto a = std::make_unique<Mortal>(deaths, "a");
  auto* b = new Mortal(deaths, "b");
  list_.InsertItem(a.get(), -1);
  list_.InsertItem(b, -1);
  list_.InsertItem(nullptr, -1);
  list_.InsertItem(new Mortal(deaths, "c"), -1);
  EXPECT_EQ(list_.RemoveItem(a.get()), 0);
  EXPECT_EQ(list_.RemoveItem(a.get()), -1);
  EXPECT_EQ(list_.DeleteItem(a.get()), -1);
  EXPECT_THAT(deaths, IsEmpty());
  EXPECT_EQ(list_.DeleteItem(b), 0);
  EXPECT_THAT(deaths, ElementsAre("b"));
  EXPECT_EQ(list_.DeleteItemByIndex(2), -1);
  EXPECT_EQ(list_.DeleteItemByIndex(0), 0) << "a null pointer";
  EXPECT_EQ(list_.DeleteItemByIndex(0), 0);
  EXPECT_THAT(deaths, ElementsAre("b", "c"));
  EXPECT_TRUE(list_.empty());
}

TEST_F(DataItemListObjectTest, EveryWayToEmptyAListDeletesInOrder) {
  using List = DataItemListObject;
  const struct {
    const char* what;
    void (*empty)(std::unique_ptr<List>&);
  } kCases[] = {
      {"ClearListObject", [](std::unique_ptr<List>& list) { list->ClearListObject(); }},
      {"clear", [](std::unique_ptr<List>& list) { list->clear(); }},
      {"erase", [](std::unique_ptr<List>& list) { list->erase(list->begin(), list->end()); }},
      {"assignment", [](std::unique_ptr<List>& list) { *list = List(); }},
      {"destructor", [](std::unique_ptr<List>& list) { list = std::make_unique<List>(); }},
  };
  for (const auto& c : kCases) {
    std::vector<std::string> deaths;
    auto list = std::make_unique<List>();
    for (const char* name : {"a", "b", "c"}) list->InsertItem(new Mortal(deaths, name), -1);
    c.empty(list);
    EXPECT_THAT(deaths, ElementsAre("a", "b", "c")) << c.what;
    EXPECT_EQ(list->size(), 0U) << c.what;
  }
}

TEST_F(DataItemListObjectTest, ContainerOperationsStoreCopies) {
  GeoAttrib item("x", "1");
  list_.push_back(item);
  item.Name = "y";
  list_.push_front(item);
  item.Name = "z";
  const auto inserted = list_.insert(list_.begin() + 1, item);
  EXPECT_EQ(inserted - list_.begin(), 1);
  list_.insert(list_.end(), 2, GeoAttrib("n", ""));
  EXPECT_THAT(NamesOf(list_), ElementsAre("y", "z", "x", "n", "n"));
  EXPECT_NE(&list_[3], &list_[4]);
  list_.resize(2, item);
  EXPECT_EQ(list_.size(), 5U) << "never shortens";
  list_.resize(7, item);
  EXPECT_THAT(NamesOf(list_), ElementsAre("y", "z", "x", "n", "n", "z", "z"));
  list_.push_back(list_[0]);
  EXPECT_THAT(NamesOf(list_).back(), "y") << "an item of its own";

  EXPECT_EQ(list_.erase(list_.begin() + 1) - list_.begin(), 1);
  const auto next = list_.erase(list_.begin() + 2, list_.begin() + 6);
  EXPECT_EQ(next - list_.begin(), 2);
  EXPECT_THAT(NamesOf(list_), ElementsAre("y", "x", "y"));
  list_.pop_front();
  list_.pop_back();
  EXPECT_THAT(NamesOf(list_), ElementsAre("x"));
  EXPECT_EQ(&list_.front(), &list_.back());
}

TEST_F(DataItemListObjectTest, AtChecksTheIndex) {
  Fill({"a"});
  const DataItemListObject& constant = list_;
  EXPECT_EQ(&list_.at(0), list_.GetItem(0));
  EXPECT_EQ(&constant.at(0), list_.GetItem(0));
  try {
    list_.at(1);
    FAIL();
  } catch (const std::out_of_range& error) {
    EXPECT_STREQ(error.what(), "invalid vector<T> subscript");
  }
  EXPECT_THROW(constant.at(1), std::out_of_range);
}

TEST_F(DataItemListObjectTest, CopiesAreDeepAndSwapExchangesItems) {
  auto* parent = new GeoAttribList;
  parent->SetName("list");
  parent->InsertItem(NewItem("child"), -1);
  list_.InsertItem(parent, -1);
  DataItemListObject copy(list_);
  auto& copied = dynamic_cast<GeoAttribList&>(copy[0]);
  EXPECT_EQ(copied.GetName(), "list");
  EXPECT_NE(&copied, parent);
  EXPECT_NE(&copied[0], &(*parent)[0]);
  EXPECT_THAT(NamesOf(copied), ElementsAre("child"));

  DataItemListObject other;
  other.InsertItem(NewItem("o"), -1);
  DataItemInterface* const item = other.GetItem(0);
  other.Swap(list_);
  EXPECT_EQ(list_.GetItem(0), item);
  EXPECT_EQ(other.GetItem(0), parent);
  list_ = other;
  EXPECT_NE(list_.GetItem(0), parent);
  EXPECT_EQ(list_.size(), 1U);
}

TEST_F(DataItemListObjectTest, IteratorsWalkBothWays) {
  Fill({"a", "b", "c", "d"});
  const DataItemListObject& constant = list_;
  EXPECT_THAT(NamesOf(constant), ElementsAre("a", "b", "c", "d"));
  std::vector<std::string> backwards;
  for (auto i = list_.rbegin(); i != list_.rend(); ++i) {
    backwards.push_back(dynamic_cast<GeoAttrib&>(*i).Name);
  }
  EXPECT_THAT(backwards, ElementsAre("d", "c", "b", "a"));

  DataItemListObject::iterator i = list_.begin();
  DataItemListObject::const_iterator c = i;
  EXPECT_EQ(&*i++, list_.GetItem(0));
  EXPECT_EQ(&*i, list_.GetItem(1));
  EXPECT_EQ(&*++i, list_.GetItem(2));
  EXPECT_EQ(&*i--, list_.GetItem(2));
  EXPECT_EQ(&*--i, list_.GetItem(0));
  EXPECT_EQ(&i[3], list_.GetItem(3));
  EXPECT_EQ(&*(2 + i), list_.GetItem(2));
  i += 3;
  EXPECT_EQ(&*(i - 2), list_.GetItem(1));
  i -= 1;
  EXPECT_EQ(i - c, 2);
  EXPECT_TRUE(c < i && i > c && c <= i && i >= c && c != i && c + 2 == i);
  i->SetName("named");
  EXPECT_EQ(c[2].GetName(), "named");
}

TEST_F(DataItemListObjectTest, ItemsCopyNameAndTimeStamp) {
  GeoAttrib item("Name", "Value");
  item.SetName("item");
  const std::unique_ptr<DataItemInterface> copy(item.CreateCopy());
  EXPECT_EQ(copy->GetName(), "item");
  EXPECT_EQ(copy->GetTimeStamp(), 0);
  EXPECT_EQ(copy->GetItemListObject(), dynamic_cast<DataItemListObject*>(copy.get()));
  item.SetName("other");
  EXPECT_EQ(copy->GetName(), "item");
}

TEST_F(DataItemListObjectTest, CursorPassesByOtherClasses) {
  list_.InsertItem(new FileInfo("1", ""), -1);
  list_.InsertItem(nullptr, -1);
  Fill({"a"});
  list_.InsertItem(new FileInfo("2", ""), -1);
  Fill({"b"});
  TypedItemCursor<GeoAttrib> cursor(list_);
  GeoAttrib* item = nullptr;
  ASSERT_EQ(cursor.Next(item), 0);
  EXPECT_EQ(item->Name, "a");
  ASSERT_EQ(cursor.Next(item), 0);
  EXPECT_EQ(item->Name, "b");
  EXPECT_EQ(cursor.Next(item), 1);
  EXPECT_EQ(item->Name, "b") << "left alone at the end";
  Fill({"c"});
  ASSERT_EQ(cursor.Next(item), 0) << "an item that came later";
  EXPECT_EQ(item->Name, "c");
  EXPECT_EQ(FindFirst<GeoAttribList>(list_), nullptr);
}

// What derives from the class walked counts too, whatever was seen before.
TEST_F(DataItemListObjectTest, CursorFindsDerivedClasses) {
  class Derived : public GeoAttrib {};
  for (int i = 0; i < 2; ++i) {
    list_.InsertItem(new GeoAttribList, -1);
    list_.InsertItem(new Derived, -1);
    list_.InsertItem(new GeoAttrib, -1);
  }
  TypedItemCursor<GeoAttrib> cursor(list_);
  GeoAttrib* item = nullptr;
  int count = 0;
  while (cursor.Next(item) == 0) ++count;
  EXPECT_EQ(count, 4);
}

// Another thread that takes the list's mutex as soon as it is free.
class Waiter {
 public:
  explicit Waiter(const DataItemListObject& list)
      : thread_([this, &list] {
          const Korvel::scoped_lock<DataItemListObject> lock(list);
          hasIt_ = true;
        }) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  bool StillWaits() const { return !hasIt_; }
  void Join() { thread_.join(); }

 private:
  std::atomic<bool> hasIt_{false};
  std::thread thread_;
};

TEST_F(DataItemListObjectTest, ThreadWaitsUntilTheCursorLetsGo) {
  Fill({"a", "b"});
  GeoAttrib* item = nullptr;
  {
    auto cursor = std::make_unique<TypedItemCursor<GeoAttrib>>(list_);
    cursor->Next(item);
    Waiter waiter(list_);
    EXPECT_TRUE(waiter.StillWaits());
    cursor->Next(item);
    EXPECT_TRUE(waiter.StillWaits()) << "held from one item to the next";
    cursor->Next(item);
    waiter.Join();
  }
  TypedItemCursor<GeoAttrib> first(list_);
  auto second = std::make_unique<TypedItemCursor<GeoAttrib>>(first);
  second->Next(item);
  auto handedOn = std::make_unique<TypedItemCursor<GeoAttrib>>(*second);
  second.reset();
  Waiter waiter(list_);
  EXPECT_TRUE(waiter.StillWaits()) << "a copy holds the mutex too";
  handedOn.reset();
  waiter.Join();
}

TEST_F(DataItemListObjectTest, ThreadsInsertDeleteAndWalk) {
  constexpr int kThreads = 4;
  constexpr int kRounds = 200;
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([this, t] {
      for (int i = 0; i < kRounds; ++i) {
        auto* mine = NewItem(std::to_string(t));
        list_.InsertItem(mine, i % 2 == 0 ? 0 : -1);
        TypedItemCursor<GeoAttrib> cursor(list_);
        GeoAttrib* item = nullptr;
        while (cursor.Next(item) == 0) {
          const bool isKept = item != mine || i % 4 == 0;
          ASSERT_TRUE(isKept || list_.DeleteItem(item) == 0) << "within the walk";
        }
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(list_.GetNumberOfItems(), kThreads * kRounds / 4);
}

}  // namespace
