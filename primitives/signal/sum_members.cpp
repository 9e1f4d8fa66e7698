// The sum members of every tier: one wrapper per member, shared by the four
// tiers, which differ only in the plan their kernels follow.
#include <pixmoor/primitives/signal.h>

#include "primitives/signal/element_access.h"
#include "primitives/signal/sum_kernels.h"
#include "runtime/tier_call.h"

namespace pixmoor {
namespace signal {
namespace {

// Source or result missing, then a length below one; nothing is written.
PrimStatus CheckSum(const void* src, const void* out, int32_t len) {
    if (src == nullptr || out == nullptr) return PrimStatusNullPointer;
    if (len < 1) return PrimStatusSizeError;
    return PrimStatusOk;
}

template <int kTier>
bool UsesFastForm(PrimAlgHint hint) {
    return kTier >= PrimTierA6 && hint == PrimAlgHintFast;
}

template <int kTier>
PrimStatus Sum32f(const float* src, int32_t len, float* sum, PrimAlgHint hint) {
    const PrimStatus status = CheckSum(src, sum, len);
    if (status != PrimStatusOk) return status;
    double total;
    if (kTier == PrimTierPx) total = SumPairPlan32f(src, len);
    else if (UsesFastForm<kTier>(hint)) total = SumFast32f(src, len);
    else total = SumEightPlan32f(src, len, 1);
    StoreAt(sum, 0, static_cast<float>(total));
    return PrimStatusOk;
}

template <int kTier>
PrimStatus Sum64f(const double* src, int32_t len, double* sum) {
    const PrimStatus status = CheckSum(src, sum, len);
    if (status != PrimStatusOk) return status;
    double total;
    if (kTier == PrimTierPx) total = SumPairPlan64f(src, len);
    else if (kTier == PrimTierW7) total = SumPacked64f(src, len);
    else total = SumEightPlan64f(src, len, 1);
    StoreAt(sum, 0, total);
    return PrimStatusOk;
}

template <int kTier>
PrimStatus Sum32fc(const SigComplex32f* src, int32_t len, SigComplex32f* sum, PrimAlgHint hint) {
    const PrimStatus status = CheckSum(src, sum, len);
    if (status != PrimStatusOk) return status;
    const float* parts = reinterpret_cast<const float*>(src);
    double re, im;
    if (kTier == PrimTierPx) {
        re = SumRunning32f(parts, len, 2);
        im = SumRunning32f(parts + 1, len, 2);
    } else if (UsesFastForm<kTier>(hint)) {
        SumFast32fc(parts, len, &re, &im);
    } else {
        re = SumEightPlan32f(parts, len, 2);
        im = SumEightPlan32f(parts + 1, len, 2);
    }
    const SigComplex32f result = {static_cast<float>(re), static_cast<float>(im)};
    StoreAt(sum, 0, result);
    return PrimStatusOk;
}

// Exact totals of a 16-bit vector of `width` parts per element.
template <int kTier>
void ExactTotals(const int16_t* src, int32_t len, int32_t width, int64_t totals[2]) {
    if (kTier == PrimTierW7) {
        SumExact16sPacked(src, len, width == 2, totals);
    } else {
        totals[0] = SumExact16s(src, len, width);
        totals[1] = width == 2 ? SumExact16s(src + 1, len, width) : 0;
    }
}

template <int kTier>
PrimStatus Sum16s32s(const int16_t* src, int32_t len, int32_t* sum, int32_t scaleFactor) {
    const PrimStatus status = CheckSum(src, sum, len);
    if (status != PrimStatusOk) return status;
    int64_t totals[2];
    ExactTotals<kTier>(src, len, 1, totals);
    StoreAt(sum, 0, ScaleSum(totals[0], scaleFactor));
    return PrimStatusOk;
}

template <int kTier>
PrimStatus Sum16sc32sc(const SigComplex16s* src, int32_t len, SigComplex32s* sum, int32_t scaleFactor) {
    const PrimStatus status = CheckSum(src, sum, len);
    if (status != PrimStatusOk) return status;
    int64_t totals[2];
    ExactTotals<kTier>(reinterpret_cast<const int16_t*>(src), len, 2, totals);
    const SigComplex32s result = {ScaleSum(totals[0], scaleFactor), ScaleSum(totals[1], scaleFactor)};
    StoreAt(sum, 0, result);
    return PrimStatusOk;
}

inline int16_t Saturate16(int32_t v) {
    return static_cast<int16_t>(v > 32767 ? 32767 : (v < -32768 ? -32768 : v));
}

// The 16-bit results are the 32-bit members' results saturated once more.
template <int kTier>
PrimStatus Sum16s(const int16_t* src, int32_t len, int16_t* sum, int32_t scaleFactor) {
    int32_t wide = 0;
    const PrimStatus status = Sum16s32s<kTier>(src, len, sum != nullptr ? &wide : nullptr, scaleFactor);
    if (status == PrimStatusOk) StoreAt(sum, 0, Saturate16(wide));
    return status;
}

template <int kTier>
PrimStatus Sum16sc(const SigComplex16s* src, int32_t len, SigComplex16s* sum, int32_t scaleFactor) {
    SigComplex32s wide = {0, 0};
    const PrimStatus status = Sum16sc32sc<kTier>(src, len, sum != nullptr ? &wide : nullptr, scaleFactor);
    if (status == PrimStatusOk) {
        const SigComplex16s result = {Saturate16(wide.re), Saturate16(wide.im)};
        StoreAt(sum, 0, result);
    }
    return status;
}

}  // namespace
}  // namespace signal
}  // namespace pixmoor

#define PIXMOOR_SUM_ENTRY(prefix, tier, name, impl, params, args) \
    PrimStatus prefix##name params { return pixmoor::signal::impl<tier> args; }

#define PIXMOOR_SUM_TIER(prefix, tier)                                                                      \
    PIXMOOR_SUM_ENTRY(prefix, tier, SigSum32f, Sum32f,                                                      \
                      (const float* src, int32_t len, float* sum, PrimAlgHint hint), (src, len, sum, hint)) \
    PIXMOOR_SUM_ENTRY(prefix, tier, SigSum64f, Sum64f, (const double* src, int32_t len, double* sum),       \
                      (src, len, sum))                                                                      \
    PIXMOOR_SUM_ENTRY(prefix, tier, SigSum32fc, Sum32fc,                                                    \
                      (const SigComplex32f* src, int32_t len, SigComplex32f* sum, PrimAlgHint hint),        \
                      (src, len, sum, hint))                                                                \
    PIXMOOR_SUM_ENTRY(prefix, tier, SigSum16s32sSfs, Sum16s32s,                                             \
                      (const int16_t* src, int32_t len, int32_t* sum, int32_t sf), (src, len, sum, sf))     \
    PIXMOOR_SUM_ENTRY(prefix, tier, SigSum16sc32scSfs, Sum16sc32sc,                                         \
                      (const SigComplex16s* src, int32_t len, SigComplex32s* sum, int32_t sf),              \
                      (src, len, sum, sf))                                                                  \
    PIXMOOR_SUM_ENTRY(prefix, tier, SigSum16sSfs, Sum16s,                                                   \
                      (const int16_t* src, int32_t len, int16_t* sum, int32_t sf), (src, len, sum, sf))     \
    PIXMOOR_SUM_ENTRY(prefix, tier, SigSum16scSfs, Sum16sc,                                                 \
                      (const SigComplex16s* src, int32_t len, SigComplex16s* sum, int32_t sf),              \
                      (src, len, sum, sf))

extern "C" {
PIXMOOR_SUM_TIER(px_, PrimTierPx)
PIXMOOR_SUM_TIER(m6_, PrimTierM6)
PIXMOOR_SUM_TIER(a6_, PrimTierA6)
PIXMOOR_SUM_TIER(w7_, PrimTierW7)
}

// SigSum32f is a dispatch row; its plain name is the row's stub.
PIXMOOR_DEFINE_BY_TIER(PrimStatus, SigSum64f, (const double* src, int32_t len, double* sum), (src, len, sum))
PIXMOOR_DEFINE_BY_TIER(PrimStatus, SigSum32fc,
                       (const SigComplex32f* src, int32_t len, SigComplex32f* sum, PrimAlgHint hint),
                       (src, len, sum, hint))
#define PIXMOOR_SUM_PLAIN_SCALED(name, Src, Out)                                         \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, name,                                             \
                           (const Src* src, int32_t len, Out* sum, int32_t scaleFactor), \
                           (src, len, sum, scaleFactor))
PIXMOOR_SUM_PLAIN_SCALED(SigSum16s32sSfs, int16_t, int32_t)
PIXMOOR_SUM_PLAIN_SCALED(SigSum16sc32scSfs, SigComplex16s, SigComplex32s)
PIXMOOR_SUM_PLAIN_SCALED(SigSum16sSfs, int16_t, int16_t)
PIXMOOR_SUM_PLAIN_SCALED(SigSum16scSfs, SigComplex16s, SigComplex16s)
