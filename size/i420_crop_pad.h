// Crop and pad of planar 4:2:0 frames: the picture keeps its scale and is
// centred in the new frame, with zero borders where a dimension grows and
// equal margins dropped where it shrinks.  I420 and YV12 are served alike,
// since the two chroma planes are treated the same and keep their order.
#ifndef PIXMOOR_SIZE_I420_CROP_PAD_H
#define PIXMOOR_SIZE_I420_CROP_PAD_H

#include <pixmoor/size.h>

// The walk through one plane.  Pad and skip of a direction exclude each
// other: at least one of the two is 0.
struct PlaneStrip {
    int32_t rows;           // lines of the plane to copy
    int32_t copyBytes;      // bytes copied per line
    int32_t topPadBytes;    // zero bytes before the first line and after the last
    int32_t topSkipBytes;   // source bytes skipped there instead
    int32_t leftPadBytes;   // zero bytes before and after each line
    int32_t leftSkipBytes;  // source bytes skipped there instead
};

class CSizeXFormI420CropPad : public CSizeXForm {
public:
    enum { kLuma = 0, kFirstChroma = 1, kSecondChroma = 2, kPlanes = 3 };

    CSizeXFormI420CropPad(uint32_t fourcc, uint32_t bits) : CSizeXForm(fourcc, bits), strips() {}

    bool Init(AbsSIZE in, AbsSIZE out, XFormType type, XFormInterpType interp) override;

    // The per-frame routine: walks the three strips in order, source and
    // destination running on from one plane to the next.
    static int32_t CropPadI420(CSizeXForm* object, const uint8_t* src, uint8_t* dst);

    const PlaneStrip& Strip(int plane) const { return strips[plane]; }

private:
    // Luma, then the first and the second chroma plane; both chroma records
    // hold the same numbers.
    PlaneStrip strips[kPlanes];
};

#endif
