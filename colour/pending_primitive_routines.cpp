// PENDING: the per-frame routines of the five roads that run on the
// dispatched colour and mirror primitives.  They arrive together with those
// primitives; until then each one is installed by its class's Init (so every
// field, buffer and the tier selection are already in place) and converts
// nothing.  Replace each body, and this file, when the primitives land.
#include "colour/planar_to_rgb.h"
#include "colour/rgb24_to_i420.h"

namespace pixmoor {

void PlanarToRG24Routine(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t) {}
void PlanarToRG32Routine(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t) {}
void PlanarToRG55Routine(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t) {}
void PlanarToRG56Routine(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t) {}
void RG24ToI420Routine(const CColorXForm*, const uint8_t*, uint8_t*, uint32_t) {}

}  // namespace pixmoor
