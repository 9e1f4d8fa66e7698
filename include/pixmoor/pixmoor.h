/* Pixmoor: video frame conversion.  One header for the whole public surface:
   the primitive layer and runtime (C linkage) and, in C++, the geometry
   helpers and the two transform families. */
#ifndef PIXMOOR_PIXMOOR_H
#define PIXMOOR_PIXMOOR_H

#include <pixmoor/runtime.h>
#include <pixmoor/primitives/mirror.h>
#include <pixmoor/primitives/colour.h>
#include <pixmoor/primitives/moments.h>
#include <pixmoor/primitives/signal.h>

#ifdef __cplusplus
#include <pixmoor/geometry.h>
#include <pixmoor/colour.h>
#include <pixmoor/size.h>
#endif

#endif
