/* Video stream configuration collections (keyed by stream token) and presets
   (keyed by preset name). Keys are byte strings in byte-wise order. */
#ifndef VANTREL_API_VIDEO_COLLECTIONS_H
#define VANTREL_API_VIDEO_COLLECTIONS_H

#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Get or create the preset named by `length` bytes of text. Null for a null
   presets handle, a null text or a zero length, or on failure. */
VANTREL_DDK_API VideoStreamConfigurationsHandle* ddk_add_to_presets(VideoStreamPresetsHandle* presets,
                                                                    const char* text, unsigned int length);
/* Get or create the stream whose token is `length` bytes of text (a null text
   or zero length is the empty token). Null for a null handle or on failure. */
VANTREL_DDK_API VideoStreamConfigurationHandle* ddk_add_video_stream_to_configurations(
    VideoStreamConfigurationsHandle* configurations, const char* text, unsigned int length);
/* 0 for a null handle. */
VANTREL_DDK_API unsigned int ddk_get_video_stream_configurations_count(VideoStreamConfigurationsHandle* configurations);
/* The record at `index` in key order; null past the end or for a null handle. */
VANTREL_DDK_API VideoStreamConfigurationHandle* ddk_get_video_stream_configuration_at(
    VideoStreamConfigurationsHandle* configurations, unsigned int index);
/* The record whose key equals the NUL-terminated token; null if none. */
VANTREL_DDK_API VideoStreamConfigurationHandle* ddk_get_video_stream_configuration(
    VideoStreamConfigurationsHandle* configurations, const char* token);

#ifdef __cplusplus
}
#endif

#endif
