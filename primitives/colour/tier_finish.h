// What each tier does once after its row loop, before the driver's plain
// edge code: the vector tiers clear the multimedia state, and a6, which
// writes with streaming stores, fences them at once.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_TIER_FINISH_H
#define PIXMOOR_PRIMITIVES_COLOUR_TIER_FINISH_H

#include <emmintrin.h>
#include <mmintrin.h>

namespace pixmoor::colour {

inline void FinishPlain() {}

inline void FinishA6() {
    _mm_empty();
    _mm_sfence();
}

inline void FinishW7() { _mm_empty(); }

}  // namespace pixmoor::colour

#endif
