#ifndef VANTREL_MODEL_MOTION_DETECTION_REGION_H
#define VANTREL_MODEL_MOTION_DETECTION_REGION_H

#include "vantrel/api/export.h"

namespace vantrel {

/* One rectangle of the motion-detection grid, in macro blocks, inclusive at
   both corners, with an optional mask of one bit per macro block. Operations
   speak x1, y1, x2, y2; the fields are stored y1, x1, y2, x2 (binary
   interface shared with the host). Setters keep x1 <= x2, y1 <= y2 and a mask
   of exactly maskByteCount() bytes. Block and byte counts use wrapping
   unsigned 32-bit arithmetic. The library never interprets the mask bits. */
class VANTREL_DDK_API MotionDetectionRegion {
public:
    /* Enabled, sensitivity 100, threshold 1, one block at (0, 0), no mask. */
    MotionDetectionRegion();
    /* Stores the low 8 bits of sensitivity and the low 16 bits of threshold
       unclamped; corners that setDimensions refuses leave them at 0. */
    MotionDetectionRegion(const bool& enabled, const unsigned& sensitivity,
                          const unsigned& threshold, const unsigned& x1,
                          const unsigned& y1, const unsigned& x2, const unsigned& y2);
    /* Deep copies: each region owns its own mask buffer. */
    MotionDetectionRegion(const MotionDetectionRegion& other);
    MotionDetectionRegion& operator=(const MotionDetectionRegion& other);
    virtual ~MotionDetectionRegion();

    bool isEnabled() const;
    unsigned char sensitivity() const;
    unsigned short threshold() const;
    void coordinates(unsigned& x1, unsigned& y1, unsigned& x2, unsigned& y2) const;

    /* (x2 - x1 + 1) * (y2 - y1 + 1) */
    unsigned macroBlockCount() const;
    /* macroBlockCount() / 8, rounded up */
    unsigned maskByteCount() const;
    /* Byte count of a mask for these corners; their order is not checked. */
    static unsigned requiredMaskSize(const unsigned& x1, const unsigned& y1,
                                     const unsigned& x2, const unsigned& y2);

    /* The region's own buffer (not a copy) and its size; null and 0 without a mask. */
    void mask(const unsigned char*& data, unsigned& size) const;

    void setEnable(const bool& enabled);
    /* Values above 100 are stored as 100. */
    void setSensitivity(const unsigned& sensitivity);
    /* Stores the smaller of the value and macroBlockCount(), in 16 bits. */
    void setThreshold(const unsigned& threshold);
    /* Copies exactly maskByteCount() bytes; false (nothing changed) when size
       differs. A null mask removes the region's mask. The region's own buffer
       is accepted as it is. */
    bool setMask(const unsigned char* const& data, const unsigned& size);
    /* New corners with a mask of the new byte count (or null: no mask). False
       and nothing changed when a corner pair is out of order, the size
       differs, or the region's own buffer is passed with a different byte
       count. A failed allocation throws and also changes nothing. */
    bool setDimensions(const unsigned& x1, const unsigned& y1, const unsigned& x2,
                       const unsigned& y2, const unsigned char* const& mask,
                       const unsigned& size);

private:
    bool enabled_;
    unsigned char sensitivity_;
    unsigned short threshold_;
    unsigned y1_;
    unsigned x1_;
    unsigned y2_;
    unsigned x2_;
    unsigned char* mask_; /* new[]-allocated, maskByteCount() bytes, or null */
};

} // namespace vantrel

#endif
