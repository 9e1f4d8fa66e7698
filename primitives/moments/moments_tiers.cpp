// The tier entries of the moments members, and the plain names of the
// members that stand in no dispatch row.
//
// All tiers share the checks, the driver and the read-outs.  They differ in
// their allocator family (interchangeable blocks) and in the row kernels:
// px and m6 always add in plain double order; a6 does so only when the state
// asks for accuracy and otherwise uses four float lanes; w7 always uses two
// double lanes.
#include "primitives/moments/moment_members.h"
#include "runtime/tier_call.h"

namespace pm = pixmoor::moments;

#define PIXMOOR_MOMENTS_COMPUTE(tier, name, elem, member, accurate, fast)                                    \
    PrimStatus tier##ImgMoments##name(const elem* src, int32_t srcStep, int32_t width, int32_t height,         \
                                      ImgMomentState* state) {                                                 \
        return pm::ComputeMoments(pm::member, src, srcStep, width, height, state, accurate[pm::member],         \
                                  fast[pm::member]);                                                           \
    }

#define PIXMOOR_MOMENTS_TIER(tier, accurate, fast)                                                             \
    PrimStatus tier##ImgMomentStateAlloc(ImgMomentState** state, PrimAlgHint hint) {                           \
        return pm::AllocState(state, hint, tier##SigMalloc8u);                                                 \
    }                                                                                                          \
    PrimStatus tier##ImgMomentStateFree(ImgMomentState* state) { return pm::FreeState(state, tier##SigFree); } \
    PIXMOOR_MOMENTS_COMPUTE(tier, 8uC1, uint8_t, kMember8uC1, accurate, fast)                                  \
    PIXMOOR_MOMENTS_COMPUTE(tier, 8uC3, uint8_t, kMember8uC3, accurate, fast)                                  \
    PIXMOOR_MOMENTS_COMPUTE(tier, 8uAC4, uint8_t, kMember8uAC4, accurate, fast)                                \
    PIXMOOR_MOMENTS_COMPUTE(tier, 32fC1, float, kMember32fC1, accurate, fast)                                  \
    PIXMOOR_MOMENTS_COMPUTE(tier, 32fC3, float, kMember32fC3, accurate, fast)                                  \
    PIXMOOR_MOMENTS_COMPUTE(tier, 32fAC4, float, kMember32fAC4, accurate, fast)                                \
    PrimStatus tier##ImgGetSpatialMoment(const ImgMomentState* state, int32_t m, int32_t n, int32_t channel,   \
                                         ImgPoint offset, double* value) {                                     \
        return pm::SpatialMoment(state, m, n, channel, offset, value);                                         \
    }                                                                                                          \
    PrimStatus tier##ImgGetCentralMoment(const ImgMomentState* state, int32_t m, int32_t n, int32_t channel,   \
                                         double* value) {                                                      \
        return pm::CentralMoment(state, m, n, channel, value);                                                 \
    }                                                                                                          \
    PrimStatus tier##ImgGetNormalizedSpatialMoment(const ImgMomentState* state, int32_t m, int32_t n,          \
                                                   int32_t channel, ImgPoint offset, double* value) {          \
        return pm::NormalizedSpatialMoment(state, m, n, channel, offset, value);                               \
    }                                                                                                          \
    PrimStatus tier##ImgGetNormalizedCentralMoment(const ImgMomentState* state, int32_t m, int32_t n,          \
                                                   int32_t channel, double* value) {                           \
        return pm::NormalizedCentralMoment(state, m, n, channel, value);                                       \
    }                                                                                                          \
    PrimStatus tier##ImgGetHuMoments(const ImgMomentState* state, int32_t channel, double hu[7]) {             \
        return pm::HuMoments(state, channel, hu);                                                              \
    }

extern "C" {
PIXMOOR_MOMENTS_TIER(px_, pm::kReferenceRowSums, pm::kReferenceRowSums)
PIXMOOR_MOMENTS_TIER(m6_, pm::kReferenceRowSums, pm::kReferenceRowSums)
PIXMOOR_MOMENTS_TIER(a6_, pm::kReferenceRowSums, pm::kFourLaneFloatRowSums)
PIXMOOR_MOMENTS_TIER(w7_, pm::kTwoLaneRowSums, pm::kTwoLaneRowSums)
}

// ImgMomentStateAlloc, ImgMomentStateFree, ImgMoments32fC1 and
// ImgGetSpatialMoment are dispatch rows; their plain names are the stubs.
#define PIXMOOR_MOMENTS_COMPUTE_BY_TIER(name, elem)                                                        \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, name,                                                                \
                           (const elem* src, int32_t srcStep, int32_t width, int32_t height,                \
                            ImgMomentState* state),                                                         \
                           (src, srcStep, width, height, state))
PIXMOOR_MOMENTS_COMPUTE_BY_TIER(ImgMoments8uC1, uint8_t)
PIXMOOR_MOMENTS_COMPUTE_BY_TIER(ImgMoments8uC3, uint8_t)
PIXMOOR_MOMENTS_COMPUTE_BY_TIER(ImgMoments8uAC4, uint8_t)
PIXMOOR_MOMENTS_COMPUTE_BY_TIER(ImgMoments32fC3, float)
PIXMOOR_MOMENTS_COMPUTE_BY_TIER(ImgMoments32fAC4, float)
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgGetCentralMoment,
                       (const ImgMomentState* state, int32_t m, int32_t n, int32_t channel, double* value),
                       (state, m, n, channel, value))
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgGetNormalizedSpatialMoment,
                       (const ImgMomentState* state, int32_t m, int32_t n, int32_t channel, ImgPoint offset,
                        double* value),
                       (state, m, n, channel, offset, value))
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgGetNormalizedCentralMoment,
                       (const ImgMomentState* state, int32_t m, int32_t n, int32_t channel, double* value),
                       (state, m, n, channel, value))
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgGetHuMoments, (const ImgMomentState* state, int32_t channel, double hu[7]),
                       (state, channel, hu))
