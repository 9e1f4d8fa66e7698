// Plain names of primitives that stand in no dispatch row run the entry of
// the tier that PrimGetTier reports.
#ifndef PIXMOOR_RUNTIME_TIER_CALL_H
#define PIXMOOR_RUNTIME_TIER_CALL_H

#include <pixmoor/runtime.h>

namespace pixmoor {

template <typename Fn>
inline Fn PickTier(Fn px, Fn m6, Fn a6, Fn w7) {
    switch (PrimGetTier()) {
        case PrimTierM6: return m6;
        case PrimTierA6: return a6;
        case PrimTierW7: return w7;
        default: return px;
    }
}

}  // namespace pixmoor

#define PIXMOOR_BY_TIER(name) ::pixmoor::PickTier(px_##name, m6_##name, a6_##name, w7_##name)

// Defines the plain name of a member: `PIXMOOR_DEFINE_BY_TIER(PrimStatus,
// ImgMirror8uC1, (const uint8_t* s, ...), (s, ...))`.
#define PIXMOOR_DEFINE_BY_TIER(ret, name, params, args) \
    extern "C" ret name params { return PIXMOOR_BY_TIER(name) args; }

#endif
