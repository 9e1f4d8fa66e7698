// What each tier does once after its row loop, before the driver's plain
// edge code: the vector tiers clear the multimedia state, and a6, which
// writes with streaming stores, fences them at once.  Where there is no
// such state (processors without these vectors) there is nothing to do.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_TIER_FINISH_H
#define PIXMOOR_PRIMITIVES_COLOUR_TIER_FINISH_H

#include "primitives/vector_build.h"

#ifdef PIXMOOR_HAVE_SSE2
#include <emmintrin.h>
#include <mmintrin.h>
#endif

namespace pixmoor::colour {

inline void FinishPlain() {}

inline void FinishA6() {
#ifdef PIXMOOR_HAVE_SSE2
    _mm_empty();
    _mm_sfence();
#endif
}

inline void FinishW7() {
#ifdef PIXMOOR_HAVE_SSE2
    _mm_empty();
#endif
}

}  // namespace pixmoor::colour

#endif
