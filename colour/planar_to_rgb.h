// Planar 4:2:0 ("I420", "YV12") to RGB.  The colour arithmetic is done by a
// dispatched primitive, always into 3 bytes a pixel; the 32- and 16-bit
// destinations then expand or pack that intermediate picture.  These classes
// run the tier selection at every Init.
#ifndef PIXMOOR_COLOUR_PLANAR_TO_RGB_H
#define PIXMOOR_COLOUR_PLANAR_TO_RGB_H

#include "colour/transform_classes.h"

namespace pixmoor {

// Each routine hands the planes to the dispatched 4:2:0 primitive.  "RG24"
// converts straight into the destination (tight for a pitch of 0 or the
// line size, else on the caller's pitch) and turns it over in place when
// the orientations differ; the other three convert into rgbBuffer and
// expand or pack it row by row, never turning it over.
void PlanarToRG24Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch);
void PlanarToRG32Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch);
void PlanarToRG55Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch);
void PlanarToRG56Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch);

}  // namespace pixmoor

// The plane geometry of a 4:2:0 source.  "I420" has U before V; any other
// code (that is "YV12") has them the other way round.
template <class Dest>
class CColorXFormPlanarSource : public Dest {
public:
    int32_t srcYSize = 0;
    int32_t srcChromaSize = 0;
    int32_t srcUOffset = 0;
    int32_t srcVOffset = 0;

protected:
    CColorXFormPlanarSource(uint32_t src, uint32_t dest) : Dest(src, dest) {}
    void SetPlaneFields(AbsSIZE size);
};

class CColorXFormPlanarToRG24 : public CColorXFormPlanarSource<CColorXFormToRG24> {
public:
    CColorXFormPlanarToRG24(uint32_t src, uint32_t dest) : CColorXFormPlanarSource(src, dest) {}
    bool Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation) override;

    int32_t rgbLineSize = 0;
};

// The destinations that go through an intermediate 3-byte picture, held in
// rgbBuffer from one Init to the next.
template <class Dest, CColorXForm::XFormRoutine Routine>
class CColorXFormPlanarBuffered : public CColorXFormPlanarSource<Dest> {
public:
    CColorXFormPlanarBuffered(uint32_t src, uint32_t dest) : CColorXFormPlanarSource<Dest>(src, dest) {}
    ~CColorXFormPlanarBuffered() override;
    bool Init(AbsSIZE size, CColorXForm::EOrientation srcOrientation,
              CColorXForm::EOrientation destOrientation) override;

    uint8_t* rgbBuffer = nullptr;
};

extern template class CColorXFormPlanarBuffered<CColorXFormToRG32, pixmoor::PlanarToRG32Routine>;
extern template class CColorXFormPlanarBuffered<CColorXFormToRG55, pixmoor::PlanarToRG55Routine>;
extern template class CColorXFormPlanarBuffered<CColorXFormToRG56, pixmoor::PlanarToRG56Routine>;

class CColorXFormPlanarToRG32
    : public CColorXFormPlanarBuffered<CColorXFormToRG32, pixmoor::PlanarToRG32Routine> {
public:
    using CColorXFormPlanarBuffered::CColorXFormPlanarBuffered;
};

class CColorXFormPlanarToRG55
    : public CColorXFormPlanarBuffered<CColorXFormToRG55, pixmoor::PlanarToRG55Routine> {
public:
    using CColorXFormPlanarBuffered::CColorXFormPlanarBuffered;
};

class CColorXFormPlanarToRG56
    : public CColorXFormPlanarBuffered<CColorXFormToRG56, pixmoor::PlanarToRG56Routine> {
public:
    using CColorXFormPlanarBuffered::CColorXFormPlanarBuffered;
};

#endif
