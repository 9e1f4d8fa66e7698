// Tier a6 of the 4:2:0 members: 64-bit vectors (done in the low halves of
// 128-bit registers), narrow arithmetic, 4 pixel pairs (8 pixels of each
// line) a step while the counter is below pairs AND NOT 3, then one pair at
// a time.  Each step prefetches the next 32 bytes of every source line.
// Packed RGB output goes out through non-temporal 8-byte stores, 24 bytes a
// line a step, line by line; the driver fences them after the last row.
//
// The packed inverse kernel keeps the tier's own factors, which differ by
// one from w7's, and an odd factor row: at the fourth pixel of every group
// of four in the main loop (line positions 3, 7, 11, ...), R gains
// mulhi(u', 4) and G's U factor is -3232 instead of -3228.  The tail uses
// the normal factors everywhere.  The RGB planes inverse uses the w7
// factors.
//
// Without SSE2 the same arithmetic runs in plain code: every forward pair
// through the tail's form, and the inverse with each pixel of the main-loop
// steps on its own factor lane.
#include "primitives/colour/a6_shared.h"
#include "primitives/colour/narrow_arith.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv420_rows.h"

#ifdef PIXMOOR_HAVE_SSE2
#include <emmintrin.h>
#include <xmmintrin.h>

#include "primitives/colour/narrow_sse2.h"
#endif
#include "primitives/colour/yuv420_fast_rows.h"
#include "primitives/colour/yuv420_narrow_factors.h"

namespace pixmoor::colour {
namespace {

struct PackedFactors {
    static constexpr const int16_t (&kLanes)[5][8] = a6::kPackedInverseLanes;
    static constexpr const narrow::InverseFactors& kTail = narrow::kA6PackedTail;
};
struct PlanesFactors {
    static constexpr const int16_t (&kLanes)[5][8] = narrow::kW7InverseLanes;
    static constexpr const narrow::InverseFactors& kTail = narrow::kW7Inverse;
};

#ifdef PIXMOOR_HAVE_SSE2
using namespace sse2;

using a6::Prefetch;
using a6::Stream8;

// R, G, B of the 8 pixels from x on, one channel a 16-bit lane.
Channels Load(PackedRgbIn::Line line, int32_t x) {
    const uint8_t* p = line + 3 * static_cast<intptr_t>(x);
    Prefetch(p);
    __m128i a = Load16(p), b = Load8(p + 16), c = _mm_setzero_si128();
    Deinterleave(a, b, c);
    return WidenLow(a, b, c);
}

Channels Load(const RgbPlanesIn::Line& line, int32_t x) {
    Prefetch(line.r + x);
    Prefetch(line.g + x);
    Prefetch(line.b + x);
    return WidenLow(Load8(line.r + x), Load8(line.g + x), Load8(line.b + x));
}

// Chroma factors in lane order: four U lanes, then four V lanes.
const int16_t kChromaFactors[8] = {
    narrow::kFactorU, narrow::kFactorU, narrow::kFactorU, narrow::kFactorU,
    narrow::kFactorV, narrow::kFactorV, narrow::kFactorV, narrow::kFactorV,
};

template <class In, class Luma, class NarrowLuma>
void ToYuv420Kernel(typename In::Line top, typename In::Line bottom,
                    const Yuv420Lines<uint8_t>& out, int32_t pairs) {
    const __m128i factors = _mm_loadu_si128(reinterpret_cast<const __m128i*>(kChromaFactors));
    const int32_t mainPairs = pairs & ~3;
    int32_t j = fast::NarrowToYuv420Leading<In>(top, bottom, out, mainPairs);
    for (; j < mainPairs; j += 4) {
        const int32_t x = 2 * j;
        const Channels t = Load(top, x);
        const Channels b = Load(bottom, x);
        const __m128i dt = Luma::D(t), db = Luma::D(b);
        Store8(out.y0 + x, LumaBytes(dt, dt));
        Store8(out.y1 + x, LumaBytes(db, db));

        const ChromaDiffs d = Diffs(dt, db, t, b);
        const __m128i uv16 = ScaleChroma(_mm_packs_epi32(d.b, d.r), factors);
        const __m128i uv = _mm_packus_epi16(uv16, uv16);
        Store4(out.u + j, uv);
        Store4(out.v + j, _mm_srli_epi64(uv, 32));
    }
    narrow::ToYuv420Pairs<In, NarrowLuma>(top, bottom, out, j, pairs);
}

void StorePixels(PackedRgbOut::Line line, int32_t x, RgbBytes c) {
    Interleave(c.r, c.g, c.b);
    uint8_t* p = line + 3 * static_cast<intptr_t>(x);
    Stream8(p, c.r);
    Stream8(p + 8, _mm_unpackhi_epi64(c.r, c.r));
    Stream8(p + 16, c.g);
}

void StorePixels(const RgbPlanesOut::Line& line, int32_t x, const RgbBytes& c) {
    Store8(line.r + x, c.r);
    Store8(line.g + x, c.g);
    Store8(line.b + x, c.b);
}

template <class Out, class Factors>
void FromYuv420Kernel(const Yuv420Lines<const uint8_t>& in, typename Out::Line top,
                      typename Out::Line bottom, int32_t pairs) {
    const InverseLanes factors = a6::LoadInverseLanes(Factors::kLanes);
    const __m128i z = _mm_setzero_si128();
    const int32_t mainPairs = pairs & ~3;
    int32_t j = fast::NarrowFromYuv420Leading<Out>(in, top, bottom, mainPairs, Factors::kLanes);
    for (; j < mainPairs; j += 4) {
        const int32_t x = 2 * j;
        Prefetch(in.y0 + x);
        Prefetch(in.y1 + x);
        Prefetch(in.u + j);
        Prefetch(in.v + j);
        const __m128i du = Centred(_mm_unpacklo_epi8(Load4(in.u + j), z));
        const __m128i dv = Centred(_mm_unpacklo_epi8(Load4(in.v + j), z));
        // Chroma goes to pixel lanes first, so that each pixel meets its
        // own factor lane.
        const InverseTerms t = Terms(_mm_unpacklo_epi16(du, du), _mm_unpacklo_epi16(dv, dv), factors);

        const __m128i y0 = _mm_unpacklo_epi8(Load8(in.y0 + x), z);
        StorePixels(top, x, ToRgbBytes(y0, y0, t, t));
        const __m128i y1 = _mm_unpacklo_epi8(Load8(in.y1 + x), z);
        StorePixels(bottom, x, ToRgbBytes(y1, y1, t, t));
    }
    narrow::FromYuv420Pairs<Out>(in, top, bottom, j, pairs, Factors::kTail);
}
#else
template <class Out, class Factors>
void FromYuv420Kernel(const Yuv420Lines<const uint8_t>& in, typename Out::Line top,
                      typename Out::Line bottom, int32_t pairs) {
    a6::FromYuv420LanePairs<Out>(in, top, bottom, pairs & ~3, pairs, Factors::kLanes, Factors::kTail);
}
#endif

}  // namespace

#ifdef PIXMOOR_HAVE_SSE2
const Yuv420Rows kYuv420RowsA6 = {
    &ToYuv420Kernel<PackedRgbIn, LumaOfPacked, narrow::LumaOfPacked>,
    &ToYuv420Kernel<RgbPlanesIn, LumaOfPlanes, narrow::LumaOfPlanes>,
    &FromYuv420Kernel<PackedRgbOut, PackedFactors>,
    &FromYuv420Kernel<RgbPlanesOut, PlanesFactors>,
    &FinishA6,
};
#else
const Yuv420Rows kYuv420RowsA6 = {
    &narrow::ToYuv420Row<PackedRgbIn, narrow::LumaOfPacked>,
    &narrow::ToYuv420Row<RgbPlanesIn, narrow::LumaOfPlanes>,
    &FromYuv420Kernel<PackedRgbOut, PackedFactors>,
    &FromYuv420Kernel<RgbPlanesOut, PlanesFactors>,
    &FinishA6,
};
#endif

}  // namespace pixmoor::colour
