#include <chrono>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korvelfile/data/GeoAttrib.h"
#include "korvelfile/data/GeoAttribList.h"
#include "korvelfile/data/ScopedLock.h"
#include "korvelfile/data/TypedItemCursor.h"

namespace {

using testing::ElementsAre;

// Tells when it is deleted.
class Mortal : public DataItem<Mortal>, public DataItemListObject {
 public:
  Mortal(std::vector<std::string>& deaths, const std::string& name)
      : DataItem(name), deaths_(deaths) {}
  ~Mortal() override { deaths_.push_back(GetName()); }

 private:
  std::vector<std::string>& deaths_;
};

TEST(DataItemListObject, DeletingAndClearingDeleteButRemovingDoesNot) {
  DataItemListObject list;
  std::vector<std::string> deaths;
  auto removed = std::make_unique<Mortal>(deaths, "removed");
  list.InsertItem(removed.get(), -1);
  list.InsertItem(nullptr, -7);
  for (const char* name : {"d", "c", "b", "a"}) list.InsertItem(new Mortal(deaths, name), 1);
  EXPECT_EQ(list.RemoveItem(removed.get()), 0);
  EXPECT_EQ(list.RemoveItem(removed.get()), -1);
  EXPECT_EQ(list.DeleteItem(removed.get()), -1);
  EXPECT_EQ(list.DeleteItemByIndex(5), -1);
  EXPECT_EQ(list.DeleteItemByIndex(4), 0) << "a null pointer";
  EXPECT_EQ(list.DeleteItem(&list.at(1)), 0);
  list.erase(list.begin());
  EXPECT_THAT(deaths, ElementsAre("b", "a"));
  list = DataItemListObject();
  EXPECT_THAT(deaths, ElementsAre("b", "a", "c", "d"));
  EXPECT_THROW(list.at(0), std::out_of_range);
}

// What derives from the class walked counts too, whatever was seen before; the rest doesn't.
TEST(DataItemListObject, CursorFindsDerivedClasses) {
  DataItemListObject list;
  class Derived : public GeoAttrib {};
  for (int i = 0; i < 2; ++i) {
    list.InsertItem(new GeoAttribList, -1);
    list.InsertItem(nullptr, -1);
    list.InsertItem(new Derived, -1);
    list.InsertItem(new GeoAttrib, -1);
  }
  TypedItemCursor<GeoAttrib> cursor(list);
  GeoAttrib* item = nullptr;
  int count = 0;
  while (cursor.Next(item) == 0) ++count;
  EXPECT_EQ(count, 4);
}

TEST(DataItemListObject, ThreadWaitsUntilTheCursorLetsGo) {
  DataItemListObject list;
  for (int i = 0; i < 2; ++i) list.InsertItem(new GeoAttrib, -1);
  GeoAttrib* item = nullptr;
  auto cursor = std::make_unique<TypedItemCursor<GeoAttrib>>(list);
  cursor->Next(item);
  auto copy = std::make_unique<TypedItemCursor<GeoAttrib>>(*cursor);
  const auto waiter = std::async(
      std::launch::async, [&list] { const Korvel::scoped_lock<DataItemListObject> lock(list); });
  const auto waits = [&waiter] {
    return waiter.wait_for(std::chrono::milliseconds(20)) == std::future_status::timeout;
  };
  cursor->Next(item);
  EXPECT_TRUE(waits()) << "held from one item to the next";
  cursor.reset();
  EXPECT_TRUE(waits()) << "a copy holds the mutex too";
  copy->Next(item);
  copy->Next(item);
  waiter.wait();
}

TEST(DataItemListObject, ThreadsInsertDeleteAndWalk) {
  DataItemListObject list;
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&list] {
      for (int i = 0; i < 200; ++i) {
        auto* mine = new GeoAttrib;
        list.InsertItem(mine, i % 2 == 0 ? 0 : -1);
        TypedItemCursor<GeoAttrib> cursor(list);
        GeoAttrib* item = nullptr;
        while (cursor.Next(item) == 0) {
          if (item != mine || i % 4 == 0) continue;
          ASSERT_EQ(list.DeleteItem(item), 0) << "within the walk";
        }
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(list.GetNumberOfItems(), 4 * 200 / 4);
}

}  // namespace
