// "RG24" to "I420" through the dispatched primitives: the picture is turned
// over into flipBuffer when asked, then converted.  Runs the tier selection
// at every Init.
#ifndef PIXMOOR_COLOUR_RGB24_TO_I420_H
#define PIXMOOR_COLOUR_RGB24_TO_I420_H

#include "colour/transform_classes.h"

namespace pixmoor {

// Turns the source over into flipBuffer when the orientations differ, then
// converts it into the tight "I420" layout; the pitch is not used.
void RG24ToI420Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch);

}  // namespace pixmoor

class CColorXFormRG24ToI420 : public CColorXFormToI420 {
public:
    CColorXFormRG24ToI420(uint32_t src, uint32_t dest) : CColorXFormToI420(src, dest) {}
    ~CColorXFormRG24ToI420() override;
    bool Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation) override;

    int32_t srcLineSize = 0;
    uint8_t* flipBuffer = nullptr;
};

#endif
