// Shared shapes of the allocation-failure cases: all-or-nothing calls on a
// container, and null handles whose failure value must not depend on memory.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <vector>

#include "failing_allocator.h"

namespace oom_cases {

inline const oom::Mode kModes[] = {oom::Mode::Once, oom::Mode::FromThenOn};

// A vector whose next append must grow it.
template <class Record>
std::vector<Record> full_vector(std::vector<Record> v) {
  v.shrink_to_fit();
  EXPECT_EQ(v.capacity(), v.size());
  return v;
}

// For each mode and each failure point: `reset` rebuilds the state, `call`
// returns true when it completed, and `unchanged` checks a failed run left
// everything as it was. The call must allocate, and complete without failures.
inline void expect_all_or_nothing(const char* what, const std::function<void()>& reset,
                                  const std::function<bool()>& call,
                                  const std::function<void()>& unchanged) {
  for (oom::Mode mode : kModes) {
    SCOPED_TRACE(testing::Message() << what << (mode == oom::Mode::Once ? ", once" : ", from then on"));
    bool completed = false;
    const std::size_t used = oom::for_each_failure(
        mode, reset, [&] { completed = call(); },
        // No trace is pushed here: the trace stack's own growth would count
        // as a leak of the failing run.
        [&](std::size_t) {
          if (!completed) unchanged();
        });
    EXPECT_GE(used, 1u) << what << ": must allocate";
    EXPECT_TRUE(completed) << what;
  }
}

// A call on null handles and the result it must give, whatever fails.
struct NullCase {
  const char* what;
  int expected;
  std::function<int()> call;
};

template <std::size_t N>
void expect_null_cases(const NullCase (&cases)[N]) {
  for (const NullCase& c : cases) {
    for (oom::Mode mode : kModes) {
      int result = 0;
      oom::for_each_failure(
          mode, [] {}, [&] { result = c.call(); },
          [&](std::size_t k) { EXPECT_EQ(result, c.expected) << c.what << ", allocation " << k << " failing"; });
      EXPECT_EQ(result, c.expected) << c.what;
    }
  }
}

}  // namespace oom_cases
