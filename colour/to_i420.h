// The roads into "I420" that need no primitive, and "I420" to "I420", which
// is accepted and initialised but has no routine.
#ifndef PIXMOOR_COLOUR_TO_I420_H
#define PIXMOOR_COLOUR_TO_I420_H

#include "colour/packed_layouts.h"
#include "colour/transform_classes.h"

namespace pixmoor {

// Three block copies that put the chroma planes of "YV12" in "I420" order;
// does nothing at all when the orientations differ.
void YV12ToI420Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch);

// Two source rows at a time: both rows' lumas, and each chroma sample as the
// truncated mean of the two rows.  Orientation is not looked at.
template <class Layout>
void PackedToI420Routine(const CColorXForm* xform, const uint8_t* src, uint8_t* dst, uint32_t destPitch);

}  // namespace pixmoor

// Sets its line sizes and nothing else: no routine is ever installed, so
// XForm must not be called on it.
class CColorXFormI420ToI420 : public CColorXFormToI420 {
public:
    CColorXFormI420ToI420(uint32_t src, uint32_t dest) : CColorXFormToI420(src, dest) {}
    bool Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation) override;

    int32_t yLineSize = 0;
    int32_t chromaLineSize = 0;
};

class CColorXFormYV12ToI420 : public CColorXFormToI420 {
public:
    CColorXFormYV12ToI420(uint32_t src, uint32_t dest) : CColorXFormToI420(src, dest) {}
    bool Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation) override;

    int32_t srcYSize = 0;
    int32_t srcChromaSize = 0;
};

// The two packed 4:2:2 sources; they differ only in where Y, U and V stand.
template <class Layout>
class CColorXFormPackedToI420 : public CColorXFormToI420 {
public:
    CColorXFormPackedToI420(uint32_t src, uint32_t dest) : CColorXFormToI420(src, dest) {}
    bool Init(AbsSIZE size, EOrientation srcOrientation, EOrientation destOrientation) override;

    int32_t srcLineSize = 0;
};

extern template class CColorXFormPackedToI420<pixmoor::LayoutYUY2>;
extern template class CColorXFormPackedToI420<pixmoor::LayoutUYVY>;

class CColorXFormYUY2ToI420 : public CColorXFormPackedToI420<pixmoor::LayoutYUY2> {
public:
    using CColorXFormPackedToI420::CColorXFormPackedToI420;
};

class CColorXFormUYVYToI420 : public CColorXFormPackedToI420<pixmoor::LayoutUYVY> {
public:
    using CColorXFormPackedToI420::CColorXFormPackedToI420;
};

#endif
