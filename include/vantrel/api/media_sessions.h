/* Media sessions a plug-in appends to the host's collection and fills.
   There are no getters: the host reads the records directly. */
#ifndef VANTREL_API_MEDIA_SESSIONS_H
#define VANTREL_API_MEDIA_SESSIONS_H

#include <stdint.h>

#include "vantrel/api/export.h"
#include "vantrel/api/handles.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Appends a session with the defaults (transmission mode 3, stream token
   "unknownStream", other numbers 0, other strings empty). The handle stays
   valid until the next append. Null for a null collection or a failed
   append, which leaves the collection as it was. */
VANTREL_DDK_API MediaSessionHandle* ddk_add_media_session_to_collection(MediaSessionCollectionHandle* collection);

/* Numeric fields: 0; -1 for a null session or value pointer (nothing written). */
VANTREL_DDK_API int ddk_set_media_session_transmission_mode(MediaSessionHandle* session, int32_t mode);
VANTREL_DDK_API int ddk_set_media_session_stream_type(MediaSessionHandle* session, const int32_t* type);
VANTREL_DDK_API int ddk_set_media_session_stream_state(MediaSessionHandle* session, const int32_t* state);
VANTREL_DDK_API int ddk_set_media_session_timeout(MediaSessionHandle* session, const uint16_t* timeout);
VANTREL_DDK_API int ddk_set_media_session_destination_port(MediaSessionHandle* session, const uint16_t* port);

/* Text fields: stores the first *length bytes of text, which must hold no
   NUL among them. 0; -1 for a null session, text or length pointer, a NUL
   within the count, or a failed copy. A count of 0 stores an empty string,
   except for the id, where it is refused with -1. The media type must be
   empty or valid (see vantrel::is_valid_mime_type), else -2. A refused call
   leaves the session unchanged. */
VANTREL_DDK_API int ddk_set_media_session_uri(MediaSessionHandle* session, const char* text, const uint16_t* length);
VANTREL_DDK_API int ddk_set_media_session_mime(MediaSessionHandle* session, const char* text, const uint16_t* length);
VANTREL_DDK_API int ddk_set_media_session_stream_token(MediaSessionHandle* session, const char* text, const uint16_t* length);
VANTREL_DDK_API int ddk_set_media_session_destination_ip(MediaSessionHandle* session, const char* text, const uint16_t* length);
VANTREL_DDK_API int ddk_set_media_session_id(MediaSessionHandle* session, const char* text, const uint16_t* length);

#ifdef __cplusplus
}
#endif

#endif
