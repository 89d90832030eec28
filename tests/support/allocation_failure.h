// Allocation failure on demand: the test binary replaces the global
// operator new, which the library's own allocations reach as well.
#pragma once

#include <utility>

namespace testing_support {

// While an object of this type lives, operator new on this thread succeeds
// `allowed` more times and then throws std::bad_alloc.
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
