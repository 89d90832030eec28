#include "failing_allocator.h"
#include "no_memory.h"

#include <dlfcn.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>

#include <gtest/gtest.h>

namespace {

std::atomic<bool> armed{false};
std::size_t countdown = 0;
std::size_t attempts = 0;
oom::Mode mode = oom::Mode::Once;
bool injected = false;
// Blocks handed out and not yet released, over the whole process.
std::atomic<long> live{0};

// True when this allocation must fail.
bool should_fail() {
  if (!armed.load(std::memory_order_relaxed)) return false;
  ++attempts;
  if (countdown == 0) return mode == oom::Mode::FromThenOn;
  if (--countdown == 0) {
    injected = true;
    return true;
  }
  return false;
}

#ifndef OOM_OPERATOR_NEW_ONLY
using MallocFn = void* (*)(std::size_t);
using CallocFn = void* (*)(std::size_t, std::size_t);
using ReallocFn = void* (*)(void*, std::size_t);

// dlsym may itself allocate; it is served from this buffer meanwhile.
alignas(std::max_align_t) char bootstrap[4096];
std::size_t bootstrapUsed = 0;
bool resolving = false;

void* bootstrap_alloc(std::size_t size) {
  size = (size + alignof(std::max_align_t) - 1) & ~(alignof(std::max_align_t) - 1);
  if (bootstrapUsed + size > sizeof bootstrap) return nullptr;
  void* p = bootstrap + bootstrapUsed;
  bootstrapUsed += size;
  return p;
}
bool from_bootstrap(void* p) {
  return p >= static_cast<void*>(bootstrap) && p < static_cast<void*>(bootstrap + sizeof bootstrap);
}

template <class Fn>
Fn next(const char* name) {
  resolving = true;
  auto fn = reinterpret_cast<Fn>(dlsym(RTLD_NEXT, name));
  resolving = false;
  return fn;
}

MallocFn real_malloc() {
  static MallocFn fn = next<MallocFn>("malloc");
  return fn;
}
#endif

}  // namespace

// Under a sanitizer the C heap belongs to the sanitizer runtime, which
// allocates before any of this code could run: only operator new is replaced
// there, and the C heap is covered by the plain build under valgrind.
#ifndef OOM_OPERATOR_NEW_ONLY
extern "C" {

void* malloc(std::size_t size) {
  if (resolving) return bootstrap_alloc(size);
  if (should_fail()) return nullptr;
  void* p = real_malloc()(size);
  if (p != nullptr) ++live;
  return p;
}

void* calloc(std::size_t n, std::size_t size) {
  if (resolving) {
    void* p = bootstrap_alloc(n * size);
    if (p != nullptr) std::memset(p, 0, n * size);
    return p;
  }
  static CallocFn fn = next<CallocFn>("calloc");
  if (should_fail()) return nullptr;
  void* p = fn(n, size);
  if (p != nullptr) ++live;
  return p;
}

void* realloc(void* old, std::size_t size) {
  static ReallocFn fn = next<ReallocFn>("realloc");
  if (should_fail()) return nullptr;
  void* p = fn(old, size);
  if (old == nullptr && p != nullptr) ++live;
  return p;
}

void free(void* p) {
  if (p == nullptr || from_bootstrap(p)) return;
  static auto fn = next<void (*)(void*)>("free");
  --live;
  fn(p);
}

char* strdup(const char* text) {
  const std::size_t size = std::strlen(text) + 1;
  auto* copy = static_cast<char*>(malloc(size));
  if (copy != nullptr) std::memcpy(copy, text, size);
  return copy;
}

}  // extern "C"
#endif

void* operator new(std::size_t size) {
#ifdef OOM_OPERATOR_NEW_ONLY
  if (should_fail()) throw std::bad_alloc();
#endif
  if (void* p = malloc(size == 0 ? 1 : size)) return p;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return operator new(size);
  } catch (...) {
    return nullptr;
  }
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept { return operator new(size, tag); }
void operator delete(void* p) noexcept { free(p); }
void operator delete[](void* p) noexcept { free(p); }
void operator delete(void* p, std::size_t) noexcept { free(p); }
void operator delete[](void* p, std::size_t) noexcept { free(p); }

namespace oom {

void arm(std::size_t k, Mode m) {
  countdown = k;
  attempts = 0;
  mode = m;
  injected = false;
  armed.store(true);
}

std::size_t disarm() {
  armed.store(false);
  return attempts;
}

bool failed() { return injected; }

long live_blocks() { return live.load(); }

bool c_heap_injection() {
#ifdef OOM_OPERATOR_NEW_ONLY
  return false;
#else
  return true;
#endif
}

std::size_t for_each_failure(Mode m, const std::function<void()>& reset,
                             const std::function<void()>& call,
                             const std::function<void(std::size_t)>& check) {
  for (std::size_t k = 1;; ++k) {
    reset();
    const long before = live_blocks();
    arm(k, m);
    call();
    const std::size_t used = disarm();
    if (!injected) return used;
    check(k);
    // A failed call hands back everything it took (results released by check).
    if (c_heap_injection() && live_blocks() != before) {
      ADD_FAILURE() << "allocation " << k << " failing leaks " << live_blocks() - before << " block(s)";
    }
  }
}

}  // namespace oom

namespace testing_support {
NoMemory::NoMemory(long allowed) { oom::arm(static_cast<std::size_t>(allowed) + 1, oom::Mode::FromThenOn); }
NoMemory::~NoMemory() { oom::disarm(); }
}  // namespace testing_support
