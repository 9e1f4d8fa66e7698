// The lane arithmetic of ycbcr_lanes.h in SSE2 registers: eight samples a
// register, one a 16-bit lane, with the same truncations and saturations,
// so the vector loops give exactly what the plain lane code gives for the
// samples they leave over.  Only built where SSE2 exists.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_YCBCR_SSE2_H
#define PIXMOOR_PRIMITIVES_COLOUR_YCBCR_SSE2_H

#include <emmintrin.h>

#include <cstdint>

#include "primitives/colour/narrow_sse2.h"
#include "primitives/colour/ycbcr_arith.h"
#include "primitives/colour/ycbcr_lanes.h"

namespace pixmoor::colour::ycc_sse2 {

using sse2::Channels;

inline __m128i K(int32_t c) { return _mm_set1_epi16(static_cast<int16_t>(c)); }
// High half of the signed products of (c << shift) with k.
template <int Shift>
inline __m128i H(__m128i c, int32_t k) { return _mm_mulhi_epi16(_mm_slli_epi16(c, Shift), K(k)); }
template <int Shift>
inline __m128i HU(__m128i c, int32_t k) { return _mm_mulhi_epu16(_mm_slli_epi16(c, Shift), K(k)); }

// Saturating sum of the three channel terms of one matrix row.
template <int Shift>
inline __m128i RowSum(const Channels& c, const int32_t k[3]) {
    return _mm_adds_epi16(_mm_adds_epi16(H<Shift>(c.r, k[0]), H<Shift>(c.g, k[1])), H<Shift>(c.b, k[2]));
}

// Sums of horizontal pixel pairs of eight 16-bit lanes: four 16-bit sums in
// the low half.
inline __m128i PairSums(__m128i x) {
    const __m128i s = _mm_madd_epi16(x, _mm_set1_epi16(1));
    return _mm_packs_epi32(s, s);
}
inline Channels BlockSums(const Channels& top, const Channels& bottom) {
    return Channels{PairSums(_mm_add_epi16(top.r, bottom.r)), PairSums(_mm_add_epi16(top.g, bottom.g)),
                    PairSums(_mm_add_epi16(top.b, bottom.b))};
}
inline Channels PairSums(const Channels& c) { return Channels{PairSums(c.r), PairSums(c.g), PairSums(c.b)}; }

// ---- 4:2:0, 12-bit coefficients ------------------------------------------

constexpr int32_t kY420[3] = {1052, 2064, 401};
constexpr int32_t kCb420[3] = {-607, -1192, 1798};
constexpr int32_t kCr420[3] = {1798, -1508, -291};

inline __m128i Luma420(const Channels& c) {
    return _mm_srai_epi16(_mm_adds_epi16(RowSum<7>(c, kY420), K(128)), 3);
}
inline __m128i Chroma420(const Channels& sums, const int32_t k[3]) {
    return _mm_srai_epi16(_mm_adds_epi16(RowSum<5>(sums, k), K(1024)), 3);
}

// Four pixel pairs of two lines: 8 Y a line, 4 Cb and 4 Cr.
inline void Forward420Eight(const Channels& top, const Channels& bottom, uint8_t* y0, uint8_t* y1, uint8_t* cb,
                            uint8_t* cr) {
    sse2::Store8(y0, _mm_packus_epi16(Luma420(top), Luma420(top)));
    sse2::Store8(y1, _mm_packus_epi16(Luma420(bottom), Luma420(bottom)));
    const Channels sums = BlockSums(top, bottom);
    const __m128i c = _mm_packus_epi16(Chroma420(sums, kCb420), Chroma420(sums, kCr420));
    sse2::Store4(cb, c);
    sse2::Store4(cr, _mm_unpackhi_epi64(c, c));
}

// Per-pair terms of the 4:2:0 inverse, from U and V in 16-bit lanes.
struct Terms420 {
    __m128i r, g, b;
};
inline Terms420 Terms(__m128i u, __m128i v) {
    const __m128i du = _mm_sub_epi16(u, K(128)), dv = _mm_sub_epi16(v, K(128));
    return Terms420{H<7>(dv, 6537), _mm_adds_epi16(H<7>(du, 1605), H<7>(dv, 3330)), H<7>(du, 8261)};
}
inline Terms420 DuplicateLow(const Terms420& t) {
    return Terms420{_mm_unpacklo_epi16(t.r, t.r), _mm_unpacklo_epi16(t.g, t.g), _mm_unpacklo_epi16(t.b, t.b)};
}
inline Terms420 DuplicateHigh(const Terms420& t) {
    return Terms420{_mm_unpackhi_epi16(t.r, t.r), _mm_unpackhi_epi16(t.g, t.g), _mm_unpackhi_epi16(t.b, t.b)};
}
// R, G, B of eight pixels as 16-bit lanes, not yet saturated to bytes.
inline Channels Inverse420(__m128i y, const Terms420& t) {
    const __m128i yy = H<7>(_mm_sub_epi16(y, K(16)), 4767);
    return Channels{_mm_srai_epi16(_mm_adds_epi16(yy, t.r), 3), _mm_srai_epi16(_mm_subs_epi16(yy, t.g), 3),
                    _mm_srai_epi16(_mm_adds_epi16(yy, t.b), 3)};
}

// ---- w7 luma on unsigned lanes, plane chroma, plane inverse --------------

inline __m128i LumaUnsigned(const Channels& c) {
    const __m128i s = _mm_adds_epu16(_mm_adds_epu16(HU<8>(c.r, ycc::kY[0]), HU<8>(c.g, ycc::kY[1])),
                                     HU<8>(c.b, ycc::kY[2]));
    return _mm_adds_epu16(_mm_srli_epi16(s, 8), K(16));
}
inline __m128i ChromaPlanes(const Channels& c, const int32_t k[3]) {
    return _mm_adds_epi16(_mm_srai_epi16(RowSum<7>(c, k), 7), K(128));
}

inline __m128i LumaTermPlanes(__m128i y16) { return HU<8>(y16, 19069); }
inline __m128i InverseRPlanes(__m128i lumaTerm, __m128i v16) {
    return _mm_srai_epi16(_mm_adds_epi16(lumaTerm, H<8>(_mm_sub_epi16(v16, K(128)), 26146)), 6);
}
inline __m128i InverseGPlanes(__m128i lumaTerm, __m128i u16, __m128i v16) {
    const __m128i g = _mm_sub_epi16(_mm_sub_epi16(lumaTerm, H<8>(_mm_sub_epi16(u16, K(128)), 6421)),
                                    H<8>(_mm_sub_epi16(v16, K(128)), 13318));
    return _mm_srai_epi16(g, 6);
}
inline __m128i InverseBPlanes(__m128i lumaTerm, __m128i u16) {
    return _mm_srai_epi16(_mm_adds_epi16(lumaTerm, _mm_slli_epi16(H<8>(_mm_sub_epi16(u16, K(128)), 16520), 1)), 6);
}

// ---- multiply-add lanes: 32-bit sums of two 16 by 16 products ------------

inline __m128i Pairs(int32_t lowLane, int32_t highLane) {
    return _mm_set1_epi32(static_cast<int32_t>((static_cast<uint32_t>(highLane) << 16) |
                                               (static_cast<uint32_t>(lowLane) & 0xFFFF)));
}
// a * ka + b * kb for eight lanes, as two registers of four 32-bit sums.
struct Wide {
    __m128i low, high;
};
inline Wide MulAdd(__m128i a, __m128i b, __m128i k) {
    return Wide{_mm_madd_epi16(_mm_unpacklo_epi16(a, b), k), _mm_madd_epi16(_mm_unpackhi_epi16(a, b), k)};
}
inline Wide Add(Wide a, Wide b) { return Wide{_mm_add_epi32(a.low, b.low), _mm_add_epi32(a.high, b.high)}; }
inline Wide Add(Wide a, __m128i k) { return Wide{_mm_add_epi32(a.low, k), _mm_add_epi32(a.high, k)}; }
template <int Shift>
inline __m128i Narrow(Wide w) {
    return _mm_packs_epi32(_mm_srai_epi32(w.low, Shift), _mm_srai_epi32(w.high, Shift));
}

// w7's forward 4:4:4 interleaved at half scale: Y, Cb, Cr of eight pixels.
inline Channels ForwardHalf(const Channels& c) {
    const __m128i z = _mm_setzero_si128();
    auto row = [&](const int32_t k[3], int32_t offset) {
        return Narrow<15>(Add(Add(MulAdd(c.r, c.g, Pairs(k[0], k[1])), MulAdd(c.b, z, Pairs(k[2], 0))),
                              _mm_set1_epi32(offset)));
    };
    return Channels{row(lanes::kYHalf, 0x84000), row(lanes::kCbHalf, 0x404000), row(lanes::kCrHalf, 0x404000)};
}

// w7's inverse of 4:2:2 interleaved sources: R, G, B of eight pixels from
// their Y and their pair's U and V, each in 16-bit lanes.
inline Channels Inverse422(__m128i y, __m128i u, __m128i v) {
    const __m128i z = _mm_setzero_si128();
    const __m128i dy = _mm_sub_epi16(y, K(16)), du = _mm_sub_epi16(u, K(128)), dv = _mm_sub_epi16(v, K(128));
    const Wide luma = MulAdd(dy, z, Pairs(19071, 0));
    const Wide r = MulAdd(dy, dv, Pairs(19071, 26149));
    const Wide uv = MulAdd(du, dv, Pairs(-12845, -26640));
    const Wide g = Add(luma, Wide{_mm_srai_epi32(uv.low, 1), _mm_srai_epi32(uv.high, 1)});
    const Wide b = MulAdd(dy, _mm_add_epi16(du, du), Pairs(19071, 16523));
    return Channels{Narrow<14>(r), Narrow<14>(g), Narrow<14>(b)};
}

// ---- stores --------------------------------------------------------------

inline Channels SaturateToBytes(const Channels& c) {
    const __m128i z = _mm_setzero_si128();
    return Channels{_mm_unpacklo_epi8(_mm_packus_epi16(c.r, c.r), z), _mm_unpacklo_epi8(_mm_packus_epi16(c.g, c.g), z),
                    _mm_unpacklo_epi8(_mm_packus_epi16(c.b, c.b), z)};
}

// 16-bit words of eight pixels whose channels are bytes in 16-bit lanes.
template <class Packing>
inline __m128i PackWords(const Channels& c) {
    using F = typename Packing::FieldsType;
    const __m128i high = Packing::kRedHigh ? c.r : c.b;
    const __m128i low = Packing::kRedHigh ? c.b : c.r;
    const __m128i outerHigh = _mm_slli_epi16(_mm_srli_epi16(high, F::kOuterDrop), F::kHighShift);
    const __m128i green = _mm_slli_epi16(_mm_srli_epi16(c.g, F::kGreenDrop), F::kGreenAt);
    return _mm_or_si128(_mm_or_si128(outerHigh, green), _mm_srli_epi16(low, F::kOuterDrop));
}

// Eight pixels of saturated channels (16-bit lanes) to packed bytes: 24.
inline void StoreInterleaved8(uint8_t* p, const Channels& c) {
    __m128i r = _mm_packus_epi16(c.r, c.r), g = _mm_packus_epi16(c.g, c.g), b = _mm_packus_epi16(c.b, c.b);
    sse2::Interleave(r, g, b);
    sse2::Store16(p, r);
    sse2::Store8(p + 16, g);
}

}  // namespace pixmoor::colour::ycc_sse2

#endif
