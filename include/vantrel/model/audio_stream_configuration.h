// One audio stream a device can deliver; the host's map holds them by name.
#ifndef VANTREL_MODEL_AUDIO_STREAM_CONFIGURATION_H
#define VANTREL_MODEL_AUDIO_STREAM_CONFIGURATION_H

#include <stdint.h>

#include <map>
#include <string>

#include "vantrel/api/export.h"

namespace vantrel {

class VANTREL_DDK_API AudioStreamConfiguration {
public:
    // The defaults of a newly added entry.
    AudioStreamConfiguration()
        : format(0), sampleSizeInBits(0), samplesPerSecond(0), framesPerKilosecond(0),
          bigEndian(true), vbr(false) {}
    virtual ~AudioStreamConfiguration();

    uint32_t format; // 0 is no format; other codes are agreed with the host
    uint16_t sampleSizeInBits;
    uint32_t samplesPerSecond;
    uint16_t framesPerKilosecond; // frames per 1000 seconds
    bool bigEndian;
    bool vbr; // variable bit rate
};

// Behind AudioStreamConfigurationsHandle: stream name to configuration.
typedef std::map<std::string, AudioStreamConfiguration> AudioStreamConfigurations;

} // namespace vantrel

#endif
