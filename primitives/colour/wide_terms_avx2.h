// The wide arithmetic in 16-bit lanes, for the vector row kernels of px and
// m6: the inverse chroma terms and, at the end, the forward chroma factors.  The plain kernels compute clamp((Y << 16 + t) >> 16) with
// a chroma term t at 16 fraction bits.  Since Y << 16 has no fraction,
// that is clamp(Y + (t >> 16)), and t >> 16 depends on the chroma alone.
// Each factor is split into a whole multiple of 65536 and a remainder that
// fits a 16-bit lane, so that (f d) >> 16 = (f / 65536) d + mulhi(d, f mod
// 65536) exactly; G's two products are summed in 32 bits by a multiply-add
// before their shift.  Only units whose functions carry PIXMOOR_TARGET_AVX2
// include this header.
#ifndef PIXMOOR_PRIMITIVES_COLOUR_WIDE_TERMS_AVX2_H
#define PIXMOOR_PRIMITIVES_COLOUR_WIDE_TERMS_AVX2_H

#include "primitives/colour/lane_constants.h"
#include "primitives/colour/wide_arith.h"
#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include <cstdint>

namespace pixmoor::colour::avx2 {

// R = Y + dv + mulhi(dv, 9175); B = Y + 2 du + mulhi(du, 2097);
// G = Y - dv + ((27460 dv - 25821 du) >> 16).
constexpr int16_t kRvRest = wide::kRFromV - 65536;
constexpr int16_t kBuRest = wide::kBFromU - 2 * 65536;
constexpr int16_t kGvRest = 65536 - wide::kGFromV;
static_assert(wide::kRFromV - kRvRest == 65536 && wide::kBFromU - kBuRest == 2 * 65536 &&
                  wide::kGFromV + kGvRest == 65536,
              "whole parts as the kernels add them");

// Against (du, dv) in the low and high halves of a lane: the G factors;
// the remainders of B's and R's factors; their whole parts (2 and 1).
constexpr int32_t kGreenFactors = LanePair(-wide::kGFromU, kGvRest);
constexpr int32_t kBlueRedRests = LanePair(kBuRest, kRvRest);
constexpr int32_t kBlueRedWholes = LanePair(2, 1);

PIXMOOR_TARGET_AVX2 inline __m256i GreenFactors() { return _mm256_set1_epi32(kGreenFactors); }

// Of chroma pairs held as du in the low and dv in the high half of each
// lane: B's term in the low and R's in the high half; and G's term in the
// high half (the high half of the multiply-add is its sum shifted right by
// 16 already, from which dv is taken; the low half holds no use).
PIXMOOR_TARGET_AVX2 inline __m256i BlueRedTerms(__m256i c) {
    return _mm256_add_epi16(_mm256_mullo_epi16(c, _mm256_set1_epi32(kBlueRedWholes)),
                            _mm256_mulhi_epi16(c, _mm256_set1_epi32(kBlueRedRests)));
}
PIXMOOR_TARGET_AVX2 inline __m256i GreenTermHigh(__m256i c) {
    return _mm256_sub_epi16(_mm256_madd_epi16(c, GreenFactors()), c);
}

// Forward: the chroma of blocks from T' (R) in the low and T (B) in the
// high 16-bit half of each lane, T being ((channel sum << 16) - luma sum +
// bias) >> 16, which is the channel sum plus the high half of bias - luma
// sum.  (T times the factor) >> 18 is a multiply-high and a shift of 2;
// V's factor 57475 is 65536 - 8061, whose whole part adds T' itself.
constexpr int32_t kChromaRests = LanePair(wide::kFactorV - 65536, wide::kFactorU);

}  // namespace pixmoor::colour::avx2

#endif  // PIXMOOR_HAVE_X86_TARGETS

#endif
