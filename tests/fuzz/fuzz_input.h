// Decodes a fuzzer's bytes into call arguments: choices, integers with a bias
// towards the extremes, and texts that may be null or carry NUL bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstdio>
#include <cstring>
#include <string>

class FuzzInput {
public:
  FuzzInput(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  bool empty() const { return pos_ >= size_; }

  std::uint8_t byte() { return pos_ < size_ ? data_[pos_++] : 0; }

  // A value in [0, n).
  unsigned choice(unsigned n) { return n == 0 ? 0 : byte() % n; }

  bool flag() { return (byte() & 1) != 0; }

  std::uint32_t u32() {
    switch (byte() % 8) {
      case 0: return 0;
      case 1: return 0xFFFFFFFFu;
      case 2: return 0x7FFFFFFFu;
      case 3: return 0x80000000u;
      case 4: return 1;
      default: {
        std::uint32_t v = 0;
        for (int i = 0; i < 4; ++i) v = (v << 8) | byte();
        return v;
      }
    }
  }

  std::int32_t i32() { return static_cast<std::int32_t>(u32()); }
  std::uint16_t u16() { return static_cast<std::uint16_t>(u32()); }

  // Bytes for a text argument; `length` may exceed the bytes only when the
  // caller asks for a count of its own (never read past the owned buffer).
  std::string bytes(std::size_t max = 64) {
    const std::size_t n = choice(static_cast<unsigned>(max + 1));
    std::string s;
    for (std::size_t i = 0; i < n && !empty(); ++i) s.push_back(static_cast<char>(byte()));
    return s;
  }

private:
  const std::uint8_t* data_;
  std::size_t size_;
  std::size_t pos_ = 0;
};

// Invariant failures abort, so the fuzzer reports them as crashes.
#define FUZZ_CHECK(cond)                                                        \
  do {                                                                          \
    if (!(cond)) {                                                              \
      std::fprintf(stderr, "%s:%d: invariant failed: %s\n", __FILE__, __LINE__, #cond); \
      std::abort();                                                             \
    }                                                                           \
  } while (0)
