// The px and m6 row kernel of ImgYUVAToRGBA with AVX2: 8 pixels a step, the
// same bytes as the plain kernel.  Each channel is Y plus the chroma term
// of wide_terms_avx2.h, saturated.
#include "primitives/colour/yuv444_fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include "primitives/colour/rgba_avx2.h"
#include "primitives/colour/wide_terms_avx2.h"

namespace pixmoor::colour::fast {
namespace {

PIXMOOR_TARGET_AVX2 __m256i Pixels8(__m256i src) {
    const __m256i c = avx2::CentredChroma(src, 1);
    return avx2::ToPixels(avx2::LumaWords(src), avx2::BlueRedTerms(c), avx2::GreenTermHigh(c));
}

}  // namespace

PIXMOOR_TARGET_AVX2 int32_t WideYuvaToRgbaAvx2(const uint8_t* in, uint8_t* out, int32_t count) {
    return avx2::RgbaSteps<&Pixels8>(in, out, count);
}

}  // namespace pixmoor::colour::fast

#endif  // PIXMOOR_HAVE_X86_TARGETS
