// Allocation-failure injection for the test process: operator new and the C
// heap (malloc, calloc, realloc, strdup) fail on the k-th allocation after
// arm(), once or from then on.
#pragma once

#include <cstddef>
#include <functional>

namespace oom {

enum class Mode { Once, FromThenOn };

// Arms the injector: the k-th allocation from now (1-based) fails.
void arm(std::size_t k, Mode mode);
// Disarms it; returns how many allocations were attempted while armed.
std::size_t disarm();
// True when an injected failure happened since the last arm().
bool failed();

// Blocks allocated and not yet freed in the process (plain build only).
long live_blocks();

// False where only operator new can be made to fail (sanitizer builds).
bool c_heap_injection();

// Calls `call` with the k-th allocation failing, for k = 1, 2, ... until a run
// completes without reaching the k-th allocation. Each failing run must
// release all it allocated once `check` has run (checked in the plain build;
// LeakSanitizer covers the sanitized one). `check` runs after each
// failing run (with the injector disarmed) and `reset` restores the state
// before each run. Returns the number of allocations of a clean run.
std::size_t for_each_failure(Mode mode, const std::function<void()>& reset,
                             const std::function<void()>& call,
                             const std::function<void(std::size_t k)>& check);

}  // namespace oom
