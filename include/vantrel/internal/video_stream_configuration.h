// One video stream of a device, and the host's collections of them.
// Host and plug-in share these definitions: field order and widths are part
// of the kit's binary interface.
#ifndef VANTREL_INTERNAL_VIDEO_STREAM_CONFIGURATION_H
#define VANTREL_INTERNAL_VIDEO_STREAM_CONFIGURATION_H

#include <stdint.h>

#include <map>
#include <string>

#include "vantrel/api/encoding_type.h"
#include "vantrel/api/errors.h"
#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

namespace vantrel {
namespace ddk {
namespace internal {

struct VideoStreamConfiguration {
    VideoStreamConfiguration() { reset(); }
    explicit VideoStreamConfiguration(const std::string& token) : streamToken(token) { reset(); }

    std::string streamToken;
    uint32_t bitrate;
    uint32_t timeout;
    EncodingType encoding;
    std::string descriptiveName;
    std::string multicastAddress;
    uint32_t multicastPort;
    uint8_t multicastTtl;
    uint32_t mtu;
    bool multicastFlag;
    uint32_t width;
    uint32_t height;
    uint32_t framerate;
    uint32_t gop;
    int32_t gopStructure;
    int32_t profile;
    int32_t imageProcessing;
    bool signing;
    uint8_t dscp;
    int32_t rateControl;
    int32_t reserved; // read and written by no operation

private:
    void reset() {
        bitrate = 0;
        timeout = 900;
        encoding = DDK_ENCODING_NONE;
        multicastPort = 0;
        multicastTtl = 0;
        mtu = 0;
        multicastFlag = false;
        width = 0;
        height = 0;
        framerate = 0;
        gop = 0;
        gopStructure = 0;
        profile = 0;
        imageProcessing = 0;
        signing = false;
        dscp = 34;
        rateControl = 0;
        reserved = 0;
    }
};

// Behind VideoStreamConfigurationsHandle: stream token to record.
typedef std::map<std::string, VideoStreamConfiguration> VideoStreamConfigurations;
// Behind VideoStreamPresetsHandle: preset name to collection.
typedef std::map<std::string, VideoStreamConfigurations> VideoStreamPresets;

} // namespace internal
} // namespace ddk

// The library's own copy serves every plug-in.
extern template VANTREL_DDK_API ddk::internal::VideoStreamConfiguration&
from_handle<ddk::internal::VideoStreamConfiguration, VideoStreamConfigurationHandle*>(
    VideoStreamConfigurationHandle*);

} // namespace vantrel

#endif
