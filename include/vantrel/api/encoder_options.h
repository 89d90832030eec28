/* Encoder options filled by a plug-in, and the filters of the host's query.
   Adders return 0 (also when the value is already present), -2 for a refused
   value (tested before the handle), -1 for a null handle or a failure inside. */
#ifndef VANTREL_API_ENCODER_OPTIONS_H
#define VANTREL_API_ENCODER_OPTIONS_H

#include "vantrel/api/encoding_type.h"
#include "vantrel/api/errors.h"
#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Refuses 0. */
VANTREL_DDK_API int ddk_add_framerate_to_encoder_options(EncoderOptionsHandle* options, unsigned int framerate);
/* Refuses values above 2. */
VANTREL_DDK_API int ddk_add_gop_structure_to_encoder_options(EncoderOptionsHandle* options, int gopStructure);
/* Refuses 0. */
VANTREL_DDK_API int ddk_add_rate_control_to_encoder_options(EncoderOptionsHandle* options, int rateControl);
/* Refuses values above 5. */
VANTREL_DDK_API int ddk_add_video_profile_to_encoder_options(EncoderOptionsHandle* options, int profile);
/* Refuses 0. */
VANTREL_DDK_API int ddk_add_encoding_to_encoder_options(EncoderOptionsHandle* options, EncodingType encoding);
/* Refuses a zero dimension; a resolution with the pixel count of one already
   present is not added. */
VANTREL_DDK_API int ddk_add_resolution_to_encoder_options(EncoderOptionsHandle* options, unsigned int width,
                                                          unsigned int height);
/* Ranges store (smaller bound, larger bound, thirdValue) and set their flag;
   0, or -1 for a null handle. */
VANTREL_DDK_API int ddk_set_gop_range_on_encoder_options(EncoderOptionsHandle* options, unsigned int first,
                                                         unsigned int second, unsigned int thirdValue);
VANTREL_DDK_API int ddk_set_bitrate_range_on_encoder_options(EncoderOptionsHandle* options, unsigned int first,
                                                             unsigned int second, unsigned int thirdValue);
VANTREL_DDK_API int ddk_set_dscp_range_on_encoder_options(EncoderOptionsHandle* options, unsigned int first,
                                                          unsigned int second, unsigned int thirdValue);
/* Stores the byte as passed and sets hasSigning. */
VANTREL_DDK_API int ddk_set_signing_on_encoder_options(EncoderOptionsHandle* options, ddk_bool signing);

/* 1 with the filter's value written, 0 when the query lacks that filter
   (nothing written), -1 for a null query. */
VANTREL_DDK_API int ddk_get_encoder_query_encoding(VideoOptionsQueryHandle* query, EncodingType* encoding);
VANTREL_DDK_API int ddk_get_encoder_query_framerate(VideoOptionsQueryHandle* query, unsigned int* framerate);
VANTREL_DDK_API int ddk_get_encoder_query_video_resolution(VideoOptionsQueryHandle* query, unsigned int* width,
                                                           unsigned int* height);

#ifdef __cplusplus
}
#endif

#endif
