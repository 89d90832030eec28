/* Audio stream configurations and the audio source, filled by a plug-in.
   The setters return an 8-bit status: 0, -1 for a null handle, -2 for a
   refused value; the value is tested before the handle. 16-bit fields keep
   the low 16 bits of the value. */
#ifndef VANTREL_API_AUDIO_H
#define VANTREL_API_AUDIO_H

#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Get or create the entry whose name is the text up to its first NUL, at most
   `length` bytes. Null for a null name, a zero length, a null map or on failure. */
VANTREL_DDK_API AudioStreamConfigurationHandle* ddk_add_audio_to_configurations(
    AudioStreamConfigurationsHandle* configurations, const char* name, unsigned int length);

/* Refuses a null pointer and the code 0. */
VANTREL_DDK_API signed char ddk_audio_set_format(AudioStreamConfigurationHandle* config, const unsigned int* format);
/* These refuse 0. */
VANTREL_DDK_API signed char ddk_audio_set_sample_size_in_bits(AudioStreamConfigurationHandle* config,
                                                              unsigned int bits);
VANTREL_DDK_API signed char ddk_audio_set_samples_per_second(AudioStreamConfigurationHandle* config,
                                                             unsigned int samples);
VANTREL_DDK_API signed char ddk_audio_set_frames_per_kilosecond(AudioStreamConfigurationHandle* config,
                                                                unsigned int frames);
/* Clear bigEndian / set vbr; there is no way back. */
VANTREL_DDK_API signed char ddk_audio_enable_little_endian(AudioStreamConfigurationHandle* config);
VANTREL_DDK_API signed char ddk_audio_enable_vbr(AudioStreamConfigurationHandle* config);

/* These refuse 0. */
VANTREL_DDK_API signed char ddk_audio_set_source_type(AudioSourceHandle* source, unsigned int type);
VANTREL_DDK_API signed char ddk_audio_set_source_sample_size_in_bits(AudioSourceHandle* source, unsigned int bits);
VANTREL_DDK_API signed char ddk_audio_set_source_samples_per_second(AudioSourceHandle* source,
                                                                    unsigned int samples);
VANTREL_DDK_API signed char ddk_audio_set_source_channels(AudioSourceHandle* source, unsigned int channels);
/* Refuses values above 100; 0 is accepted. */
VANTREL_DDK_API signed char ddk_audio_set_source_level(AudioSourceHandle* source, unsigned int level);

#ifdef __cplusplus
}
#endif

#endif
