// Strings and string lists filled through handles.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "vantrel/ddk.h"

namespace {

StringHandle* handle(std::string& s) { return reinterpret_cast<StringHandle*>(&s); }
StringListHandle* handle(std::vector<std::string>& v) {
  return reinterpret_cast<StringListHandle*>(&v);
}

TEST(SetString, CopiesLengthBytesAndReplaces) {
  std::string s = "previous content";
  EXPECT_EQ(ddk_set_string(handle(s), "abcdef", 3), 0);
  EXPECT_EQ(s, "abc");
  EXPECT_EQ(ddk_set_string(handle(s), "xy", 2), 0);
  EXPECT_EQ(s, "xy");
}

TEST(SetString, KeepsInnerNulBytes) {
  std::string s;
  EXPECT_EQ(ddk_set_string(handle(s), "a\0b\0", 4), 0);
  EXPECT_EQ(s, std::string("a\0b\0", 4));
  EXPECT_STREQ(ddk_string_to_cstr(handle(s)), "a");
}

TEST(SetString, RefusedCallsLeaveStringAndReturnMinusOne) {
  struct Case {
    bool nullHandle;
    const char* text;
    unsigned length;
  } cases[] = {
      {false, nullptr, 3}, {false, "abc", 0}, {true, nullptr, 3},
      {true, "abc", 0},    {true, "abc", 3},
  };
  for (const auto& c : cases) {
    std::string s = "keep";
    EXPECT_EQ(ddk_set_string(c.nullHandle ? nullptr : handle(s), c.text, c.length), -1);
    EXPECT_EQ(s, "keep");
  }
}

TEST(StringToCstr, PointsIntoTheStringAndEmptyIsNotNull) {
  std::string s;
  ASSERT_NE(ddk_string_to_cstr(handle(s)), nullptr);
  EXPECT_STREQ(ddk_string_to_cstr(handle(s)), "");
  s = "value";
  EXPECT_EQ(ddk_string_to_cstr(handle(s)), s.c_str());
  EXPECT_EQ(ddk_string_to_cstr(nullptr), nullptr);
}

TEST(StringList, AppendAndPrependKeepOrder) {
  std::vector<std::string> list;
  EXPECT_EQ(ddk_append_string(handle(list), "a", 1), 0);
  EXPECT_EQ(ddk_append_string(handle(list), "bXX", 1), 0);
  EXPECT_EQ(ddk_prepend_string(handle(list), "c", 1), 0);
  EXPECT_EQ(list, (std::vector<std::string>{"c", "a", "b"}));
  EXPECT_EQ(ddk_get_string_list_size(handle(list)), 3u);
  EXPECT_STREQ(ddk_get_string_at(handle(list), 0), "c");
  EXPECT_STREQ(ddk_get_string_at(handle(list), 2), "b");
  EXPECT_EQ(ddk_get_string_at(handle(list), 1), list[1].c_str());
}

TEST(StringList, TextIsTestedBeforeTheHandle) {
  using Fn = int (*)(StringListHandle*, const char*, unsigned);
  for (Fn fn : {&ddk_append_string, &ddk_prepend_string}) {
    std::vector<std::string> list{"x"};
    EXPECT_EQ(fn(nullptr, nullptr, 1), -2);
    EXPECT_EQ(fn(nullptr, "a", 0), -2);
    EXPECT_EQ(fn(handle(list), nullptr, 1), -2);
    EXPECT_EQ(fn(handle(list), "a", 0), -2);
    EXPECT_EQ(fn(nullptr, "a", 1), -1);
    EXPECT_EQ(list, std::vector<std::string>{"x"});
  }
}

TEST(StringList, ElementsKeepInnerNulBytes) {
  std::vector<std::string> list;
  EXPECT_EQ(ddk_append_string(handle(list), "p\0q", 3), 0);
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].size(), 3u);
  EXPECT_STREQ(ddk_get_string_at(handle(list), 0), "p");
}

TEST(StringList, GettersFailSafely) {
  std::vector<std::string> list{"only"};
  EXPECT_EQ(ddk_get_string_list_size(nullptr), 0u);
  EXPECT_EQ(ddk_get_string_at(nullptr, 0), nullptr);
  EXPECT_EQ(ddk_get_string_at(handle(list), 1), nullptr);
  EXPECT_EQ(ddk_get_string_at(handle(list), 0xFFFFFFFFu), nullptr);
  std::vector<std::string> empty;
  EXPECT_EQ(ddk_get_string_list_size(handle(empty)), 0u);
  EXPECT_EQ(ddk_get_string_at(handle(empty), 0), nullptr);
  list.emplace_back();
  EXPECT_STREQ(ddk_get_string_at(handle(list), 1), "");
}

}  // namespace
