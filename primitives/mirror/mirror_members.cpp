// The eighteen mirror members in their four tiers, and the plain names of
// those that stand in no dispatch row.
#include <pixmoor/primitives/mirror.h>

#include "primitives/mirror/mirror_driver.h"
#include "runtime/tier_call.h"

using pixmoor::mirror::MirrorInPlace;
using pixmoor::mirror::MirrorToDestination;

// Member name, element type, layout.
#define PIXMOOR_MIRROR_MEMBERS(X)           \
    X(ImgMirror8uC1, uint8_t, k8uC1)        \
    X(ImgMirror8uC3, uint8_t, k8uC3)        \
    X(ImgMirror8uAC4, uint8_t, k8uAC4)      \
    X(ImgMirror16uC1, uint16_t, k16uC1)     \
    X(ImgMirror16uC3, uint16_t, k16uC3)     \
    X(ImgMirror16uAC4, uint16_t, k16uAC4)   \
    X(ImgMirror32sC1, int32_t, k32sC1)      \
    X(ImgMirror32sC3, int32_t, k32sC3)      \
    X(ImgMirror32sAC4, int32_t, k32sAC4)

#define PIXMOOR_MIRROR_TO_DESTINATION_TIER(tier, Tier, name, type, layout)                                  \
    PrimStatus tier##name(const type* src, int32_t srcStep, type* dst, int32_t dstStep, int32_t width,       \
                          int32_t height, MirrorAxis axis) {                                                 \
        return MirrorToDestination(pixmoor::mirror::Tier, pixmoor::mirror::layout, src, srcStep, dst, dstStep, \
                                   width, height, axis);                                                     \
    }
#define PIXMOOR_MIRROR_IN_PLACE_TIER(tier, Tier, name, type, layout)                                         \
    PrimStatus tier##name##I(type* srcDst, int32_t step, int32_t width, int32_t height, MirrorAxis axis) {  \
        return MirrorInPlace(pixmoor::mirror::Tier, pixmoor::mirror::layout, srcDst, step, width, height, axis); \
    }
#define PIXMOOR_MIRROR_ALL_TIERS(name, type, layout)                          \
    PIXMOOR_MIRROR_TO_DESTINATION_TIER(px_, kTierPx, name, type, layout)      \
    PIXMOOR_MIRROR_TO_DESTINATION_TIER(m6_, kTierM6, name, type, layout)      \
    PIXMOOR_MIRROR_TO_DESTINATION_TIER(a6_, kTierA6, name, type, layout)      \
    PIXMOOR_MIRROR_TO_DESTINATION_TIER(w7_, kTierW7, name, type, layout)      \
    PIXMOOR_MIRROR_IN_PLACE_TIER(px_, kTierPx, name, type, layout)            \
    PIXMOOR_MIRROR_IN_PLACE_TIER(m6_, kTierM6, name, type, layout)            \
    PIXMOOR_MIRROR_IN_PLACE_TIER(a6_, kTierA6, name, type, layout)            \
    PIXMOOR_MIRROR_IN_PLACE_TIER(w7_, kTierW7, name, type, layout)

extern "C" {
PIXMOOR_MIRROR_MEMBERS(PIXMOOR_MIRROR_ALL_TIERS)
}

// Plain names.  ImgMirror8uC3I (row 16), ImgMirror8uC3 (row 17) and
// ImgMirror8uAC4I (row 18) are dispatch stubs and are defined with the table.
#define PIXMOOR_MIRROR_PLAIN_TO_DESTINATION(name, type)                                                       \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, name,                                                                  \
                           (const type* src, int32_t srcStep, type* dst, int32_t dstStep, int32_t width,      \
                            int32_t height, MirrorAxis axis),                                                 \
                           (src, srcStep, dst, dstStep, width, height, axis))
#define PIXMOOR_MIRROR_PLAIN_IN_PLACE(name, type)                                                              \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, name, (type* srcDst, int32_t step, int32_t width, int32_t height,       \
                                               MirrorAxis axis),                                              \
                           (srcDst, step, width, height, axis))

PIXMOOR_MIRROR_PLAIN_TO_DESTINATION(ImgMirror8uC1, uint8_t)
PIXMOOR_MIRROR_PLAIN_TO_DESTINATION(ImgMirror8uAC4, uint8_t)
PIXMOOR_MIRROR_PLAIN_TO_DESTINATION(ImgMirror16uC1, uint16_t)
PIXMOOR_MIRROR_PLAIN_TO_DESTINATION(ImgMirror16uC3, uint16_t)
PIXMOOR_MIRROR_PLAIN_TO_DESTINATION(ImgMirror16uAC4, uint16_t)
PIXMOOR_MIRROR_PLAIN_TO_DESTINATION(ImgMirror32sC1, int32_t)
PIXMOOR_MIRROR_PLAIN_TO_DESTINATION(ImgMirror32sC3, int32_t)
PIXMOOR_MIRROR_PLAIN_TO_DESTINATION(ImgMirror32sAC4, int32_t)
PIXMOOR_MIRROR_PLAIN_IN_PLACE(ImgMirror8uC1I, uint8_t)
PIXMOOR_MIRROR_PLAIN_IN_PLACE(ImgMirror16uC1I, uint16_t)
PIXMOOR_MIRROR_PLAIN_IN_PLACE(ImgMirror16uC3I, uint16_t)
PIXMOOR_MIRROR_PLAIN_IN_PLACE(ImgMirror16uAC4I, uint16_t)
PIXMOOR_MIRROR_PLAIN_IN_PLACE(ImgMirror32sC1I, int32_t)
PIXMOOR_MIRROR_PLAIN_IN_PLACE(ImgMirror32sC3I, int32_t)
PIXMOOR_MIRROR_PLAIN_IN_PLACE(ImgMirror32sAC4I, int32_t)
