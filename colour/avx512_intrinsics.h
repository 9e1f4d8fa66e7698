// The 512-bit intrinsics, for the units of AVX-512 row kernels only.
#ifndef PIXMOOR_COLOUR_AVX512_INTRINSICS_H
#define PIXMOOR_COLOUR_AVX512_INTRINSICS_H

// GCC 12's 512-bit intrinsics start from an undefined vector, which its
// flow analysis reports as (maybe) uninitialized in every caller.  Left
// ignored for the rest of the including unit.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuninitialized"
#endif

#include <immintrin.h>

#endif
