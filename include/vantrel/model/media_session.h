/* A media session a plug-in serves, as the host reads it out of its collection. */
#ifndef VANTREL_MODEL_MEDIA_SESSION_H
#define VANTREL_MODEL_MEDIA_SESSION_H

#include <stdint.h>

#include <string>

#include "vantrel/api/export.h"

namespace vantrel {

/* Part of the binary interface: host and plug-in share the field order and
   types. The codes and the timeout are the host's; the library stores them
   and never reads them back. The setters keep every string free of NUL bytes
   and `mime` empty or a valid media type. */
struct VANTREL_DDK_API MediaSession {
    std::string uri;
    std::string mime;
    int32_t transmissionMode = 3;
    std::string streamToken = "unknownStream";
    int32_t streamType = 0;
    std::string destinationIp;
    std::string id;
    uint16_t timeout = 0;
    int32_t streamState = 0;
    uint16_t destinationPort = 0;
};

/* True exactly for type "/" subtype, each one or more token bytes: any byte
   except controls (0x00-0x1F, 0x7F), space, double quote and ( ) < > @ , ;
   : \ / [ ] ? = { }. Bytes 0x80-0xFF count as token bytes. No parameters, no
   white space, no case folding, no list of known types. */
VANTREL_DDK_API bool is_valid_mime_type(const std::string& text);

} // namespace vantrel

#endif
