/* The time zone record (vantrel::TimeZone) behind a TimeZoneHandle. */
#ifndef VANTREL_API_TIME_ZONE_H
#define VANTREL_API_TIME_ZONE_H

#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The name's characters, NUL-terminated, owned by the record (valid until
   the name is next set); null for a null zone. */
VANTREL_DDK_API const char* ddk_get_timezone_name(TimeZoneHandle* zone);
VANTREL_DDK_API const char* ddk_get_timezone_dstname(TimeZoneHandle* zone);
/* Replaces the name with exactly `length` bytes of `text` (NUL bytes
   included; a null text with length 0 empties it). 0; -1 for a null zone
   (tested first); -2, old name kept, for a null text with a non-zero length
   or a failed copy. */
VANTREL_DDK_API int ddk_set_timezone_name(TimeZoneHandle* zone, const char* text, unsigned int length);
VANTREL_DDK_API int ddk_set_timezone_dstname(TimeZoneHandle* zone, const char* text, unsigned int length);

/* Numbers are copied unchanged. Getters give 0 for a null zone; setters do
   nothing for a null zone. */
VANTREL_DDK_API int ddk_get_timezone_gmtoffset(TimeZoneHandle* zone);
VANTREL_DDK_API void ddk_set_timezone_gmtoffset(TimeZoneHandle* zone, int value);
VANTREL_DDK_API int ddk_get_timezone_dstoffset(TimeZoneHandle* zone);
VANTREL_DDK_API void ddk_set_timezone_dstoffset(TimeZoneHandle* zone, int value);
VANTREL_DDK_API int ddk_get_timezone_dststart(TimeZoneHandle* zone);
VANTREL_DDK_API void ddk_set_timezone_dststart(TimeZoneHandle* zone, int value);
VANTREL_DDK_API int ddk_get_timezone_dstend(TimeZoneHandle* zone);
VANTREL_DDK_API void ddk_set_timezone_dstend(TimeZoneHandle* zone, int value);

#ifdef __cplusplus
}
#endif

#endif
