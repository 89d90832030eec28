// What a device's video encoder offers; created by the host, filled by the plug-in.
#ifndef VANTREL_INTERNAL_ENCODER_OPTIONS_H
#define VANTREL_INTERNAL_ENCODER_OPTIONS_H

#include <stdint.h>

#include <functional>
#include <set>

#include "vantrel/api/encoding_type.h"
#include "vantrel/internal/resolution.h"

namespace vantrel {
namespace ddk {
namespace internal {

// low <= high always; thirdValue is the host's and is stored as passed.
struct EncoderRange {
    EncoderRange() : low(0), high(0), thirdValue(0) {}
    uint32_t low;
    uint32_t high;
    uint32_t thirdValue;
};

struct EncoderOptions {
    EncoderOptions()
        : reserved(0), hasGopRange(false), hasBitrateRange(false), hasDscpRange(false),
          hasSigning(false), signing(0) {}

    uint32_t reserved; // the host's; no library function touches it
    bool hasGopRange;
    bool hasBitrateRange;
    bool hasDscpRange;
    bool hasSigning;
    std::set<EncodingType> encodings;
    std::set<unsigned int, std::greater<unsigned int> > framerates;
    std::set<int> rateControls;
    std::set<int> gopStructures;
    std::set<int> videoProfiles;
    EncoderRange gopRange;
    EncoderRange bitrateRange;
    EncoderRange dscpRange;
    uint8_t signing; // the ddk_bool as passed; meaningful when hasSigning
    std::set<Resolution, std::greater<Resolution> > resolutions;
};

} // namespace internal
} // namespace ddk
} // namespace vantrel

#endif
