// Handle conversions of the video stream configuration families.
#pragma once

#include "barrier.h"
#include "handles.h"
#include "vantrel/internal/video_stream_configuration.h"

namespace vantrel::ddk::internal {

VANTREL_DDK_HANDLE(VideoStreamConfiguration, VideoStreamConfigurationHandle)
VANTREL_DDK_HANDLE(VideoStreamConfigurations, VideoStreamConfigurationsHandle)
VANTREL_DDK_HANDLE(VideoStreamPresets, VideoStreamPresetsHandle)

}  // namespace vantrel::ddk::internal
