// The replaceable allocation functions of the test binary. They allocate with
// malloc and free with free (so the sanitizers see matching pairs) and fail
// on demand inside a testing_support::NoMemory scope.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "support/allocation_failure.h"

namespace {
thread_local long allocations_left = -1;  // negative: no limit
}  // namespace

namespace testing_support {
NoMemory::NoMemory(long allowed) { allocations_left = allowed; }
NoMemory::~NoMemory() { allocations_left = -1; }
}  // namespace testing_support

void* operator new(std::size_t size) {
  if (allocations_left != 0) {
    if (allocations_left > 0) --allocations_left;
    if (void* block = std::malloc(size != 0 ? size : 1)) return block;
  }
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return ::operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return ::operator new(size);
  } catch (...) {
    return nullptr;
  }
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
  return ::operator new(size, tag);
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { std::free(block); }

namespace {

TEST(AllocationFailure, FailsOnlyInsideTheScope) {
  const std::string text(100, 'x');
  EXPECT_THROW(testing_support::without_memory([&] { return std::string(text); }), std::bad_alloc);
  EXPECT_EQ(std::string(text), text);
  EXPECT_EQ(testing_support::without_memory([] { return new (std::nothrow) char[64]; }), nullptr);
  const auto two_copies = [&] {
    std::string first(text);
    std::string second(text);
    return first.size() + second.size();
  };
  EXPECT_THROW(testing_support::without_memory(two_copies, 1), std::bad_alloc);
  EXPECT_EQ(testing_support::without_memory(two_copies, 2), 200u);
}

}  // namespace
