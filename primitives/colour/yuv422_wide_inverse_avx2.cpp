// The px and m6 row kernel of packed 4:2:2 (Y0 U Y1 V) to packed RGB with
// AVX2: 32 pixels (64 source bytes) a step, the same bytes as the plain
// kernel.  Each channel is Y plus the chroma term of wide_terms_avx2.h; the
// pair's U and V stay in the two 16-bit halves of its 32-bit lane, beside
// its two Y.
#include "primitives/colour/yuv422_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/packed422_avx2.h"
#include "primitives/colour/wide_terms_avx2.h"

namespace pixmoor::colour::fast {
namespace {

PIXMOOR_TARGET_AVX2 avx2::ChannelWords Pixels16(const uint8_t* p) {
    const __m256i bytes = avx2::Load32(p);
    const __m256i y = avx2::LumaWords(bytes);
    const avx2::PairTerms t = avx2::TermsOfPairs(_mm256_sub_epi16(avx2::ChromaWords(bytes), _mm256_set1_epi16(128)));
    return avx2::ChannelWords{_mm256_add_epi16(y, avx2::SpreadHigh(t.r)), _mm256_add_epi16(y, avx2::SpreadLow(t.g)),
                              _mm256_add_epi16(y, avx2::SpreadLow(t.b))};
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t WidePacked422ToRgbAvx2(const uint8_t* in, uint8_t* out, int32_t count) {
    return avx2::Packed422Steps<&Pixels16>(in, out, count);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS
