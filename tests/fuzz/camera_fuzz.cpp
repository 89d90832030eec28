// Motion regions, preset and tour flags and the time zone under arbitrary
// call sequences. Each region is checked against its invariants after every
// call (corners ordered, mask exactly the byte count, threshold within the
// block count), refusals leave it as it was, and values read back.
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz_input.h"
#include "vantrel/ddk.h"

using vantrel::MotionDetectionRegion;
using vantrel::TimeZone;

namespace {

// The byte count of a mask for the corners, written independently.
std::uint32_t mask_bytes(std::uint32_t x1, std::uint32_t y1, std::uint32_t x2, std::uint32_t y2) {
  const std::uint32_t blocks = (x2 - x1 + 1u) * (y2 - y1 + 1u);
  return blocks / 8u + (blocks % 8u != 0 ? 1u : 0u);
}

struct Snapshot {
  bool enabled;
  unsigned sensitivity, threshold, x1, y1, x2, y2;
  std::vector<unsigned char> mask;
  bool hasMask;
};

Snapshot snap(const MotionDetectionRegion& r) {
  Snapshot s{};
  s.enabled = r.isEnabled();
  s.sensitivity = r.sensitivity();
  s.threshold = r.threshold();
  r.coordinates(s.x1, s.y1, s.x2, s.y2);
  const unsigned char* data = nullptr;
  unsigned size = 0;
  r.mask(data, size);
  s.hasMask = data != nullptr;
  if (data != nullptr) s.mask.assign(data, data + size);
  return s;
}

bool operator==(const Snapshot& a, const Snapshot& b) {
  return a.enabled == b.enabled && a.sensitivity == b.sensitivity && a.threshold == b.threshold &&
         a.x1 == b.x1 && a.y1 == b.y1 && a.x2 == b.x2 && a.y2 == b.y2 && a.hasMask == b.hasMask && a.mask == b.mask;
}

void check_invariants(const MotionDetectionRegion& r) {
  const Snapshot s = snap(r);
  FUZZ_CHECK(s.x1 <= s.x2 && s.y1 <= s.y2);
  FUZZ_CHECK(r.maskByteCount() == mask_bytes(s.x1, s.y1, s.x2, s.y2));
  FUZZ_CHECK(!s.hasMask || s.mask.size() == r.maskByteCount());
  FUZZ_CHECK(s.sensitivity <= 100);
}

// Corners kept small enough that masks stay cheap, with wrapping extremes now and then.
std::uint32_t corner(FuzzInput& in) { return in.flag() ? in.choice(24) : in.u32(); }

void region_call(FuzzInput& in, std::vector<MotionDetectionRegion>& list, bool null, const std::string& bytes) {
  auto* lh = reinterpret_cast<MotionDetectionRegionListHandle*>(null ? nullptr : &list);
  switch (in.choice(3)) {
    case 0: {
      if (list.size() >= 64) return;
      const std::size_t size = list.size();
      MotionDetectionRegionHandle* added = ddk_append_motion_region(lh);
      FUZZ_CHECK(list.size() == size + (null ? 0 : 1));
      FUZZ_CHECK(added == (null ? nullptr : reinterpret_cast<MotionDetectionRegionHandle*>(&list.back())));
      if (!null) FUZZ_CHECK(snap(list.back()) == snap(MotionDetectionRegion()));
      return;
    }
    case 1: {
      const unsigned index = in.flag() ? in.u32() : in.choice(static_cast<unsigned>(list.size()) + 2);
      MotionDetectionRegionHandle* at = ddk_get_motion_region_at(lh, index);
      FUZZ_CHECK(at == (null || index >= list.size() ? nullptr : reinterpret_cast<MotionDetectionRegionHandle*>(&list[index])));
      FUZZ_CHECK(ddk_get_motion_region_list_size(lh) == (null ? 0u : list.size()));
      return;
    }
    default:
      break;
  }
  MotionDetectionRegion standalone;
  MotionDetectionRegion* r = null ? nullptr : list.empty() || in.flag() ? &standalone : &list[in.choice(static_cast<unsigned>(list.size()))];
  auto* h = reinterpret_cast<MotionDetectionRegionHandle*>(r);
  const Snapshot before = r != nullptr ? snap(*r) : Snapshot{};
  Snapshot after = before;
  const std::uint32_t v = in.u32();
  int result = 0;
  int expected = r == nullptr ? -1 : 0;
  const std::uint32_t blocks = r != nullptr ? r->macroBlockCount() : 0;
  const unsigned op = in.choice(8);
  switch (op) {
    case 0: {
      const bool on = in.flag();
      result = on ? ddk_set_motion_region_enabled(h) : ddk_set_motion_region_disabled(h);
      after.enabled = on;
      break;
    }
    case 1:
      result = ddk_set_motion_region_threshold(h, v);
      if (r != nullptr) {
        expected = v > blocks ? -2 : 0;
        after.threshold = static_cast<std::uint16_t>(v > blocks ? blocks : v);
      }
      break;
    case 2:
      result = ddk_set_motion_region_sensitivity(h, v);
      if (r != nullptr) {
        expected = v > 100 ? -2 : 0;
        after.sensitivity = v > 100 ? 100 : v;
      }
      break;
    case 3: {
      // A mask from the input's bytes; its size may be right or wrong.
      const bool nullMask = in.choice(4) == 0;
      const unsigned size = in.flag() && r != nullptr ? r->maskByteCount() : in.choice(static_cast<unsigned>(bytes.size()) + 1);
      if (!nullMask && size > bytes.size()) return;  // the caller guarantees the bytes
      result = ddk_set_motion_region_mask(h, nullMask ? nullptr : reinterpret_cast<const unsigned char*>(bytes.data()), size);
      if (r != nullptr) {
        if (nullMask) {
          after.hasMask = false;
          after.mask.clear();
        } else if (size != r->maskByteCount()) {
          expected = -2;
        } else {
          after.hasMask = true;
          after.mask.assign(bytes.data(), bytes.data() + size);
        }
      }
      break;
    }
    case 4: {
      const std::uint32_t x1 = corner(in), y1 = corner(in), x2 = corner(in), y2 = corner(in);
      const bool ordered = x1 <= x2 && y1 <= y2;
      const std::uint32_t need = mask_bytes(x1, y1, x2, y2);
      const bool nullMask = in.choice(8) == 0;
      const bool rightSize = in.flag();
      const std::uint16_t size = static_cast<std::uint16_t>(rightSize ? need : in.choice(static_cast<unsigned>(bytes.size()) + 1));
      if (size > bytes.size() || (rightSize && need > bytes.size())) return;
      const auto* mask = reinterpret_cast<const unsigned char*>(bytes.data());
      result = ddk_set_motion_region_dimensions(h, x1, y1, x2, y2, nullMask ? nullptr : mask, size);
      if (r == nullptr || nullMask) {
        expected = -1;
      } else if (!ordered || size != need) {
        expected = -2;
      } else {
        after.x1 = x1, after.y1 = y1, after.x2 = x2, after.y2 = y2;
        after.hasMask = true;
        after.mask.assign(mask, mask + size);
      }
      break;
    }
    case 5: {
      const bool nullData = in.choice(6) == 0, nullSize = in.choice(6) == 0;
      const unsigned char* data = reinterpret_cast<const unsigned char*>(1);
      std::uint16_t size = 0xABCD;
      result = ddk_get_motion_region_mask(h, nullData ? nullptr : &data, nullSize ? nullptr : &size);
      if (nullData || nullSize || r == nullptr) {
        expected = -1;
        if (!nullData) FUZZ_CHECK(data == nullptr);
        if (!nullSize) FUZZ_CHECK(size == 0);
      } else {
        FUZZ_CHECK(size == before.mask.size());
        FUZZ_CHECK((data != nullptr) == before.hasMask);
        if (data != nullptr && size != 0) FUZZ_CHECK(std::memcmp(data, before.mask.data(), size) == 0);
      }
      break;
    }
    case 6: {
      unsigned c[4] = {7, 7, 7, 7};
      const unsigned which = in.choice(5);
      result = ddk_get_motion_region_coordinates(h, which == 0 ? nullptr : &c[0], which == 1 ? nullptr : &c[1],
                                                 which == 2 ? nullptr : &c[2], which == 3 ? nullptr : &c[3]);
      if (which < 4) expected = -1;
      if (expected == 0) FUZZ_CHECK(c[0] == before.x1 && c[1] == before.y1 && c[2] == before.x2 && c[3] == before.y2);
      else FUZZ_CHECK(c[0] == 7 && c[1] == 7 && c[2] == 7 && c[3] == 7);
      break;
    }
    default:
      FUZZ_CHECK(ddk_get_motion_region_enabled(h) == (r != nullptr && before.enabled ? 1 : 0));
      FUZZ_CHECK(ddk_get_motion_region_threshold(h) == (r != nullptr ? before.threshold : 0u));
      FUZZ_CHECK(ddk_get_motion_region_sensitivity(h) == (r != nullptr ? before.sensitivity : 0u));
      result = expected;  // the getters' own results are checked above
      break;
  }
  if (result != expected) std::fprintf(stderr, "region call %u: %d, expected %d\n", op, result, expected);
  FUZZ_CHECK(result == expected);
  if (r != nullptr) {
    FUZZ_CHECK(snap(*r) == after);
    check_invariants(*r);
    // Copies own their masks.
    const MotionDetectionRegion copy(*r);
    FUZZ_CHECK(snap(copy) == after);
  }
}

void flags_call(FuzzInput& in, std::vector<bool>& flags, bool null) {
  const bool tours = in.flag();
  auto* ph = reinterpret_cast<PresetVectorHandle*>(null ? nullptr : &flags);
  auto* th = reinterpret_cast<TourVectorHandle*>(null ? nullptr : &flags);
  const std::vector<bool> before = flags;
  if (in.choice(3) == 0) {
    // Sizes kept small, except the one that wraps to an empty vector.
    const unsigned n = in.flag() ? 0xFFFFFFFFu : in.choice(200);
    const int r = tours ? ddk_set_tour_vector_size(th, n) : ddk_set_preset_vector_size(ph, n);
    FUZZ_CHECK(r == (null ? -1 : 0));
    if (null) {
      FUZZ_CHECK(flags == before);
      return;
    }
    const std::size_t m = static_cast<std::uint32_t>(n + 1u);
    FUZZ_CHECK(flags.size() == m);
    for (std::size_t i = 0; i < m; ++i) FUZZ_CHECK(flags[i] == (i < before.size() && before[i]));
    return;
  }
  const unsigned index = in.flag() ? in.u32() : in.choice(static_cast<unsigned>(flags.size()) + 2);
  const bool on = in.flag();
  const int r = tours ? (on ? ddk_set_tour_enabled(th, index) : ddk_set_tour_disabled(th, index))
                      : (on ? ddk_set_preset_enabled(ph, index) : ddk_set_preset_disabled(ph, index));
  FUZZ_CHECK(r == (null ? -1 : index >= before.size() ? -2 : 0));
  std::vector<bool> after = before;
  if (r == 0) after[index] = on;
  FUZZ_CHECK(flags == after);
}

void zone_call(FuzzInput& in, TimeZone& zone, bool null, const std::string& bytes, bool nullText) {
  auto* h = reinterpret_cast<TimeZoneHandle*>(null ? nullptr : &zone);
  const TimeZone before = zone;
  const bool dst = in.flag();
  if (in.flag()) {
    const unsigned length = in.flag() ? static_cast<unsigned>(bytes.size()) : in.choice(static_cast<unsigned>(bytes.size()) + 1);
    const char* text = nullText ? nullptr : bytes.data();
    const int r = dst ? ddk_set_timezone_dstname(h, text, length) : ddk_set_timezone_name(h, text, length);
    FUZZ_CHECK(r == (null ? -1 : text == nullptr && length != 0 ? -2 : 0));
    std::string& field = dst ? zone.dstName : zone.name;
    FUZZ_CHECK(field == (r == 0 ? (text != nullptr ? std::string(text, length) : std::string())
                                : (dst ? before.dstName : before.name)));
    const char* read = dst ? ddk_get_timezone_dstname(h) : ddk_get_timezone_name(h);
    FUZZ_CHECK(read == (null ? nullptr : field.c_str()));
    return;
  }
  using Get = int (*)(TimeZoneHandle*);
  using Set = void (*)(TimeZoneHandle*, int);
  struct Number { Get get; Set set; int TimeZone::*field; };
  static const Number numbers[] = {
      {ddk_get_timezone_gmtoffset, ddk_set_timezone_gmtoffset, &TimeZone::gmtOffset},
      {ddk_get_timezone_dstoffset, ddk_set_timezone_dstoffset, &TimeZone::dstOffset},
      {ddk_get_timezone_dststart, ddk_set_timezone_dststart, &TimeZone::dstStart},
      {ddk_get_timezone_dstend, ddk_set_timezone_dstend, &TimeZone::dstEnd}};
  const Number& n = numbers[in.choice(4)];
  const int value = in.i32();
  n.set(h, value);
  FUZZ_CHECK(zone.*n.field == (null ? before.*n.field : value));
  FUZZ_CHECK(n.get(h) == (null ? 0 : value));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput in(data, size);
  std::vector<MotionDetectionRegion> regions;
  std::vector<bool> flags;
  TimeZone zone;
  while (!in.empty()) {
    const bool null = in.choice(8) == 0;
    const bool nullText = in.choice(8) == 0;
    const std::string bytes = in.bytes();
    switch (in.choice(3)) {
      case 0: region_call(in, regions, null, bytes); break;
      case 1: flags_call(in, flags, null); break;
      default: zone_call(in, zone, null, bytes, nullText); break;
    }
  }
  return 0;
}
