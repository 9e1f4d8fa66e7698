// The vector row kernels of the 4:2:2 members in SSE2, shared by the two
// vector tiers through a tier policy that gives the forward step (16 pixels
// in w7, 8 in a6, the latter in the low halves), the prefetch and the
// stores to packed RGB (plain in w7, non-temporal in a6).  The inverse
// kernels take 8 pixels a step in both tiers.  What a vector loop leaves
// (pairs, then a lone last pixel) goes to the plain kernels of
// yuv422_plain_rows.h in the same arithmetic, lane for lane.
//
// A Tier policy provides:
//   static constexpr int kForwardStep;                 16 or 8
//   static void Prefetch(const uint8_t* p);            ahead of a source line
//   static void StoreRgb24(uint8_t* p, sse2::RgbBytes c);
//       8 pixels of interleaved R, G, B, 24 bytes
//   using LoneInverse;                                 the packed 4:2:2 lone pixel
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YUV422_SSE2_H
#define PIXMOOR_PRIMITIVES_COLOUR_YUV422_SSE2_H

#include <emmintrin.h>

#include <cstdint>
#include <type_traits>

#include "primitives/colour/narrow_sse2.h"
#include "primitives/colour/yuv422_arith.h"
#include "primitives/colour/yuv422_fast_rows.h"
#include "primitives/colour/yuv422_layouts.h"
#include "primitives/colour/yuv422_plain_rows.h"
#include "primitives/colour/yuv422_rows.h"

namespace pixmoor::colour::yuv422_sse2 {

using namespace sse2;

// ---- Forward: RGB to 4:2:2.

// R, G, B bytes of kPixels pixels from x on (16, or 8 in the low halves).
struct RgbRegs {
    __m128i r, g, b;
};

template <class Tier>
RgbRegs LoadRgb(PackedRgbIn::Line line, int32_t x) {
    constexpr int kPixels = Tier::kForwardStep;
    const uint8_t* p = line + 3 * static_cast<intptr_t>(x);
    Tier::Prefetch(p);
    __m128i a = Load16(p);
    __m128i b = kPixels == 16 ? Load16(p + 16) : Load8(p + 16);
    __m128i c = kPixels == 16 ? Load16(p + 32) : _mm_setzero_si128();
    Deinterleave(a, b, c);
    return RgbRegs{a, b, c};
}

template <class Tier>
RgbRegs LoadRgb(const RgbPlanesIn::Line& line, int32_t x) {
    constexpr int kPixels = Tier::kForwardStep;
    Tier::Prefetch(line.r + x);
    Tier::Prefetch(line.g + x);
    Tier::Prefetch(line.b + x);
    if (kPixels == 16) return RgbRegs{Load16(line.r + x), Load16(line.g + x), Load16(line.b + x)};
    return RgbRegs{Load8(line.r + x), Load8(line.g + x), Load8(line.b + x)};
}

// Sums of neighbouring 16-bit lanes: four 32-bit pair sums.
inline __m128i PairSums(__m128i lanes) { return _mm_madd_epi16(lanes, _mm_set1_epi16(1)); }

// (B0 + B1) - A and (R0 + R1) - A of four pairs, A = (D0 + D1) >> 1.
inline ChromaDiffs PairDiffs(__m128i d, const Channels& c) {
    const __m128i a = _mm_srai_epi32(PairSums(d), 1);
    return ChromaDiffs{_mm_sub_epi32(PairSums(c.b), a), _mm_sub_epi32(PairSums(c.r), a)};
}

// 16 pixels: 16 Y, 8 U, 8 V.
inline void Forward16(const RgbRegs& p, uint8_t* y, uint8_t* u, uint8_t* v) {
    const Channels low = WidenLow(p.r, p.g, p.b), high = WidenHigh(p.r, p.g, p.b);
    const __m128i dLow = LumaPacked(low), dHigh = LumaPacked(high);
    Store16(y, LumaBytes(dLow, dHigh));
    const ChromaDiffs l = PairDiffs(dLow, low), h = PairDiffs(dHigh, high);
    const __m128i us = ScaleChroma(_mm_packs_epi32(l.b, h.b), _mm_set1_epi16(narrow::kFactorU));
    const __m128i vs = ScaleChroma(_mm_packs_epi32(l.r, h.r), _mm_set1_epi16(narrow::kFactorV));
    const __m128i uv = _mm_packus_epi16(us, vs);
    Store8(u, uv);
    Store8(v, _mm_unpackhi_epi64(uv, uv));
}

// 8 pixels in the low halves: 8 Y, 4 U, 4 V; chroma factors in lane order,
// four U lanes then four V lanes.
inline void Forward8(const RgbRegs& p, uint8_t* y, uint8_t* u, uint8_t* v) {
    const Channels c = WidenLow(p.r, p.g, p.b);
    const __m128i d = LumaPacked(c);
    Store8(y, LumaBytes(d, d));
    const ChromaDiffs diffs = PairDiffs(d, c);
    const __m128i factors = _mm_setr_epi16(narrow::kFactorU, narrow::kFactorU, narrow::kFactorU, narrow::kFactorU,
                                           narrow::kFactorV, narrow::kFactorV, narrow::kFactorV, narrow::kFactorV);
    const __m128i uv16 = ScaleChroma(_mm_packs_epi32(diffs.b, diffs.r), factors);
    const __m128i uv = _mm_packus_epi16(uv16, uv16);
    Store4(u, uv);
    Store4(v, _mm_srli_epi64(uv, 32));
}

template <class Tier, class In>
void ToYuv422Kernel(typename In::Line in, Yuv422Line<uint8_t> out, int32_t count) {
    constexpr int kStep = Tier::kForwardStep;
    const int32_t mainPixels = count & ~(kStep - 1);
    int32_t x = 0;
    for (; x < mainPixels; x += kStep) {
        const RgbRegs p = LoadRgb<Tier>(in, x);
        if (kStep == 16)
            Forward16(p, out.y + x, out.u + x / 2, out.v + x / 2);
        else
            Forward8(p, out.y + x, out.u + x / 2, out.v + x / 2);
    }
    yuv422::ToYuv422From<yuv422::NarrowForward, In>(in, out, x / 2, count);
}

// ---- Inverse: 4:2:2 to RGB, 8 pixels a step.

// Luma of 8 pixels as 16-bit lanes, and u', v' per pixel lane.
struct Inverse8In {
    __m128i y, du, dv;
};

// Packed 4:2:2: 16 bytes Y0 U0 Y1 V0 ... of 4 pairs.  Y sits in the low
// byte of each 16-bit lane, U and V alternate in the high bytes.
template <class Tier>
Inverse8In LoadYuv(Packed422In::Line line, int32_t x) {
    const uint8_t* p = line + 2 * static_cast<intptr_t>(x);
    Tier::Prefetch(p);
    const __m128i bytes = Load16(p);
    const __m128i y = _mm_and_si128(bytes, _mm_set1_epi16(0xFF));
    const __m128i uv = Centred(_mm_srli_epi16(bytes, 8));
    const __m128i u = _mm_shufflehi_epi16(_mm_shufflelo_epi16(uv, _MM_SHUFFLE(2, 2, 0, 0)), _MM_SHUFFLE(2, 2, 0, 0));
    const __m128i v = _mm_shufflehi_epi16(_mm_shufflelo_epi16(uv, _MM_SHUFFLE(3, 3, 1, 1)), _MM_SHUFFLE(3, 3, 1, 1));
    return Inverse8In{y, u, v};
}

// Planar 4:2:2: 8 Y and 4 U, 4 V samples.
template <class Tier>
Inverse8In LoadYuv(const Yuv422PlanesIn::Line& line, int32_t x) {
    Tier::Prefetch(line.y + x);
    Tier::Prefetch(line.u + x / 2);
    Tier::Prefetch(line.v + x / 2);
    const __m128i z = _mm_setzero_si128();
    const __m128i du = Centred(_mm_unpacklo_epi8(Load4(line.u + x / 2), z));
    const __m128i dv = Centred(_mm_unpacklo_epi8(Load4(line.v + x / 2), z));
    return Inverse8In{_mm_unpacklo_epi8(Load8(line.y + x), z), _mm_unpacklo_epi16(du, du),
                      _mm_unpacklo_epi16(dv, dv)};
}

template <class Tier>
void StoreRgb(PackedRgbOut::Line line, int32_t x, const RgbBytes& c) {
    Tier::StoreRgb24(line + 3 * static_cast<intptr_t>(x), c);
}

template <class Tier>
void StoreRgb(const RgbPlanesOut::Line& line, int32_t x, const RgbBytes& c) {
    Store8(line.r + x, c.r);
    Store8(line.g + x, c.g);
    Store8(line.b + x, c.b);
}

// The leading pixels of the main loop done with wider vectors, where the
// processor has them (packed 4:2:2 to packed RGB only).
template <class In, class Out>
int32_t FastPixels(typename In::Line in, typename Out::Line out, int32_t mainPixels) {
#if PIXMOOR_HAVE_X86_TARGETS
    if constexpr (std::is_same_v<In, Packed422In> && std::is_same_v<Out, PackedRgbOut>)
        return fast::Packed422Leading(&fast::NarrowPacked422ToRgbAvx512, &fast::NarrowPacked422ToRgbAvx2, in, out, mainPixels);
#endif
    (void)in, (void)out, (void)mainPixels;
    return 0;
}

template <class Tier, class In, class Out, class Lone>
void FromYuv422Kernel(typename In::Line in, typename Out::Line out, int32_t count) {
    const InverseLanes factors = Uniform(yuv422::kInverse);
    const int32_t mainPixels = count & ~7;
    int32_t x = FastPixels<In, Out>(in, out, mainPixels);
    for (; x < mainPixels; x += 8) {
        const Inverse8In s = LoadYuv<Tier>(in, x);
        const InverseTerms t = Terms(s.du, s.dv, factors);
        StoreRgb<Tier>(out, x, ToRgbBytes(s.y, s.y, t, t));
    }
    yuv422::FromYuv422From<Lone, In, Out>(in, out, x / 2, count);
}

// The row kernel set of a vector tier.
template <class Tier>
constexpr Yuv422Rows MakeRows(TierFinish finish) {
    using yuv422::NarrowInverse;
    return Yuv422Rows{
        &FromYuv422Kernel<Tier, Packed422In, PackedRgbOut, typename Tier::LoneInverse>,
        &ToYuv422Kernel<Tier, PackedRgbIn>,
        &ToYuv422Kernel<Tier, RgbPlanesIn>,
        &FromYuv422Kernel<Tier, Yuv422PlanesIn, PackedRgbOut, NarrowInverse>,
        &FromYuv422Kernel<Tier, Yuv422PlanesIn, RgbPlanesOut, NarrowInverse>,
        finish,
    };
}

}  // namespace pixmoor::colour::yuv422_sse2

#endif
