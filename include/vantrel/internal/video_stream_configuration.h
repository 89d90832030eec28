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
    VideoStreamConfiguration() {}
    explicit VideoStreamConfiguration(const std::string& token) : streamToken(token) {}

    std::string streamToken; // the key under which the record was added
    uint32_t bitrate = 0;
    uint32_t timeout = 900;
    EncodingType encoding = DDK_ENCODING_NONE;
    std::string descriptiveName;
    std::string multicastAddress; // empty: no multicast settings
    uint32_t multicastPort = 0;
    uint8_t multicastTtl = 0;
    uint32_t mtu = 0; // its setter never stores 0, but a new record starts at 0
    bool multicastFlag = false;
    uint32_t width = 0;
    uint32_t height = 0;
    uint32_t framerate = 0;
    uint32_t gop = 0;
    int32_t gopStructure = 0;
    int32_t profile = 0;
    int32_t imageProcessing = 0;
    bool signing = false;
    uint8_t dscp = 34;
    int32_t rateControl = 0;
    int32_t reserved = 0; // read and written by no operation
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
