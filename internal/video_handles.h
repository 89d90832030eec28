// Handle conversions of the video stream configuration families.
#pragma once

#include "barrier.h"
#include "handles.h"
#include "vantrel/internal/encoder_options.h"
#include "vantrel/internal/profile_summary.h"
#include "vantrel/internal/video_options_query.h"
#include "vantrel/internal/video_stream_configuration.h"

namespace vantrel::ddk::internal {

VANTREL_DDK_HANDLE(VideoStreamConfiguration, VideoStreamConfigurationHandle)
VANTREL_DDK_HANDLE(VideoStreamConfigurations, VideoStreamConfigurationsHandle)
VANTREL_DDK_HANDLE(VideoStreamPresets, VideoStreamPresetsHandle)
VANTREL_DDK_HANDLE(VideoAnalyticsProfiles, VideoAnalyticsProfilesHandle)
VANTREL_DDK_HANDLE(EncoderOptions, EncoderOptionsHandle)
VANTREL_DDK_HANDLE(VideoOptionsQuery, VideoOptionsQueryHandle)

}  // namespace vantrel::ddk::internal
