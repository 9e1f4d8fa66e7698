// The AVX-512 intrinsics for the units of the AVX-512 row kernels, included
// in place of <immintrin.h>.  GCC 12's AVX-512 intrinsics start from an
// undefined register and warn of it when inlined; no value in these kernels
// depends on one, so the warning is off for the rest of such a unit.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_AVX512_INTRINSICS_H
#define PIXMOOR_PRIMITIVES_COLOUR_AVX512_INTRINSICS_H

#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuninitialized"
#endif

#include <immintrin.h>

#endif
