/* Colour primitives.  C linkage; compiles as C99 and as C++.
   One header per group of members; each declares its members in the four
   tiers and under the plain name. */
#ifndef PIXMOOR_PRIMITIVES_COLOUR_H
#define PIXMOOR_PRIMITIVES_COLOUR_H

#include <pixmoor/primitives/colour/gray.h>
#include <pixmoor/primitives/colour/yuv420.h>
#include <pixmoor/primitives/colour/yuv444.h>
#include <pixmoor/primitives/colour/rgb16.h>
#include <pixmoor/primitives/colour/yuv422.h>
#include <pixmoor/primitives/colour/ycbcr.h>

#endif
