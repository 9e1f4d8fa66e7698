// Colour transforms: CColorXForm, its factory and leaf classes.
#ifndef PIXMOOR_COLOUR_H
#define PIXMOOR_COLOUR_H

#include <pixmoor/geometry.h>

#endif
