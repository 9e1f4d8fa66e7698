// The px and m6 forward 4:2:0 row kernel from packed RGB with AVX-512: 16
// pixel pairs (32 pixels of each line) a step in 32-bit lanes, the same
// integer arithmetic as the plain kernel and so the same bytes.  The luma
// and the channel sums are formed as in the AVX2 form
// (yuv420_wide_forward_avx2.cpp); here each 128-bit lane takes 4 pixels, so
// 16 pixels fill one register in pixel order, and a block's sum is the sum
// of its even and odd pixel lanes picked from two registers.
#include "primitives/colour/yuv420_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"
#include "primitives/colour/rgb24_avx512.h"
#include "primitives/colour/wide_arith.h"
#include "primitives/colour/wide_terms_avx2.h"

namespace pixmoor::colour::fast {
namespace {

PIXMOOR_TARGET_AVX512 __m512i Luma(const avx512::Pixels& p) {
    const __m512i wRB = _mm512_set1_epi32((wide::kWeightB << 16) | wide::kWeightR);
    const __m512i wGG = _mm512_set1_epi32(((wide::kWeightG / 2) << 16) | (wide::kWeightG / 2));
    return _mm512_add_epi32(_mm512_madd_epi16(p.rb, wRB), _mm512_madd_epi16(p.gg, wGG));
}

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t WideToYuv420Avx512(const uint8_t* top, const uint8_t* bottom,
                                                 const Yuv420Lines<uint8_t>& out, int32_t pairs) {
    uint8_t* const y0 = out.y0;
    uint8_t* const y1 = out.y1;
    uint8_t* const uOut = out.u;
    uint8_t* const vOut = out.v;
    const int32_t whole = pairs & ~15;
    for (int32_t j = 0; j < whole; j += 16) {
        const intptr_t at = 6 * static_cast<intptr_t>(j);
        // Every step but the last has a next one, whose bytes may be read.
        const avx512::TwoLines32 p = avx512::LoadTwoLines32(top + at, bottom + at, j + 16 < whole);
        const __m512i ft0 = Luma(p.top0), ft1 = Luma(p.top1), fb0 = Luma(p.bottom0), fb1 = Luma(p.bottom1);
        // Y is the high half of a luma below 2^24.
        avx512::StoreLowBytes(y0 + 2 * j, avx512::HalvesInPixelOrder(ft0, ft1, 1));
        avx512::StoreLowBytes(y1 + 2 * j, avx512::HalvesInPixelOrder(fb0, fb1, 1));

        // ((channel sum << 16) - luma sum + bias) >> 16 is the channel sum
        // plus M = (bias - luma sum) >> 16, since the shifted sum has no
        // fraction; M is the high half of bias - luma sum.
        const __m512i biasLessLuma = _mm512_sub_epi32(
            _mm512_set1_epi32(wide::kBlockBias),
            avx512::PairSums(_mm512_add_epi32(ft0, fb0), _mm512_add_epi32(ft1, fb1)));
        // R and B sums side by side: a block's R sum stays below 1024, so
        // it never carries into the B half of its 32-bit lane.
        const __m512i rb = avx512::PairSums(_mm512_add_epi32(p.top0.rb, p.bottom0.rb), _mm512_add_epi32(p.top1.rb, p.bottom1.rb));
        // T' (R) in the low and T (B) in the high half of each lane.
        const __m512i t = _mm512_add_epi16(rb, _mm512_shuffle_epi8(biasLessLuma, avx512::Mask(avx2::kHighHalfToBoth)));
        // (T times the factor) >> 18, as wide_terms_avx2.h says.
        const __m512i high = _mm512_mulhi_epi16(t, _mm512_set1_epi32(avx2::kChromaRests));
        const __m512i scaled = _mm512_mask_add_epi16(high, 0x55555555u, high, t);
        // V (clamped by the saturating pack) low, U high.
        avx512::StoreChromaWords(uOut + j, vOut + j, _mm512_add_epi16(_mm512_srai_epi16(scaled, 2), _mm512_set1_epi16(128)));
    }
    return whole;
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS
