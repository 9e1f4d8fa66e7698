// The threshold family of tier w7, whose real float limits take packed minimum and maximum.
#include "primitives/signal/threshold_members.h"

PIXMOOR_THRESHOLD_TIER(w7_, PrimTierW7)
