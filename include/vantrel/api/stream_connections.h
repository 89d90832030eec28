/* Stream connection information: one record per stream endpoint in a
   collection the host owns. The host reads the fields directly. */
#ifndef VANTREL_API_STREAM_CONNECTIONS_H
#define VANTREL_API_STREAM_CONNECTIONS_H

#include <stdint.h>

#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Appends a record with the defaults (empty strings, transmission mode 3,
   type 0). The handle stays valid until the next append. Null for a null
   collection or a failed append, which leaves the collection as it was. */
VANTREL_DDK_API StreamConnectionInfoHandle* ddk_add_stream_connection_info(StreamConnectionInfosHandle* infos);
/* Number of records; 0 for a null collection. */
VANTREL_DDK_API unsigned int ddk_get_stream_connection_infos_size(StreamConnectionInfosHandle* infos);
/* Record `index`; null for a null collection or an index not below the size. */
VANTREL_DDK_API StreamConnectionInfoHandle* ddk_get_stream_connection_info_at(StreamConnectionInfosHandle* infos, unsigned int index);

/* Codes: 0; -1 for a null record. Any value is stored bit for bit. */
VANTREL_DDK_API int ddk_set_stream_connection_info_transmission_mode(StreamConnectionInfoHandle* info, int32_t mode);
VANTREL_DDK_API int ddk_set_stream_connection_info_type(StreamConnectionInfoHandle* info, int32_t type);

/* Texts of exactly `length` bytes (NUL bytes included; empty for a null
   text or a zero length). The value is judged before the record:
   URL: 0; -1 for an empty text, a null record or a failed copy.
   Token: 0; -2 for an empty text; -1 for a null record or a failed copy.
   Media type: 0; -2 for an empty text or one that is not a valid media type
   (see vantrel::is_valid_mime_type); -1 for a null record or a failed copy.
   A refused call leaves the record unchanged. */
VANTREL_DDK_API int ddk_set_stream_connection_info_url(StreamConnectionInfoHandle* info, const char* text, unsigned int length);
VANTREL_DDK_API int ddk_set_stream_connection_info_token(StreamConnectionInfoHandle* info, const char* text, unsigned int length);
VANTREL_DDK_API int ddk_set_stream_connection_info_mime_type(StreamConnectionInfoHandle* info, const char* text, unsigned int length);

#ifdef __cplusplus
}
#endif

#endif
