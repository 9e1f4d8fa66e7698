// Whether this build has the 128-bit vector kernels of the a6 and w7 tiers.
#ifndef PIXMOOR_PRIMITIVES_MIRROR_VECTOR_SUPPORT_H
#define PIXMOOR_PRIMITIVES_MIRROR_VECTOR_SUPPORT_H

#include "primitives/vector_build.h"

#ifdef PIXMOOR_HAVE_SSE2
#define PIXMOOR_MIRROR_VECTOR_KERNELS 1
#else
#define PIXMOOR_MIRROR_VECTOR_KERNELS 0
#endif

#endif
