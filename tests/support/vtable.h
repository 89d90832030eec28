// Slot positions of virtual members, read from the Itanium representation of
// pointers to member functions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace testing_support {

// Zero-based vtable index (counted from the address point, where the two
// destructors take indexes 0 and 1) of a pointer to a virtual member function,
// or -1 when the pointer does not designate a virtual function.
template <class PMF>
long vtable_index(PMF pmf) {
  static_assert(sizeof(PMF) == 2 * sizeof(void*), "Itanium member pointer expected");
  std::uintptr_t ptr;
  std::ptrdiff_t adj;
  std::memcpy(&ptr, &pmf, sizeof ptr);
  std::memcpy(&adj, reinterpret_cast<const char*>(&pmf) + sizeof ptr, sizeof adj);
#if defined(__arm__) || defined(__aarch64__)
  // ARM variant: the virtual flag is the low bit of the adjustment and the
  // pointer holds the plain byte offset.
  if ((adj & 1) == 0) return -1;
  return static_cast<long>(ptr / sizeof(void*));
#else
  // Generic variant: a virtual member is 1 + its byte offset.
  if ((ptr & 1) == 0) return -1;
  return static_cast<long>((ptr - 1) / sizeof(void*));
#endif
}

// The function stored at `index` of the object's vtable.
inline void* vtable_entry(const void* object, std::size_t index) {
  void* const* vtable;
  std::memcpy(&vtable, object, sizeof vtable);
  return vtable[index];
}

// Byte offset of a field inside a live object; offsetof is not defined for
// polymorphic records.
template <class Object, class Field>
std::ptrdiff_t offset_in(const Object& object, const Field& field) {
  return reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(&object);
}

}  // namespace testing_support
