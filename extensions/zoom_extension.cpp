// The zoom conversions between the host's hundredths and the plug-in's
// one-byte magnification. Every step is in the precision written here
// (single or double) and this file is built without floating-point
// contraction, so that the camera and the development machines agree to the
// last bit.
#include "vantrel/extensions/zoom_extension.h"

#include <cstdint>

#include "not_supported.h"

namespace vantrel::ddk {

namespace {

// F = (first / 100) * (second / 100) in double, rounded once to single.
// A failing factor query counts as F = 1.0; its record is released.
float scale_factor(IZoomExtension& zoom, const char* token) {
  unsigned int first = 0;
  unsigned int second = 0;
  if (DDKError* error = zoom.magnificationFactors(token, first, second)) {
    ddk_free_error(error);
    return 1.0f;
  }
  const double product = (static_cast<double>(first) / 100.0) * (static_cast<double>(second) / 100.0);
  return static_cast<float>(product);
}

// Truncation towards zero; values beyond the 32-bit range saturate (the
// plain conversion would be undefined there and differs between targets).
std::uint32_t truncate(double value) {
  if (!(value > 0.0)) return 0;
  if (value >= 4294967296.0) return 0xFFFFFFFFu;
  return static_cast<std::uint32_t>(value);
}

}  // namespace

IZoomExtension::IZoomExtension() = default;

IZoomExtension::~IZoomExtension() = default;

DDKError* IZoomExtension::getMagHundredthsX(const char* token, unsigned int& hundredthsX) {
  hundredthsX = 100;
  unsigned char magnification = 0;
  if (DDKError* error = getMagnification(token, magnification)) return error;
  const float factor = scale_factor(*this, token);
  if (magnification > 100) {
    hundredthsX = truncate(static_cast<double>(factor) * 100.0 + 10.0);
  } else if (magnification == 0) {
    hundredthsX = 100;
  } else {
    const float product = static_cast<float>(magnification) * factor;
    hundredthsX = truncate(static_cast<double>(product) + 0.5);
  }
  return nullptr;
}

DDKError* IZoomExtension::setMagHundredthsX(const char* token, const unsigned int& hundredthsX,
                                            const unsigned char& option) {
  float factor = scale_factor(*this, token);
  // A zero factor cannot be divided by: treated as an unusable factor.
  if (factor == 0.0f) factor = 1.0f;
  unsigned char magnification = 0;
  if (hundredthsX > 100) {
    const float quotient = static_cast<float>(hundredthsX) / factor;
    magnification = static_cast<unsigned char>(truncate(static_cast<double>(quotient) + 0.5) & 0xFFu);
  }
  return setMagnification(token, magnification, option);
}

DDKError* IZoomExtension::getMagnification(const char*, unsigned char& magnification) {
  magnification = 0;
  return internal::not_supported();
}

DDKError* IZoomExtension::setMagnification(const char*, const unsigned char&, const unsigned char&) {
  return internal::not_supported();
}

}  // namespace vantrel::ddk
