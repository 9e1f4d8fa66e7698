// Lines of 4-byte pixels through the pixel map with 256-bit vectors.  Eight
// output pixels whose sources lie within 16 pixels of the first one are
// taken from two loads of that window by permutes; others go one by one.
#include "size/pixel_map_avx2.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include <cstring>

namespace {

constexpr int32_t kWindowBytes = 64;

PIXMOOR_TARGET_AVX2 inline __m256i Load(const void* p) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
}

}  // namespace

PIXMOOR_TARGET_AVX2 uint8_t* CopyMappedWordsAvx2(const int32_t* offsets, int32_t pixels, int32_t lineBytes,
                                                 const uint8_t* src, uint8_t* dst) {
    const __m256i upperHalf = _mm256_set1_epi32(7);
    int32_t i = 0;
    for (; pixels - i >= 8; i += 8, dst += 32) {
        const int32_t first = offsets[i];
        if (offsets[i + 7] - first >= kWindowBytes || first > lineBytes - kWindowBytes) {
            for (int k = 0; k < 8; ++k) std::memcpy(dst + 4 * k, src + offsets[i + k], 4);
            continue;
        }
        // Pixel numbers within the window: 0 to 7 in the first load, 8 to 15
        // in the second.
        const __m256i index = _mm256_srli_epi32(_mm256_sub_epi32(Load(offsets + i), _mm256_set1_epi32(first)), 2);
        const __m256i low = _mm256_permutevar8x32_epi32(Load(src + first), index);
        const __m256i high = _mm256_permutevar8x32_epi32(Load(src + first + 32), index);
        const __m256i out = _mm256_blendv_epi8(low, high, _mm256_cmpgt_epi32(index, upperHalf));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst), out);
    }
    for (; i < pixels; ++i, dst += 4) std::memcpy(dst, src + offsets[i], 4);
    return dst;
}

#endif
