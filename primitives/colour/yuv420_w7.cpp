// Tier w7 of the 4:2:0 members: 128-bit vectors, narrow arithmetic.
//
// Forward: the main loop takes 8 pixel pairs (16 pixels of each line) a
// step while its counter is below pairs AND NOT 7.  Inverse: 8 pairs a step,
// with 16-byte luma and 8-byte chroma loads, but only while the counter is
// below pairs AND NOT 15, so a line of 8 to 15 pairs runs wholly in the
// tail.  The tails take one pair at a time in the same arithmetic.  No load
// or store needs alignment.
//
// Without SSE2 every pair runs the tails' plain form of the same arithmetic.
#include "primitives/colour/narrow_arith.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv420_fast_rows.h"
#include "primitives/colour/yuv420_narrow_factors.h"
#include "primitives/colour/yuv420_rows.h"

#ifdef PIXMOOR_HAVE_SSE2
#include <emmintrin.h>

#include "primitives/colour/narrow_sse2.h"
#endif

namespace pixmoor::colour {
namespace {

using narrow::kW7Inverse;

#ifdef PIXMOOR_HAVE_SSE2
using namespace sse2;

// R, G, B bytes of the 16 pixels from x on.
struct Pixels16 {
    __m128i r, g, b;
};

Pixels16 Load(PackedRgbIn::Line line, int32_t x) {
    const uint8_t* p = line + 3 * static_cast<intptr_t>(x);
    __m128i a = Load16(p), b = Load16(p + 16), c = Load16(p + 32);
    Deinterleave(a, b, c);
    return Pixels16{a, b, c};
}

Pixels16 Load(const RgbPlanesIn::Line& line, int32_t x) {
    return Pixels16{Load16(line.r + x), Load16(line.g + x), Load16(line.b + x)};
}

// Forward factors of the main loop, one per 16-bit lane.
const int16_t kChromaFactorU = narrow::kFactorU;
const int16_t kChromaFactorV = narrow::kFactorV;

template <class In, class Luma, class NarrowLuma>
void ToYuv420Kernel(typename In::Line top, typename In::Line bottom,
                    const Yuv420Lines<uint8_t>& out, int32_t pairs) {
    const int32_t mainPairs = pairs & ~7;
    int32_t j = fast::NarrowToYuv420Leading<In>(top, bottom, out, mainPairs);
    for (; j < mainPairs; j += 8) {
        const int32_t x = 2 * j;
        const Pixels16 t = Load(top, x);
        const Pixels16 b = Load(bottom, x);
        const Channels tLow = WidenLow(t.r, t.g, t.b), tHigh = WidenHigh(t.r, t.g, t.b);
        const Channels bLow = WidenLow(b.r, b.g, b.b), bHigh = WidenHigh(b.r, b.g, b.b);
        const __m128i dtLow = Luma::D(tLow), dtHigh = Luma::D(tHigh);
        const __m128i dbLow = Luma::D(bLow), dbHigh = Luma::D(bHigh);

        const __m128i yTop = LumaBytes(dtLow, dtHigh);
        const __m128i yBottom = LumaBytes(dbLow, dbHigh);
        Store8(out.y0 + x, yTop);
        Store8(out.y0 + x + 8, _mm_unpackhi_epi64(yTop, yTop));
        Store8(out.y1 + x, yBottom);
        Store8(out.y1 + x + 8, _mm_unpackhi_epi64(yBottom, yBottom));

        const ChromaDiffs low = Diffs(dtLow, dbLow, tLow, bLow);
        const ChromaDiffs high = Diffs(dtHigh, dbHigh, tHigh, bHigh);
        const __m128i u = ScaleChroma(_mm_packs_epi32(low.b, high.b), _mm_set1_epi16(kChromaFactorU));
        const __m128i v = ScaleChroma(_mm_packs_epi32(low.r, high.r), _mm_set1_epi16(kChromaFactorV));
        const __m128i uv = _mm_packus_epi16(u, v);
        Store8(out.u + j, uv);
        Store8(out.v + j, _mm_unpackhi_epi64(uv, uv));
    }
    narrow::ToYuv420Pairs<In, NarrowLuma>(top, bottom, out, j, pairs);
}

void StorePixels(PackedRgbOut::Line line, int32_t x, RgbBytes c) {
    Interleave(c.r, c.g, c.b);
    uint8_t* p = line + 3 * static_cast<intptr_t>(x);
    Store8(p, c.r);
    Store8(p + 8, _mm_unpackhi_epi64(c.r, c.r));
    Store8(p + 16, c.g);
    Store8(p + 24, _mm_unpackhi_epi64(c.g, c.g));
    Store8(p + 32, c.b);
    Store8(p + 40, _mm_unpackhi_epi64(c.b, c.b));
}

void StorePixels(const RgbPlanesOut::Line& line, int32_t x, const RgbBytes& c) {
    Store8(line.r + x, c.r);
    Store8(line.r + x + 8, _mm_unpackhi_epi64(c.r, c.r));
    Store8(line.g + x, c.g);
    Store8(line.g + x + 8, _mm_unpackhi_epi64(c.g, c.g));
    Store8(line.b + x, c.b);
    Store8(line.b + x + 8, _mm_unpackhi_epi64(c.b, c.b));
}

template <class Out>
void FromYuv420Kernel(const Yuv420Lines<const uint8_t>& in, typename Out::Line top,
                      typename Out::Line bottom, int32_t pairs) {
    const InverseLanes factors = Uniform(kW7Inverse);
    const __m128i z = _mm_setzero_si128();
    const int32_t mainPairs = pairs & ~15;
    int32_t j = fast::NarrowFromYuv420Leading<Out>(in, top, bottom, mainPairs, narrow::kW7InverseLanes);
    for (; j < mainPairs; j += 8) {
        const int32_t x = 2 * j;
        const __m128i du = Centred(_mm_unpacklo_epi8(Load8(in.u + j), z));
        const __m128i dv = Centred(_mm_unpacklo_epi8(Load8(in.v + j), z));
        const InverseTerms perPair = Terms(du, dv, factors);
        const InverseTerms low = DuplicateLow(perPair), high = DuplicateHigh(perPair);

        const __m128i y0 = Load16(in.y0 + x);
        StorePixels(top, x, ToRgbBytes(_mm_unpacklo_epi8(y0, z), _mm_unpackhi_epi8(y0, z), low, high));
        const __m128i y1 = Load16(in.y1 + x);
        StorePixels(bottom, x, ToRgbBytes(_mm_unpacklo_epi8(y1, z), _mm_unpackhi_epi8(y1, z), low, high));
    }
    narrow::FromYuv420Pairs<Out>(in, top, bottom, j, pairs, kW7Inverse);
}
#else
template <class Out>
void FromYuv420Kernel(const Yuv420Lines<const uint8_t>& in, typename Out::Line top,
                      typename Out::Line bottom, int32_t pairs) {
    narrow::FromYuv420Pairs<Out>(in, top, bottom, 0, pairs, kW7Inverse);
}
#endif

}  // namespace

#ifdef PIXMOOR_HAVE_SSE2
const Yuv420Rows kYuv420RowsW7 = {
    &ToYuv420Kernel<PackedRgbIn, LumaOfPacked, narrow::LumaOfPacked>,
    &ToYuv420Kernel<RgbPlanesIn, LumaOfPlanes, narrow::LumaOfPlanes>,
    &FromYuv420Kernel<PackedRgbOut>,
    &FromYuv420Kernel<RgbPlanesOut>,
    &FinishW7,
};
#else
const Yuv420Rows kYuv420RowsW7 = {
    &narrow::ToYuv420Row<PackedRgbIn, narrow::LumaOfPacked>,
    &narrow::ToYuv420Row<RgbPlanesIn, narrow::LumaOfPlanes>,
    &FromYuv420Kernel<PackedRgbOut>,
    &FromYuv420Kernel<RgbPlanesOut>,
    &FinishW7,
};
#endif

}  // namespace pixmoor::colour
