/* Declares one primitive member in all its forms: the four tier entries
   (px_, m6_, a6_, w7_) and the plain name.  For the members of a dispatch row
   the plain name is the dispatch stub; for every other member it runs the
   entry of the tier that PrimGetTier reports. */
#ifndef PIXMOOR_PRIMITIVES_TIERED_H
#define PIXMOOR_PRIMITIVES_TIERED_H

#include <pixmoor/export.h>

#define PIXMOOR_TIERED(ret, name, params) \
    PIXMOOR_API ret name params;          \
    PIXMOOR_API ret px_##name params;     \
    PIXMOOR_API ret m6_##name params;     \
    PIXMOOR_API ret a6_##name params;     \
    PIXMOOR_API ret w7_##name params

#endif
