// The drivers of the 4:2:0 conversion into 4-byte pixels: the shared
// driver over the 4-byte layout, with a row made of the vector steps the
// processor has (AVX-512, then AVX2 on what they leave) and the tier's
// arithmetic in plain code for the rest of the row.  The plain rows are
// the tiers' own kernels where they are written over the layout (px, m6),
// and the plain forms of a6's and w7's vector kernels: a6 with its factor
// lanes in the pairs its main loop takes (those below pairs AND NOT 3) and
// its tail factors after them, w7 with its one set of factors.  Vector
// steps start at the line's start and take 16 or 32 pairs at a time, so a
// step's pixels sit at the same positions in a group of eight as in the
// tier's own main loop, and every pair they take is one that loop takes.
#include "primitives/colour/yuv420_rgb0.h"

#include <cstring>

#include "primitives/colour/a6_shared.h"
#include "primitives/colour/clamp_table.h"
#include "primitives/colour/image_layouts.h"
#include "primitives/colour/narrow_arith.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv420_driver.h"
#include "primitives/colour/yuv420_fast_rows.h"
#include "primitives/colour/yuv420_narrow_factors.h"
#include "primitives/colour/yuv420_wide_rows.h"
#include "runtime/isa.h"

namespace pixmoor::colour {
namespace {

using Rgb0Row = FromYuv420Row<PackedRgb0Out>;

void A6PlainRow(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom, int32_t pairs) {
    a6::FromYuv420LanePairs<PackedRgb0Out>(in, top, bottom, pairs & ~3, pairs, a6::kPackedInverseLanes,
                                           narrow::kA6PackedTail);
}

void W7PlainRow(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom, int32_t pairs) {
    narrow::FromYuv420Pairs<PackedRgb0Out>(in, top, bottom, 0, pairs, narrow::kW7Inverse);
}

// What a tier's conversion into 4-byte pixels is made of.
struct Rgb0Tier {
    Rgb0Row plain;                 // any pairs, in plain code
    const int16_t (*lanes)[5][8];  // the narrow factor lanes; null for the wide arithmetic
};

Rgb0Tier TierOf(int tier) {
    switch (tier) {
        case PrimTierM6:
            return {&wide::FromYuv420Kernel<ImgClampTableM6, PackedRgb0Out>, nullptr};
        case PrimTierA6:
            return {&A6PlainRow, &a6::kPackedInverseLanes};
        case PrimTierW7:
            return {&W7PlainRow, &narrow::kW7InverseLanes};
        default:
            return {&wide::FromYuv420Kernel<ImgClampTable, PackedRgb0Out>, nullptr};
    }
}

template <typename Sample>
Yuv420Lines<Sample> FromPair(const Yuv420Lines<Sample>& l, int32_t pair) {
    return Yuv420Lines<Sample>{l.y0 + 2 * pair, l.y1 + 2 * pair, l.u + pair, l.v + pair};
}

// The leading pairs done with the vectors the processor has; returns how
// many.  With `kept`, their samples are copied there as they go.
int32_t VectorSteps(const Rgb0Tier& t, const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                    int32_t pairs, const Yuv420Lines<uint8_t>* kept) {
    int32_t done = 0;
#if PIXMOOR_HAVE_X86_TARGETS
    if (isa::Has(isa::kAvx512))
        done = t.lanes != nullptr ? fast::NarrowFromYuv420Rgb0Avx512(in, top, bottom, pairs, *t.lanes, kept)
                                  : fast::WideFromYuv420Rgb0Avx512(in, top, bottom, pairs, kept);
    if (isa::Has(isa::kAvx2) && pairs - done >= 16) {
        const Yuv420Lines<const uint8_t> rest = FromPair(in, done);
        uint8_t* const restTop = top + 8 * static_cast<intptr_t>(done);
        uint8_t* const restBottom = bottom + 8 * static_cast<intptr_t>(done);
        Yuv420Lines<uint8_t> keptRest{};
        if (kept != nullptr) keptRest = FromPair(*kept, done);
        const Yuv420Lines<uint8_t>* const k = kept != nullptr ? &keptRest : nullptr;
        done += t.lanes != nullptr
                    ? fast::NarrowFromYuv420Rgb0Avx2(rest, restTop, restBottom, pairs - done, *t.lanes, k)
                    : fast::WideFromYuv420Rgb0Avx2(rest, restTop, restBottom, pairs - done, k);
    }
#else
    (void)t, (void)in, (void)top, (void)bottom, (void)pairs, (void)kept;
#endif
    return done;
}

// A line pair of `pairs` pixel pairs: the vector steps, then the plain row
// for the rest, whose samples are copied after it.
void PairRow(const Rgb0Tier& t, const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom, int32_t pairs,
             const Yuv420Lines<uint8_t>* kept) {
    const int32_t done = VectorSteps(t, in, top, bottom, pairs, kept);
    const Yuv420Lines<const uint8_t> rest = FromPair(in, done);
    t.plain(rest, top + 8 * static_cast<intptr_t>(done), bottom + 8 * static_cast<intptr_t>(done), pairs - done);
    if (kept == nullptr) return;
    const auto restPairs = static_cast<size_t>(pairs - done);
    const Yuv420Lines<uint8_t> to = FromPair(*kept, done);
    std::memcpy(to.y0, rest.y0, 2 * restPairs);
    std::memcpy(to.y1, rest.y1, 2 * restPairs);
    std::memcpy(to.u, rest.u, restPairs);
    std::memcpy(to.v, rest.v, restPairs);
}

template <int kTier>
void TierRow(const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom, int32_t pairs) {
    PairRow(TierOf(kTier), in, top, bottom, pairs, nullptr);
}

Rgb0Row RowOf(PrimTier tier) {
    switch (tier) {
        case PrimTierM6:
            return &TierRow<PrimTierM6>;
        case PrimTierA6:
            return &TierRow<PrimTierA6>;
        case PrimTierW7:
            return &TierRow<PrimTierW7>;
        default:
            return &TierRow<PrimTierPx>;
    }
}

}  // namespace

void Yuv420ToRgb0(PrimTier tier, const uint8_t* const planes[3], uint8_t* dst, int32_t dstStep, int32_t width,
                  int32_t height) {
    const int32_t chromaStep = CompactChromaStep(width);
    const Yuv420Planes<const uint8_t> in{planes[0], planes[1], planes[2], CompactPlaneStep(width), chromaStep,
                                         chromaStep};
    DriveFromYuv420(in, PackedRgb0Out{{dst, dstStep}}, width, height, RowOf(tier), &FinishPlain);
}

void Yuv420PairToRgb0Keeping(PrimTier tier, const Yuv420Lines<const uint8_t>& in, uint8_t* top, uint8_t* bottom,
                             int32_t width, const Yuv420Lines<uint8_t>& kept) {
    PairRow(TierOf(tier), in, top, bottom, width >> 1, &kept);
}

}  // namespace pixmoor::colour
