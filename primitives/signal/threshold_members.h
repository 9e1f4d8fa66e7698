// Wrappers of the threshold family, shared by the four tiers, and the macro
// that defines a tier's sixty members from them.  Tiers differ only in the
// ordering of the real float limits: value comparison in px, bit patterns in
// m6, packed minimum and maximum in a6 and w7.  Complex members, the value
// kinds (by value comparison; packed compare and select for floats in a6 and
// w7) and the 16-bit members give the same results in every tier.
#ifndef PIXMOOR_PRIMITIVES_SIGNAL_THRESHOLD_MEMBERS_H
#define PIXMOOR_PRIMITIVES_SIGNAL_THRESHOLD_MEMBERS_H

#include <pixmoor/primitives/signal.h>

#include <type_traits>

#include "primitives/signal/threshold_kernels.h"
#include "primitives/signal/threshold_ops.h"

namespace pixmoor {
namespace signal {

template <typename Elem> struct ThresholdTraits {
    using Level = Elem;
    static constexpr bool kComplex = false;
};
template <> struct ThresholdTraits<SigComplex32f> {
    using Level = float;
    static constexpr bool kComplex = true;
};
template <> struct ThresholdTraits<SigComplex64f> {
    using Level = double;
    static constexpr bool kComplex = true;
};
template <> struct ThresholdTraits<SigComplex16s> {
    using Level = int16_t;
    static constexpr bool kComplex = true;
};

template <typename Elem> using LevelOf = typename ThresholdTraits<Elem>::Level;

// Null vector, then a length below one, then (complex members only) a level
// that is negative or not a number.
template <typename Elem>
PrimStatus CheckThreshold(const Elem* src, const Elem* dst, int32_t len, LevelOf<Elem> level) {
    if (src == nullptr || dst == nullptr) return PrimStatusNullPointer;
    if (len < 1) return PrimStatusSizeError;
    if (ThresholdTraits<Elem>::kComplex && !(level >= 0)) return PrimStatusNegativeLevel;
    return PrimStatusOk;
}

template <typename Elem, template <typename, bool> class Op, typename... Args>
void ApplyDirected(const Elem* src, Elem* dst, int32_t len, bool above, Args... args) {
    if (above) ApplyEach(src, dst, len, Op<Elem, true>{args...});
    else ApplyEach(src, dst, len, Op<Elem, false>{args...});
}

// The limit of a tier, by element type.
template <int kTier, bool kInPlace, typename Elem>
void RunLimit(const Elem* src, Elem* dst, int32_t len, LevelOf<Elem> level, bool above) {
    if constexpr (std::is_same<Elem, SigComplex16s>::value) {
        if (above) ApplyEach(src, dst, len, Complex16ScaleLimit<true, kInPlace>(level));
        else ApplyEach(src, dst, len, Complex16ScaleLimit<false, kInPlace>(level));
    } else if constexpr (ThresholdTraits<Elem>::kComplex) {
        if (above) ApplyEach(src, dst, len, ComplexScaleLimit<Elem, true, kInPlace>(level));
        else ApplyEach(src, dst, len, ComplexScaleLimit<Elem, false, kInPlace>(level));
    } else if constexpr (!std::is_floating_point<Elem>::value || kTier == PrimTierPx) {
        ApplyDirected<Elem, ValueLimit>(src, dst, len, above, level);
    } else if constexpr (kTier == PrimTierM6) {
        ApplyDirected<Elem, PatternLimit>(src, dst, len, above, level);
    } else if constexpr (std::is_same<Elem, float>::value) {
        MinMaxLimit32f(src, dst, len, level, above);
    } else if constexpr (kTier == PrimTierW7) {
        MinMaxLimit64f(src, dst, len, level, above);
    } else {
        ApplyDirected<Elem, MinMaxLimit>(src, dst, len, above, level);
    }
}

template <int kTier, bool kInPlace, typename Elem>
PrimStatus Limit(const Elem* src, Elem* dst, int32_t len, LevelOf<Elem> level, SigCmpOp relOp) {
    const PrimStatus status = CheckThreshold(src, dst, len, level);
    if (status != PrimStatusOk) return status;
    RunLimit<kTier, kInPlace>(src, dst, len, level, relOp == SigCmpGT);
    return PrimStatusOk;
}

template <int kTier, bool kAbove, typename Elem>
PrimStatus Replace(const Elem* src, Elem* dst, int32_t len, LevelOf<Elem> level, Elem value) {
    const PrimStatus status = CheckThreshold(src, dst, len, level);
    if (status != PrimStatusOk) return status;
    if constexpr (std::is_same<Elem, float>::value && kTier >= PrimTierA6)
        PackedReplace32f(src, dst, len, level, value, kAbove);
    else if constexpr (std::is_same<Elem, SigComplex16s>::value)
        ApplyEach(src, dst, len, Complex16Replace<kAbove>(level, value));
    else if constexpr (ThresholdTraits<Elem>::kComplex)
        ApplyEach(src, dst, len, ComplexReplace<Elem, kAbove>(level, value));
    else
        ApplyEach(src, dst, len, ValueReplace<Elem, kAbove>{level, value});
    return PrimStatusOk;
}

}  // namespace signal
}  // namespace pixmoor

// A limit with its direction fixed: the LT and GT forms pass it to the
// tier's SigThreshold member of the same type.
#define PIXMOOR_THRESHOLD_DIRECTED(prefix, kind, sfx, Elem, Level, relOp)                              \
    PrimStatus prefix##SigThreshold##kind##sfx##I(Elem* v, int32_t len, Level level) {                 \
        return prefix##SigThreshold##sfx##I(v, len, level, relOp);                                     \
    }                                                                                                  \
    PrimStatus prefix##SigThreshold##kind##sfx(const Elem* src, Elem* dst, int32_t len, Level level) { \
        return prefix##SigThreshold##sfx(src, dst, len, level, relOp);                                 \
    }

// A replacement kind, in place and to a destination.
#define PIXMOOR_THRESHOLD_REPLACING(prefix, tier, kind, sfx, Elem, Level, above)                     \
    PrimStatus prefix##SigThreshold##kind##sfx##I(Elem* v, int32_t len, Level level, Elem value) {   \
        return pixmoor::signal::Replace<tier, above>(v, v, len, level, value);                       \
    }                                                                                                \
    PrimStatus prefix##SigThreshold##kind##sfx(const Elem* src, Elem* dst, int32_t len, Level level, \
                                               Elem value) {                                         \
        return pixmoor::signal::Replace<tier, above>(src, dst, len, level, value);                   \
    }

// The ten members of one element type in one tier.
#define PIXMOOR_THRESHOLD_TYPE(prefix, tier, sfx, Elem, Level)                                   \
    PrimStatus prefix##SigThreshold##sfx##I(Elem* v, int32_t len, Level level, SigCmpOp relOp) { \
        return pixmoor::signal::Limit<tier, true>(v, v, len, level, relOp);                      \
    }                                                                                            \
    PrimStatus prefix##SigThreshold##sfx(const Elem* src, Elem* dst, int32_t len, Level level,   \
                                         SigCmpOp relOp) {                                       \
        return pixmoor::signal::Limit<tier, false>(src, dst, len, level, relOp);                 \
    }                                                                                            \
    PIXMOOR_THRESHOLD_DIRECTED(prefix, LT, sfx, Elem, Level, SigCmpLT)                           \
    PIXMOOR_THRESHOLD_DIRECTED(prefix, GT, sfx, Elem, Level, SigCmpGT)                           \
    PIXMOOR_THRESHOLD_REPLACING(prefix, tier, LTVal, sfx, Elem, Level, false)                    \
    PIXMOOR_THRESHOLD_REPLACING(prefix, tier, GTVal, sfx, Elem, Level, true)

// The sixty members of one tier.
#define PIXMOOR_THRESHOLD_TIER(prefix, tier)                           \
    extern "C" {                                                       \
    PIXMOOR_THRESHOLD_TYPE(prefix, tier, 32f, float, float)            \
    PIXMOOR_THRESHOLD_TYPE(prefix, tier, 32fc, SigComplex32f, float)   \
    PIXMOOR_THRESHOLD_TYPE(prefix, tier, 64f, double, double)          \
    PIXMOOR_THRESHOLD_TYPE(prefix, tier, 64fc, SigComplex64f, double)  \
    PIXMOOR_THRESHOLD_TYPE(prefix, tier, 16s, int16_t, int16_t)        \
    PIXMOOR_THRESHOLD_TYPE(prefix, tier, 16sc, SigComplex16s, int16_t) \
    }

#endif
