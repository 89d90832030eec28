// Allocation failure as a scope: every allocation after the first `allowed`
// fails (built on the injector of failing_allocator.h).
#pragma once

#include <utility>

namespace testing_support {

// While an object of this type lives, allocation succeeds `allowed` more
// times and then fails.
class NoMemory {
 public:
  explicit NoMemory(long allowed = 0);
  ~NoMemory();
  NoMemory(const NoMemory&) = delete;
  NoMemory& operator=(const NoMemory&) = delete;
};

// Runs `call` with allocation failing after `allowed` successes.
template <class Call>
auto without_memory(Call&& call, long allowed = 0) {
  NoMemory scope(allowed);
  return std::forward<Call>(call)();
}

}  // namespace testing_support
