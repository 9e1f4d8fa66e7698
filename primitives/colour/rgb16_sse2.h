// The vector row kernel of the 16-bit members in SSE2, shared by the two
// vector tiers: w7 runs steps of 4 pixel pairs (8 words of each line, one
// full register), a6 steps of 2 pairs in the low halves; both then take a
// step of 2 pairs while two remain and the last pair in plain code.  Every
// step has the same arithmetic (narrow16 in rgb16_words.h), lane for lane.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_RGB16_SSE2_H
#define PIXMOOR_PRIMITIVES_COLOUR_RGB16_SSE2_H

#include <emmintrin.h>

#include <cstdint>
#include <cstring>

#include "primitives/colour/narrow_sse2.h"
#include "primitives/colour/rgb16_words.h"

namespace pixmoor::colour::rgb16_sse2 {

using sse2::Load4;
using sse2::Load8;

// 2 * pairs luma bytes, pairs chroma bytes, 2 * pairs words.
template <int kPairs>
__m128i LoadLuma(const uint8_t* p) {
    return kPairs == 4 ? Load8(p) : Load4(p);
}
template <int kPairs>
__m128i LoadChroma(const uint8_t* p) {
    if (kPairs == 4) return Load4(p);
    uint16_t two;
    std::memcpy(&two, p, 2);
    return _mm_cvtsi32_si128(two);
}
template <int kPairs>
void StoreWords(uint16_t* p, __m128i words) {
    if (kPairs == 4)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(p), words);
    else
        _mm_storel_epi64(reinterpret_cast<__m128i*>(p), words);
}

// Chroma terms per pixel lane.
struct Terms {
    __m128i r, g, b;
};

// u' = 128 (U - 128) on 16-bit lanes, each pair's value in both its pixels.
inline __m128i Scaled(__m128i chromaBytes) {
    const __m128i c = _mm_slli_epi16(
        _mm_sub_epi16(_mm_unpacklo_epi8(chromaBytes, _mm_setzero_si128()), _mm_set1_epi16(128)), 7);
    return _mm_unpacklo_epi16(c, c);
}

inline Terms ChromaTerms(__m128i uBytes, __m128i vBytes) {
    const __m128i du = Scaled(uBytes);
    const __m128i dv = Scaled(vBytes);
    const __m128i g = _mm_sub_epi16(
        _mm_sub_epi16(_mm_setzero_si128(), _mm_mulhi_epi16(dv, _mm_set1_epi16(narrow16::kGFromV))),
        _mm_mulhi_epi16(du, _mm_set1_epi16(narrow16::kGFromU)));
    return Terms{_mm_mulhi_epi16(dv, _mm_set1_epi16(narrow16::kRFromV)), g,
                 _mm_mulhi_epi16(du, _mm_set1_epi16(narrow16::kBFromU))};
}

// sat((16Y + term) >> 4) on 16-bit lanes.
inline __m128i Channel(__m128i y16, __m128i term) {
    const __m128i x = _mm_srai_epi16(_mm_add_epi16(y16, term), 4);
    return _mm_max_epi16(_mm_min_epi16(x, _mm_set1_epi16(255)), _mm_setzero_si128());
}

// The order flag's shift counts, as the variable shifts take them.
struct ShiftCounts {
    __m128i red, blue;
};

template <class Word>
__m128i Words(__m128i lumaBytes, const Terms& t, const ShiftCounts& s) {
    const __m128i y16 = _mm_slli_epi16(_mm_unpacklo_epi8(lumaBytes, _mm_setzero_si128()), 4);
    const __m128i r = _mm_srli_epi16(Channel(y16, t.r), Word::kRedBlueDrop);
    const __m128i g = _mm_srli_epi16(Channel(y16, t.g), Word::kGreenDrop);
    const __m128i b = _mm_srli_epi16(Channel(y16, t.b), Word::kRedBlueDrop);
    return _mm_or_si128(_mm_or_si128(_mm_sll_epi16(r, s.red), _mm_slli_epi16(g, Word::kGreenShift)),
                        _mm_sll_epi16(b, s.blue));
}

template <class Word, int kPairs>
void Step(const Yuv420Lines<const uint8_t>& in, uint16_t* top, uint16_t* bottom, int32_t j,
          const ShiftCounts& s) {
    const Terms t = ChromaTerms(LoadChroma<kPairs>(in.u + j), LoadChroma<kPairs>(in.v + j));
    StoreWords<kPairs>(top + 2 * j, Words<Word>(LoadLuma<kPairs>(in.y0 + 2 * j), t, s));
    StoreWords<kPairs>(bottom + 2 * j, Words<Word>(LoadLuma<kPairs>(in.y1 + 2 * j), t, s));
}

// kMainPairs: 4 for w7, 2 for a6.
template <class Word, int kMainPairs>
void Kernel(const Yuv420Lines<const uint8_t>& in, typename Rgb16Out<Word>::Line top,
            typename Rgb16Out<Word>::Line bottom, int32_t pairs) {
    const FieldShifts shifts = ShiftsOf<Word>(top.order);
    const ShiftCounts s{_mm_cvtsi32_si128(shifts.red), _mm_cvtsi32_si128(shifts.blue)};
    int32_t j = 0;
    const int32_t mainPairs = pairs & ~(kMainPairs - 1);
    for (; j < mainPairs; j += kMainPairs) Step<Word, kMainPairs>(in, top.words, bottom.words, j, s);
    for (; j + 2 <= pairs; j += 2) Step<Word, 2>(in, top.words, bottom.words, j, s);
    narrow16::Pairs<Word>(in, top, bottom, j, pairs);
}

}  // namespace pixmoor::colour::rgb16_sse2

#endif
