// What the 4:2:2 unit of a vector tier builds on: the SSE2 kernels where
// the processor has the vectors, otherwise the plain kernel sets, which are
// the portable form of the same arithmetic.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV422_VECTOR_TIER_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV422_VECTOR_TIER_H

#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv422_arith.h"
#include "primitives/colour/yuv422_rows.h"

#ifdef PIXMOOR_HAVE_SSE2
#include <emmintrin.h>
#include <xmmintrin.h>

#include "primitives/colour/narrow_sse2.h"
#include "primitives/colour/yuv422_sse2.h"
#else
#include "primitives/colour/yuv422_plain_sets.h"
#endif

#endif
