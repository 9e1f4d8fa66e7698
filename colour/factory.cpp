// The factory: every road from a source format to a destination format, and
// the leaf class that takes it.
#include <new>

#include "colour/packed_to_rgb.h"
#include "colour/planar_to_rgb.h"
#include "colour/rgb24_to_i420.h"
#include "colour/rgb_to_rgb.h"
#include "colour/to_i420.h"

namespace {

// The canonical code of every accepted spelling (exact upper or lower case
// and the aliases of the packed formats), or 0 for a code that no road knows.
uint32_t CanonicalCode(uint32_t code) {
    switch (code) {
        case FCC_I420: case FCC_i420: return FCC_I420;
        case FCC_YV12: case FCC_yv12: return FCC_YV12;
        case FCC_YUY2: case FCC_YUNV: case FCC_V422:
        case FCC_yuy2: case FCC_yunv: case FCC_v422: return FCC_YUY2;
        case FCC_UYVY: case FCC_Y422: case FCC_UYNV:
        case FCC_uyvy: case FCC_y422: case FCC_uynv: return FCC_UYVY;
        case FCC_RG24: case FCC_rg24: return FCC_RG24;
        case FCC_RG32: case FCC_rg32: return FCC_RG32;
        case FCC_RG55: case FCC_rg55: return FCC_RG55;
        case FCC_RG56: case FCC_rg56: return FCC_RG56;
        default: return 0;  // "Y800" too: it is named only to be refused
    }
}

template <class Leaf>
CColorXForm* Make(uint32_t src, uint32_t dest) {
    return new (std::nothrow) Leaf(src, dest);
}

struct Road {
    uint32_t dest;
    uint32_t src;
    CColorXForm* (*make)(uint32_t src, uint32_t dest);
};

// Looked up by destination first, then by source.  The planar classes keep
// whichever of "I420" and "YV12" they were made for.
const Road kRoads[] = {
    {FCC_I420, FCC_YV12, Make<CColorXFormYV12ToI420>},
    {FCC_I420, FCC_RG24, Make<CColorXFormRG24ToI420>},
    {FCC_I420, FCC_YUY2, Make<CColorXFormYUY2ToI420>},
    {FCC_I420, FCC_UYVY, Make<CColorXFormUYVYToI420>},
    {FCC_I420, FCC_I420, Make<CColorXFormI420ToI420>},

    {FCC_RG24, FCC_I420, Make<CColorXFormPlanarToRG24>},
    {FCC_RG24, FCC_YV12, Make<CColorXFormPlanarToRG24>},
    {FCC_RG24, FCC_YUY2, Make<CColorXFormYUY2ToRG24>},
    {FCC_RG24, FCC_UYVY, Make<CColorXFormUYVYToRG24>},
    {FCC_RG24, FCC_RG24, Make<CColorXFormRG24ToRG24>},

    {FCC_RG55, FCC_I420, Make<CColorXFormPlanarToRG55>},
    {FCC_RG55, FCC_YV12, Make<CColorXFormPlanarToRG55>},
    {FCC_RG55, FCC_YUY2, Make<CColorXFormYUY2ToRG55>},
    {FCC_RG55, FCC_UYVY, Make<CColorXFormUYVYToRG55>},
    {FCC_RG55, FCC_RG24, Make<CColorXFormRG24ToRG55>},
    {FCC_RG55, FCC_RG55, Make<CColorXFormRG55ToRG55>},

    {FCC_RG56, FCC_I420, Make<CColorXFormPlanarToRG56>},
    {FCC_RG56, FCC_YV12, Make<CColorXFormPlanarToRG56>},
    {FCC_RG56, FCC_YUY2, Make<CColorXFormYUY2ToRG56>},
    {FCC_RG56, FCC_UYVY, Make<CColorXFormUYVYToRG56>},
    {FCC_RG56, FCC_RG24, Make<CColorXFormRG24ToRG56>},
    {FCC_RG56, FCC_RG56, Make<CColorXFormRG56ToRG56>},

    {FCC_RG32, FCC_I420, Make<CColorXFormPlanarToRG32>},
    {FCC_RG32, FCC_YV12, Make<CColorXFormPlanarToRG32>},
    {FCC_RG32, FCC_YUY2, Make<CColorXFormYUY2ToRG32>},
    {FCC_RG32, FCC_UYVY, Make<CColorXFormUYVYToRG32>},
    {FCC_RG32, FCC_RG24, Make<CColorXFormRG24ToRG32>},
    {FCC_RG32, FCC_RG32, Make<CColorXFormRG32ToRG32>},
};

}  // namespace

CColorXForm* CColorXForm::CreateInstance(uint32_t src, uint32_t dest) {
    const uint32_t canonicalDest = CanonicalCode(dest);
    const uint32_t canonicalSrc = CanonicalCode(src);
    for (const Road& road : kRoads)
        if (road.dest == canonicalDest && road.src == canonicalSrc) return road.make(canonicalSrc, canonicalDest);
    return nullptr;
}
