/* Fields of one video stream configuration, read and written through its handle.
   Every function returns -1 (or its stated fall-back) for a null handle. */
#ifndef VANTREL_API_VIDEO_CONFIGURATION_H
#define VANTREL_API_VIDEO_CONFIGURATION_H

#include "vantrel/api/encoding_type.h"
#include "vantrel/api/errors.h"
#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

#ifdef __cplusplus
extern "C" {
#endif

/* GOP length, GOP structure and rate control read as 0 (status 0) unless the
   encoding is 1 or 2; the profile reads as 0 with -2 then. */
VANTREL_DDK_API int ddk_video_get_rate_control(VideoStreamConfigurationHandle* config, int* rateControl);
VANTREL_DDK_API int ddk_video_set_rate_control(VideoStreamConfigurationHandle* config, int rateControl);
VANTREL_DDK_API int ddk_video_get_dscp(VideoStreamConfigurationHandle* config, unsigned char* dscp);
/* -2 for a value above 63, tested before the handle. */
VANTREL_DDK_API int ddk_video_set_dscp(VideoStreamConfigurationHandle* config, unsigned char dscp);
VANTREL_DDK_API int ddk_video_set_signing_disabled(VideoStreamConfigurationHandle* config);
VANTREL_DDK_API int ddk_video_set_signing_enabled(VideoStreamConfigurationHandle* config);
VANTREL_DDK_API int ddk_video_get_image_processing(VideoStreamConfigurationHandle* config, int* imageProcessing);
VANTREL_DDK_API int ddk_video_set_image_processing(VideoStreamConfigurationHandle* config, int imageProcessing);
VANTREL_DDK_API int ddk_video_get_profile(VideoStreamConfigurationHandle* config, int* profile);
/* Outside encodings 1 and 2 stores 0 instead and still returns 0. */
VANTREL_DDK_API int ddk_video_set_profile(VideoStreamConfigurationHandle* config, int profile);
VANTREL_DDK_API int ddk_video_get_gop_structure(VideoStreamConfigurationHandle* config, int* gopStructure);
VANTREL_DDK_API int ddk_video_set_gop_structure(VideoStreamConfigurationHandle* config, int gopStructure);
VANTREL_DDK_API int ddk_video_get_gop(VideoStreamConfigurationHandle* config, unsigned int* gop);
/* -2 for 0 (after the handle test). */
VANTREL_DDK_API int ddk_video_set_gop(VideoStreamConfigurationHandle* config, unsigned int gop);
/* -2 when no frame rate is set (nothing written). */
VANTREL_DDK_API int ddk_video_get_framerate(VideoStreamConfigurationHandle* config, unsigned int* framerate);
VANTREL_DDK_API int ddk_video_set_framerate(VideoStreamConfigurationHandle* config, unsigned int framerate);
/* -2 when either dimension is 0 (nothing written); null out-parameters are skipped. */
VANTREL_DDK_API int ddk_video_get_resolution(VideoStreamConfigurationHandle* config, unsigned int* width,
                                             unsigned int* height);
/* -2 for a zero dimension, tested before the handle. */
VANTREL_DDK_API int ddk_video_set_resolution(VideoStreamConfigurationHandle* config, unsigned int width,
                                             unsigned int height);
/* Always writes the encoding; -2 when it is 0. */
VANTREL_DDK_API int ddk_video_get_encoding(VideoStreamConfigurationHandle* config, EncodingType* encoding);
/* -2 for 0, tested before the handle. */
VANTREL_DDK_API int ddk_video_set_encoding(VideoStreamConfigurationHandle* config, EncodingType encoding);
/* The record's own name string; never null for a valid handle. */
VANTREL_DDK_API StringHandle* ddk_video_get_descriptive_name(VideoStreamConfigurationHandle* config);
/* 900 for a null handle. */
VANTREL_DDK_API unsigned int ddk_video_get_timeout(VideoStreamConfigurationHandle* config);
/* 0 stores 900. */
VANTREL_DDK_API void ddk_video_set_timeout(VideoStreamConfigurationHandle* config, unsigned int timeout);
/* 1500 for a null handle. */
VANTREL_DDK_API unsigned int ddk_video_get_mtu(VideoStreamConfigurationHandle* config);
/* 0 stores 1500. */
VANTREL_DDK_API void ddk_video_set_mtu(VideoStreamConfigurationHandle* config, unsigned int mtu);
/* Null (nothing written) when no multicast address is set; otherwise writes
   the non-null out-parameters and returns the record's own address string. */
VANTREL_DDK_API StringHandle* ddk_video_get_multicast(VideoStreamConfigurationHandle* config, unsigned int* port,
                                                      unsigned char* ttl, ddk_bool* flag);
VANTREL_DDK_API int ddk_video_get_bitrate(VideoStreamConfigurationHandle* config);
VANTREL_DDK_API int ddk_video_set_bitrate(VideoStreamConfigurationHandle* config, unsigned int bitrate);
/* The record's token (valid until it changes); null for a null handle. */
VANTREL_DDK_API const char* ddk_video_get_stream_token(VideoStreamConfigurationHandle* config);
/* Exactly `length` bytes; a null text or zero length clears the name. */
VANTREL_DDK_API void ddk_video_set_descriptive_name(VideoStreamConfigurationHandle* config, const char* text,
                                                    unsigned int length);
/* Exactly `length` bytes; -2 for a null text or zero length, tested before
   the handle. The collection key under which the record was added stays. */
VANTREL_DDK_API int ddk_video_set_stream_token(VideoStreamConfigurationHandle* config, const char* text,
                                               unsigned int length);
/* Writes 0 or 1. */
VANTREL_DDK_API int ddk_video_get_signing(VideoStreamConfigurationHandle* config, ddk_bool* signing);
/* A null address clears the address only (port, TTL and flag stay); otherwise
   stores `length` bytes of address, port, TTL and flag (as 0 or 1). */
VANTREL_DDK_API int ddk_video_set_multicast(VideoStreamConfigurationHandle* config, const char* address,
                                            unsigned int length, unsigned int port, unsigned char ttl,
                                            ddk_bool flag);

#ifdef __cplusplus
}
#endif

#endif
