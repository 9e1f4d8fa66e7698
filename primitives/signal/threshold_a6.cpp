// The threshold family of tier a6, whose real float limits take packed minimum and maximum.
#include "primitives/signal/threshold_members.h"

PIXMOOR_THRESHOLD_TIER(a6_, PrimTierA6)
