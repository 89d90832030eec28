// Allocation failures in the frame's allocating functions: each gives its
// documented failure value and leaves the container exactly as it was.
#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "failing_allocator.h"
#include "oom_cases.h"
#include "vantrel/ddk.h"

namespace {

const oom::Mode kModes[] = {oom::Mode::Once, oom::Mode::FromThenOn};
// Longer than any small-string buffer, so copies allocate.
const std::string kLong(100, 'x');

StringHandle* handle(std::string& s) { return reinterpret_cast<StringHandle*>(&s); }
StringListHandle* handle(std::vector<std::string>& v) {
  return reinterpret_cast<StringListHandle*>(&v);
}

TEST(OutOfMemory, SetStringKeepsOldContent) {
  for (oom::Mode mode : kModes) {
    std::string s;
    int result = 0;
    const std::size_t used = oom::for_each_failure(
        mode, [&] { s = std::string(40, 'o'); },
        [&] { result = ddk_set_string(handle(s), kLong.data(), static_cast<unsigned>(kLong.size())); },
        [&](std::size_t k) {
          EXPECT_EQ(result, -1) << "k=" << k;
          EXPECT_EQ(s, std::string(40, 'o')) << "k=" << k;
        });
    EXPECT_GE(used, 1u);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(s, kLong);
  }
}

TEST(OutOfMemory, ListInsertionsLeaveListUnchanged) {
  using Fn = int (*)(StringListHandle*, const char*, unsigned);
  for (Fn fn : {&ddk_append_string, &ddk_prepend_string}) {
    for (oom::Mode mode : kModes) {
      std::vector<std::string> list;
      const std::vector<std::string> before{std::string(30, 'a'), std::string(30, 'b'), "c"};
      int result = 0;
      oom::for_each_failure(
          mode, [&] { list = before; list.shrink_to_fit(); },
          [&] { result = fn(handle(list), kLong.data(), static_cast<unsigned>(kLong.size())); },
          [&](std::size_t k) {
            EXPECT_EQ(result, -1) << "k=" << k;
            EXPECT_EQ(list, before) << "k=" << k;
          });
      EXPECT_EQ(result, 0);
      EXPECT_EQ(list.size(), 4u);
    }
  }
}

TEST(OutOfMemory, NewErrorGivesNullOrRecordWithNullMessage) {
  if (!oom::c_heap_injection()) GTEST_SKIP() << "C heap failures are injected in the plain build";
  for (oom::Mode mode : kModes) {
    DDKError* error = nullptr;
    const int code = 5;
    oom::for_each_failure(
        mode, [&] { error = nullptr; }, [&] { error = ddk_new_error("message", &code); },
        [&](std::size_t k) {
          if (k == 1) {
            EXPECT_EQ(error, nullptr);  // the record itself
          } else {
            ASSERT_NE(error, nullptr);  // the text copy failed: record without text
            EXPECT_EQ(error->message, nullptr);
            EXPECT_EQ(error->code, 5);
          }
          ddk_free_error(error);
        });
    ASSERT_NE(error, nullptr);
    EXPECT_STREQ(error->message, "message");
    ddk_free_error(error);
  }
}

TEST(OutOfMemory, ParameterListAddsNothingWhenAnEntryCannotBeMade) {
  if (!oom::c_heap_injection()) GTEST_SKIP() << "C heap failures are injected in the plain build";
  for (oom::Mode mode : kModes) {
    PluginParameters list{nullptr, nullptr};
    int a = 0;
    oom::for_each_failure(
        mode, [&] { free_parameters(&list); insert_plugin(&list, &a, nullptr, nullptr); },
        [&] { insert_plugin(&list, nullptr, &a, nullptr); },
        [&](std::size_t) {
          ASSERT_NE(list.head, nullptr);
          EXPECT_EQ(list.head->param1, &a);
          EXPECT_EQ(list.head->next, nullptr);
        });
    ASSERT_NE(list.head, nullptr);
    ASSERT_NE(list.head->next, nullptr);
    EXPECT_EQ(list.head->next->param2, &a);
    free_parameters(&list);
    oom::arm(1, mode);
    PluginEntry* entry = new_plugin(nullptr, nullptr, nullptr);
    oom::disarm();
    EXPECT_EQ(entry, nullptr);
  }
}

struct ThrowingPlugin : vantrel::ddk::IPlugin {
  DDKError* doInit() override { throw std::runtime_error("the sensor did not answer"); }
};

TEST(OutOfMemory, InitNeverStartsWhenTheHookThrows) {
  for (oom::Mode mode : kModes) {
    bool initialized = true;
    DDKError* error = nullptr;
    oom::for_each_failure(
        mode, [&] { error = nullptr; },
        [&] {
          ThrowingPlugin plugin;
          error = plugin.init(nullptr);
          initialized = plugin.initialized;
        },
        [&](std::size_t k) {
          // Without memory for the record, init reports null although the
          // plug-in did not start; a record without its text is still a failure.
          EXPECT_FALSE(initialized) << "k=" << k;
          // When the hook's own exception could not be built, what it throws
          // instead (std::bad_alloc) is reported; the runtime may also fall
          // back to its emergency pool for the exception object.
          if (error != nullptr) {
            EXPECT_EQ(error->code, 0);
            if (error->message != nullptr) {
              const std::string text = error->message;
              EXPECT_TRUE(text == "the sensor did not answer" || text == std::bad_alloc().what()) << text;
            }
          }
          ddk_free_error(error);
        });
    ASSERT_NE(error, nullptr);
    EXPECT_STREQ(error->message, "the sensor did not answer");
    ddk_free_error(error);
  }
}

// Null handles give their own failure value whatever allocation fails.
TEST(OutOfMemory, NullHandlesKeepTheirFailureValue) {
  const oom_cases::NullCase cases[] = {
      {"set string", -1, [] { return ddk_set_string(nullptr, kLong.data(), 50); }},
      {"append string", -1, [] { return ddk_append_string(nullptr, kLong.data(), 50); }},
      {"prepend string", -1, [] { return ddk_prepend_string(nullptr, kLong.data(), 50); }},
      {"string at", 0, [] { return ddk_get_string_at(nullptr, 3) == nullptr ? 0 : 1; }},
  };
  oom_cases::expect_null_cases(cases);
}

}  // namespace
