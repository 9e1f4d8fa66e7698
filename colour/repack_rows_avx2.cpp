// AVX2 form of the repacking row of tight 3-byte pixels: sixteen pixels
// (48 bytes) a step.  A byte shuffle spreads four pixels to 32-bit lanes of
// blue, green, red and a zero byte, which is "RG32" as it stands.  For
// "RG32" the 48 bytes come in as three 16-byte loads, realigned to the
// groups of four pixels, and go out as four 16-byte stores, which ran
// faster here than 32-byte stores.  The 16-bit formats load the groups at
// offsets 0, 12, 24 and 32 (never past the 48 bytes), and cut their fields
// from the lanes with shifts and masks, exactly the truncation of the
// scalar packing.
#include "colour/fast_rows.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

namespace pixmoor {
namespace {

PIXMOOR_TARGET_AVX2 inline __m256i LoadTwo(const uint8_t* low, const uint8_t* high) {
    return _mm256_inserti128_si256(_mm256_castsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(low))),
                                   _mm_loadu_si128(reinterpret_cast<const __m128i*>(high)), 1);
}

// ((third >> 3) << 11) | ((second >> 2) << 5) | (first >> 3) of each lane.
PIXMOOR_TARGET_AVX2 inline __m256i Pack565(__m256i p) {
    const __m256i first = _mm256_and_si256(_mm256_srli_epi32(p, 3), _mm256_set1_epi32(0x001F));
    const __m256i second = _mm256_and_si256(_mm256_srli_epi32(p, 5), _mm256_set1_epi32(0x07E0));
    const __m256i third = _mm256_and_si256(_mm256_srli_epi32(p, 8), _mm256_set1_epi32(0xF800));
    return _mm256_or_si256(_mm256_or_si256(first, second), third);
}

// ((third >> 3) << 10) | ((second >> 3) << 5) | (first >> 3) of each lane.
PIXMOOR_TARGET_AVX2 inline __m256i Pack555(__m256i p) {
    const __m256i first = _mm256_and_si256(_mm256_srli_epi32(p, 3), _mm256_set1_epi32(0x001F));
    const __m256i second = _mm256_and_si256(_mm256_srli_epi32(p, 6), _mm256_set1_epi32(0x03E0));
    const __m256i third = _mm256_and_si256(_mm256_srli_epi32(p, 9), _mm256_set1_epi32(0x7C00));
    return _mm256_or_si256(_mm256_or_si256(first, second), third);
}

PIXMOOR_TARGET_AVX2 int32_t ExpandRow(const uint8_t* src, uint8_t* out, int32_t pixels) {
    const __m128i spread = _mm_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1);
    if (pixels < 16) return 0;
    for (int32_t done = 0; done < pixels; done = NextBlock(done, pixels, 16)) {
        const __m128i* in = reinterpret_cast<const __m128i*>(src + 3 * done);
        __m128i* to = reinterpret_cast<__m128i*>(out + 4 * done);
        const __m128i a = _mm_loadu_si128(in), b = _mm_loadu_si128(in + 1), c = _mm_loadu_si128(in + 2);
        _mm_storeu_si128(to, _mm_shuffle_epi8(a, spread));
        _mm_storeu_si128(to + 1, _mm_shuffle_epi8(_mm_alignr_epi8(b, a, 12), spread));
        _mm_storeu_si128(to + 2, _mm_shuffle_epi8(_mm_alignr_epi8(c, b, 8), spread));
        _mm_storeu_si128(to + 3, _mm_shuffle_epi8(_mm_srli_si128(c, 4), spread));
    }
    return pixels;
}

template <RgbStoreKind Kind>
PIXMOOR_TARGET_AVX2 int32_t PackRow(const uint8_t* src, uint8_t* out, int32_t pixels) {
    // The last load starts 4 bytes into its group of four pixels.
    const __m256i spread = _mm256_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1,  //
                                            0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1);
    const __m256i spreadLast = _mm256_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1,  //
                                                4, 5, 6, -1, 7, 8, 9, -1, 10, 11, 12, -1, 13, 14, 15, -1);
    if (pixels < 16) return 0;
    for (int32_t done = 0; done < pixels; done = NextBlock(done, pixels, 16)) {
        const uint8_t* in = src + 3 * done;
        const __m256i front = _mm256_shuffle_epi8(LoadTwo(in, in + 12), spread);      // pixels 0-7
        const __m256i back = _mm256_shuffle_epi8(LoadTwo(in + 24, in + 32), spreadLast);  // pixels 8-15
        const __m256i words = Kind == RgbStoreKind::kRgb565 ? _mm256_packus_epi32(Pack565(front), Pack565(back))
                                                             : _mm256_packus_epi32(Pack555(front), Pack555(back));
        // The pack works lane by lane: put the four groups back in order.
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + 2 * done), _mm256_permute4x64_epi64(words, 0xD8));
    }
    return pixels;
}

}  // namespace

RepackRowKernel RepackBgrRowAvx2(RgbStoreKind store) {
    switch (store) {
        case RgbStoreKind::kBgr32: return ExpandRow;
        case RgbStoreKind::kRgb565: return PackRow<RgbStoreKind::kRgb565>;
        case RgbStoreKind::kRgb555: return PackRow<RgbStoreKind::kRgb555>;
        default: return nullptr;  // no repacking road stores another layout
    }
}

}  // namespace pixmoor

#endif
