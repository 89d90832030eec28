// Handle conversions of the audio family.
#pragma once

#include "barrier.h"
#include "vantrel/api/handles.h"
#include "vantrel/model/audio_source.h"
#include "vantrel/model/audio_stream_configuration.h"

namespace vantrel::ddk::internal {

VANTREL_DDK_HANDLE(AudioStreamConfiguration, AudioStreamConfigurationHandle)
VANTREL_DDK_HANDLE(AudioStreamConfigurations, AudioStreamConfigurationsHandle)
VANTREL_DDK_HANDLE(AudioSource, AudioSourceHandle)

}  // namespace vantrel::ddk::internal
