// The threshold family of tier px, whose real float limits compare values.
#include "primitives/signal/threshold_members.h"

PIXMOOR_THRESHOLD_TIER(px_, PrimTierPx)
