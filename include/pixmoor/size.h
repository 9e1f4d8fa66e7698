// Size transforms: CSizeXForm, crop and pad of planar frames, RGB scaling.
#ifndef PIXMOOR_SIZE_H
#define PIXMOOR_SIZE_H

#include <pixmoor/geometry.h>

#endif
