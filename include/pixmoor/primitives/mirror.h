/* Mirror primitives.  C linkage; compiles as C99 and as C++. */
#ifndef PIXMOOR_PRIMITIVES_MIRROR_H
#define PIXMOOR_PRIMITIVES_MIRROR_H

#include <pixmoor/runtime.h>

PIXMOOR_EXTERN_C_BEGIN

PIXMOOR_EXTERN_C_END

#endif
