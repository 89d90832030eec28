#include "vantrel/model/motion_detection_region.h"

#include <cstddef>
#include <cstring>
#include <functional>

namespace vantrel {

namespace {

constexpr unsigned kMaxSensitivity = 100;

unsigned block_count(unsigned x1, unsigned y1, unsigned x2, unsigned y2) {
  return (x2 - x1 + 1U) * (y2 - y1 + 1U);
}

unsigned byte_count(unsigned blocks) { return (blocks >> 3) + ((blocks & 7U) != 0 ? 1U : 0U); }

// A fresh copy of `size` bytes, or null for a null mask. Copying before the
// old buffer is released keeps a failed allocation from changing the region
// and keeps a source inside the old buffer readable.
unsigned char* duplicate(const unsigned char* data, unsigned size) {
  if (data == nullptr) return nullptr;
  auto* copy = new unsigned char[size];
  std::memmove(copy, data, size);
  return copy;
}

// True when `data` lies inside the region's own buffer but `size` bytes from
// there run past its end: reading them would overrun the buffer.
bool overruns(const unsigned char* own, unsigned ownSize, const unsigned char* data,
              unsigned size) {
  const std::less<const unsigned char*> before;
  if (own == nullptr || data == nullptr || before(data, own) || !before(data, own + ownSize)) {
    return false;
  }
  return static_cast<std::size_t>(data - own) + size > ownSize;
}

}  // namespace

MotionDetectionRegion::MotionDetectionRegion()
    : enabled_(true),
      sensitivity_(kMaxSensitivity),
      threshold_(1),
      y1_(0),
      x1_(0),
      y2_(0),
      x2_(0),
      mask_(nullptr) {}

MotionDetectionRegion::MotionDetectionRegion(const bool& enabled, const unsigned& sensitivity,
                                             const unsigned& threshold, const unsigned& x1,
                                             const unsigned& y1, const unsigned& x2,
                                             const unsigned& y2)
    : enabled_(enabled),
      sensitivity_(static_cast<unsigned char>(sensitivity)),
      threshold_(static_cast<unsigned short>(threshold)),
      y1_(0),
      x1_(0),
      y2_(0),
      x2_(0),
      mask_(nullptr) {
  setDimensions(x1, y1, x2, y2, nullptr, 0);
}

MotionDetectionRegion::MotionDetectionRegion(const MotionDetectionRegion& other)
    : enabled_(other.enabled_),
      sensitivity_(other.sensitivity_),
      threshold_(other.threshold_),
      y1_(0),
      x1_(0),
      y2_(0),
      x2_(0),
      mask_(nullptr) {
  *this = other;
}

MotionDetectionRegion& MotionDetectionRegion::operator=(const MotionDetectionRegion& other) {
  if (this == &other) return *this;
  unsigned char* fresh = duplicate(other.mask_, other.maskByteCount());
  enabled_ = other.enabled_;
  sensitivity_ = other.sensitivity_;
  threshold_ = other.threshold_;
  y1_ = other.y1_;
  x1_ = other.x1_;
  y2_ = other.y2_;
  x2_ = other.x2_;
  delete[] mask_;
  mask_ = fresh;
  return *this;
}

// Out of line so the vtable and type information live in the library.
MotionDetectionRegion::~MotionDetectionRegion() { delete[] mask_; }

bool MotionDetectionRegion::isEnabled() const { return enabled_; }

unsigned char MotionDetectionRegion::sensitivity() const { return sensitivity_; }

unsigned short MotionDetectionRegion::threshold() const { return threshold_; }

void MotionDetectionRegion::coordinates(unsigned& x1, unsigned& y1, unsigned& x2,
                                        unsigned& y2) const {
  x1 = x1_;
  y1 = y1_;
  x2 = x2_;
  y2 = y2_;
}

unsigned MotionDetectionRegion::macroBlockCount() const { return block_count(x1_, y1_, x2_, y2_); }

unsigned MotionDetectionRegion::maskByteCount() const { return byte_count(macroBlockCount()); }

unsigned MotionDetectionRegion::requiredMaskSize(const unsigned& x1, const unsigned& y1,
                                                 const unsigned& x2, const unsigned& y2) {
  return byte_count(block_count(x1, y1, x2, y2));
}

void MotionDetectionRegion::mask(const unsigned char*& data, unsigned& size) const {
  data = mask_;
  size = mask_ != nullptr ? maskByteCount() : 0U;
}

void MotionDetectionRegion::setEnable(const bool& enabled) { enabled_ = enabled; }

void MotionDetectionRegion::setSensitivity(const unsigned& sensitivity) {
  sensitivity_ = static_cast<unsigned char>(sensitivity > kMaxSensitivity ? kMaxSensitivity
                                                                          : sensitivity);
}

void MotionDetectionRegion::setThreshold(const unsigned& threshold) {
  const unsigned blocks = macroBlockCount();
  threshold_ = static_cast<unsigned short>(threshold < blocks ? threshold : blocks);
}

bool MotionDetectionRegion::setMask(const unsigned char* const& data, const unsigned& size) {
  if (data == mask_) return true;
  const unsigned bytes = maskByteCount();
  if (data != nullptr && size != bytes) return false;
  if (overruns(mask_, bytes, data, bytes)) return false;
  unsigned char* fresh = duplicate(data, bytes);
  delete[] mask_;
  mask_ = fresh;
  return true;
}

bool MotionDetectionRegion::setDimensions(const unsigned& x1, const unsigned& y1,
                                          const unsigned& x2, const unsigned& y2,
                                          const unsigned char* const& mask,
                                          const unsigned& size) {
  if (y1 > y2 || x1 > x2) return false;
  const unsigned bytes = requiredMaskSize(x1, y1, x2, y2);
  if (mask != nullptr && size != bytes) return false;
  const unsigned oldBytes = maskByteCount();
  // The region's own buffer describes the old rectangle; it is kept only when
  // it has exactly the new byte count, so it is never left too short.
  if (mask != nullptr && mask == mask_ && bytes != oldBytes) return false;
  if (overruns(mask_, oldBytes, mask, bytes)) return false;
  unsigned char* fresh = mask == mask_ ? mask_ : duplicate(mask, bytes);
  y1_ = y1;
  x1_ = x1;
  y2_ = y2;
  x2_ = x2;
  if (fresh != mask_) {
    delete[] mask_;
    mask_ = fresh;
  }
  return true;
}

}  // namespace vantrel
