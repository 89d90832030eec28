// The filters of one encoder-options question, built by the host.
#ifndef VANTREL_INTERNAL_VIDEO_OPTIONS_QUERY_H
#define VANTREL_INTERNAL_VIDEO_OPTIONS_QUERY_H

#include "vantrel/api/encoding_type.h"
#include "vantrel/api/export.h"
#include "vantrel/internal/resolution.h"

namespace vantrel {
namespace ddk {
namespace internal {

// Each filter is a separately owned value, absent (null) until first set.
class VANTREL_DDK_API VideoOptionsQuery {
public:
    VideoOptionsQuery();
    VideoOptionsQuery(const VideoOptionsQuery& other);
    VideoOptionsQuery& operator=(const VideoOptionsQuery& other);
    virtual ~VideoOptionsQuery();

    // No value is refused; each makes hasFilters() true.
    void setResolution(const unsigned int& width, const unsigned int& height);
    void setEncodingType(const EncodingType& type);
    void setFramerate(const unsigned int& framerate);

    // Null when the query has no such filter.
    const Resolution* resolution() const;
    const EncodingType* encodingType() const;
    const unsigned int* framerate() const;
    bool hasFilters() const;

    // A filter present in only one of the two queries does not make them differ;
    // resolutions compare by width and height, not by pixel count.
    bool operator==(const VideoOptionsQuery& other) const;

private:
    Resolution* resolution_;
    EncodingType* encodingType_;
    unsigned int* framerate_;
    bool hasFilters_;
};

} // namespace internal
} // namespace ddk
} // namespace vantrel

#endif
