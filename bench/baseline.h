// Hand-written baselines: the same operations written directly on the same
// standard containers, kept out of line so the comparison is call for call.
#pragma once

#define BASELINE __attribute__((noinline))
