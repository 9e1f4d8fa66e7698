// The threshold family of tier m6, whose real float limits compare bit patterns.
#include "primitives/signal/threshold_members.h"

PIXMOOR_THRESHOLD_TIER(m6_, PrimTierM6)
