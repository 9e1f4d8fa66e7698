// Whether this build has the 128-bit vector kernels of the a6 and w7 tiers.
#ifndef PIXMOOR_PRIMITIVES_MIRROR_VECTOR_SUPPORT_H
#define PIXMOOR_PRIMITIVES_MIRROR_VECTOR_SUPPORT_H

#if defined(__SSE2__) || defined(_M_X64) || (defined(_M_IX86_FP) && _M_IX86_FP >= 2)
#define PIXMOOR_MIRROR_VECTOR_KERNELS 1
#else
#define PIXMOOR_MIRROR_VECTOR_KERNELS 0
#endif

#endif
