// Whether this build compiles the SSE2 kernels of the a6 and w7 tiers.
//
// They are compiled where the compiler targets SSE2 (every x86-64 build, and
// 32-bit x86 builds with SSE2 enabled) unless the build asks for the portable
// forms with PIXMOOR_PORTABLE_KERNELS.  Everywhere else each vector kernel
// has a portable form in plain code that runs the same tier's arithmetic and
// gives the same bytes, so a tier's output does not depend on the processor.
#ifndef PIXMOOR_PRIMITIVES_VECTOR_BUILD_H
#define PIXMOOR_PRIMITIVES_VECTOR_BUILD_H

#if !defined(PIXMOOR_PORTABLE_KERNELS) && \
    (defined(__SSE2__) || defined(_M_X64) || (defined(_M_IX86_FP) && _M_IX86_FP >= 2))
#define PIXMOOR_HAVE_SSE2 1
#endif

#endif
