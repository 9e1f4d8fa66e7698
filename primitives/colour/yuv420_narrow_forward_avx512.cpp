// The a6 and w7 forward 4:2:0 row kernel from packed RGB with AVX-512: the
// narrow arithmetic of narrow_arith.h, 16 pixel pairs (32 pixels of each
// line) a step.  D = (9798 R + 19235 G + 3736 B) >> 14 and Y = D >> 1 come
// from twice the weighted sum in 32-bit lanes; the block differences stay
// within 16 bits, so the chroma is reckoned in 16-bit lanes, U and V side
// by side, and saturated by the store's pack.
#include "primitives/colour/yuv420_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "primitives/colour/avx512_intrinsics.h"
#include "primitives/colour/narrow_arith.h"
#include "primitives/colour/rgb24_avx512.h"
#include "primitives/colour/wide_terms_avx2.h"

namespace pixmoor::colour::fast {
namespace {

// Twice the weighted sum 9798 R + 19235 G + 3736 B: (R, B) against
// (19596, 7472) and (G, G) against (19235, 19235).  Its high half is
// Y = D >> 1, and D is it shifted right by 15.
static_assert(2 * narrow::kWeightR < 32768 && 2 * narrow::kWeightB < 32768, "doubled weights fit 16-bit lanes");

PIXMOOR_TARGET_AVX512 __m512i TwiceWeighted(const avx512::Pixels& p) {
    const __m512i wRB = _mm512_set1_epi32(avx2::LanePair(2 * narrow::kWeightR, 2 * narrow::kWeightB));
    const __m512i wGG = _mm512_set1_epi32(avx2::LanePair(narrow::kWeightG, narrow::kWeightG));
    return _mm512_add_epi32(_mm512_madd_epi16(p.rb, wRB), _mm512_madd_epi16(p.gg, wGG));
}

}  // namespace

PIXMOOR_TARGET_AVX512 int32_t NarrowToYuv420Avx512(const uint8_t* top, const uint8_t* bottom,
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
        const __m512i xt0 = TwiceWeighted(p.top0), xt1 = TwiceWeighted(p.top1);
        const __m512i xb0 = TwiceWeighted(p.bottom0), xb1 = TwiceWeighted(p.bottom1);
        // Y = D >> 1 is at most 255.
        avx512::StoreLowBytes(y0 + 2 * j, avx512::HalvesInPixelOrder(xt0, xt1, 1));
        avx512::StoreLowBytes(y1 + 2 * j, avx512::HalvesInPixelOrder(xb0, xb1, 1));
        const __m512i dt0 = _mm512_srai_epi32(xt0, 15), dt1 = _mm512_srai_epi32(xt1, 15);
        const __m512i db0 = _mm512_srai_epi32(xb0, 15), db1 = _mm512_srai_epi32(xb1, 15);

        // A, twice the block's mean luma (below 512), in both halves of
        // each lane; the halved R and B sums beside each other.
        const __m512i mean = _mm512_shuffle_epi8(
            _mm512_srai_epi32(avx512::PairSums(_mm512_add_epi32(dt0, db0), _mm512_add_epi32(dt1, db1)), 2),
            avx512::Mask(avx2::kLowHalfToBoth));
        const __m512i halves = _mm512_srli_epi16(avx512::PairSums(_mm512_add_epi32(p.top0.rb, p.bottom0.rb),
                                                                  _mm512_add_epi32(p.top1.rb, p.bottom1.rb)),
                                                 1);
        // mulhi(PR - A, 28737) low, mulhi(PB - A, 16121) high, plus 128;
        // the store saturates.
        const __m512i vu = _mm512_mulhi_epi16(_mm512_sub_epi16(halves, mean),
                                              _mm512_set1_epi32(avx2::LanePair(narrow::kFactorV, narrow::kFactorU)));
        avx512::StoreChromaWords(uOut + j, vOut + j, _mm512_add_epi16(vu, _mm512_set1_epi16(128)));
    }
    return whole;
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS
