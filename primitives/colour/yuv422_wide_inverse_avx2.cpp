// The px and m6 row kernel of packed 4:2:2 (Y0 U Y1 V) to packed RGB with
// AVX2: the chroma terms of wide_terms_avx2.h reckoned once a pair, 16
// pixels a step, the same bytes as the plain kernel.
#include "primitives/colour/yuv422_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/packed422_avx2.h"
#include "primitives/colour/wide_terms_avx2.h"

namespace pixmoor::colour::fast {
namespace {

PIXMOOR_TARGET_AVX2 avx2::PairTerms Terms(__m256i bytes) {
    const __m256i c = avx2::CentredPairChroma(bytes, 1);  // du low, dv high
    return avx2::PairTerms{avx2::BlueRedTerms(c), avx2::GreenTermHigh(c)};
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t WidePacked422ToRgbAvx2(const uint8_t* in, uint8_t* out, int32_t count) {
    return avx2::Packed422Steps<&Terms>(in, out, count);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS
