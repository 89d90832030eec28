/* Video encodings, shared by stream configurations and encoder options. */
#ifndef VANTREL_API_ENCODING_TYPE_H
#define VANTREL_API_ENCODING_TYPE_H

#include <stdint.h>

/* A 32-bit signed code. The library gives meaning to three facts only:
   0 means no encoding (refused where an encoding is set); 1 and 2 are the
   two inter-frame encodings to which GOP length, GOP structure, profile and
   rate control apply; every other non-zero value is an encoding without
   those settings, its meaning agreed between host and plug-in. */
#ifdef __cplusplus
enum EncodingType : int32_t {
    DDK_ENCODING_NONE = 0,
    DDK_ENCODING_H264 = 1, /* carries GOP, GOP structure, profile, rate control */
    DDK_ENCODING_H265 = 2  /* carries GOP, GOP structure, profile, rate control */
};
#else
/* C has no enumeration with a fixed underlying type: the same 32 bits. */
typedef int32_t EncodingType;
enum {
    DDK_ENCODING_NONE = 0,
    DDK_ENCODING_H264 = 1,
    DDK_ENCODING_H265 = 2
};
#endif

#endif
