// The device's audio input, created and initialised by the host.
#ifndef VANTREL_MODEL_AUDIO_SOURCE_H
#define VANTREL_MODEL_AUDIO_SOURCE_H

#include <stdint.h>

namespace vantrel {

struct AudioSource {
    uint32_t type; // 0 is no type; other codes are agreed with the host
    uint16_t sampleSizeInBits;
    uint32_t samplesPerSecond;
    uint16_t channels;
    uint16_t level; // 0 to 100
};

} // namespace vantrel

#endif
