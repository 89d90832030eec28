// The plug-in parameter list.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <vector>

#include "vantrel/ddk.h"

namespace {

void* value(std::uintptr_t v) { return reinterpret_cast<void*>(v); }

TEST(ParameterList, NewEntryHoldsExactlyTheArguments) {
  PluginEntry* entry = new_plugin(value(1), value(UINTPTR_MAX), nullptr);
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(entry->param1, value(1));
  EXPECT_EQ(entry->param2, value(UINTPTR_MAX));
  EXPECT_EQ(entry->param3, nullptr);
  EXPECT_EQ(entry->next, nullptr);
  std::free(entry);  // C heap: a C caller may free entries itself
}

TEST(ParameterList, InsertKeepsCallOrder) {
  int sentinel = 0;
  PluginParameters list{&sentinel, nullptr};
  for (std::uintptr_t i = 1; i <= 3; ++i) insert_plugin(&list, value(i), value(10 * i), value(100 * i));
  std::vector<std::uintptr_t> seen;
  const PluginEntry* last = nullptr;
  for (const PluginEntry* e = list.head; e != nullptr; e = e->next) {
    seen.push_back(reinterpret_cast<std::uintptr_t>(e->param1));
    EXPECT_EQ(e->param2, value(10 * seen.back()));
    EXPECT_EQ(e->param3, value(100 * seen.back()));
    last = e;
  }
  EXPECT_EQ(seen, (std::vector<std::uintptr_t>{1, 2, 3}));
  ASSERT_NE(last, nullptr);
  EXPECT_EQ(last->next, nullptr);
  EXPECT_EQ(list.reserved, &sentinel) << "first word is never touched";
  free_parameters(&list);
  EXPECT_EQ(list.head, nullptr);
  EXPECT_EQ(list.reserved, &sentinel);
}

TEST(ParameterList, NullAndEmptyHeadersAreIgnored) {
  insert_plugin(nullptr, value(1), value(2), value(3));
  free_parameters(nullptr);
  PluginParameters empty{nullptr, nullptr};
  free_parameters(&empty);
  EXPECT_EQ(empty.head, nullptr);
}

TEST(ParameterList, ListCanBeReusedAfterFree) {
  PluginParameters list{nullptr, nullptr};
  insert_plugin(&list, value(1), nullptr, nullptr);
  free_parameters(&list);
  insert_plugin(&list, value(2), nullptr, nullptr);
  ASSERT_NE(list.head, nullptr);
  EXPECT_EQ(list.head->param1, value(2));
  EXPECT_EQ(list.head->next, nullptr);
  free_parameters(&list);
}

}  // namespace
