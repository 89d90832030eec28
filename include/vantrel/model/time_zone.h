#ifndef VANTREL_MODEL_TIME_ZONE_H
#define VANTREL_MODEL_TIME_ZONE_H

#include <string>

namespace vantrel {

/* The device's time zone, created by the host and filled or read through the
   ddk_*_timezone_* functions. A plain record shared with the host: field
   order and widths are part of the binary interface. The library copies the
   numbers unchanged; their units are agreed between plug-in and host. */
struct TimeZone {
    std::string name;    /* standard-time name; may hold NUL bytes */
    std::string dstName; /* daylight-saving-time name */
    int gmtOffset;       /* 32-bit */
    int dstOffset;
    int dstStart;
    int dstEnd;

    TimeZone() : gmtOffset(0), dstOffset(0), dstStart(0), dstEnd(0) {}
};

} // namespace vantrel

#endif
