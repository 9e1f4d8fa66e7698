// AVX2 form of the packed 4:2:2 to RGB row: eight pairs (sixteen pixels) a
// step, with exactly the integer arithmetic of YuvToBgrFixedPoint.
//
// The chroma words of a pair sit side by side (U low, V high) in one 32-bit
// lane, so one multiply-add per term gives 595u + 403v, 1167u or 2081v as a
// 32-bit value; the arithmetic shift by 10 floors it as the scalar code
// does.  The terms (at most 261 in size) are then copied to both 16-bit
// halves of the lane, where the two lumas of the pair stand, and the
// pixels are summed in 16-bit lanes, which hold Y - 16 plus any term.
// Unsigned saturation to bytes (or min and max) is the clamp to 0..255.
#include "colour/packed_row_select.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include <immintrin.h>

#include <cstring>

namespace pixmoor {
namespace {

// Sixteen pixels as 16-bit values before the clamp, in pixel order.
struct PixelWords {
    __m256i first, second, third;
};

template <bool LumaHigh>
PIXMOOR_TARGET_AVX2 inline PixelWords ConvertEightPairs(const uint8_t* src) {
    const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(src));
    const __m256i lowByte = _mm256_set1_epi16(0x00FF);
    const __m256i luma = LumaHigh ? _mm256_srli_epi16(bytes, 8) : _mm256_and_si256(bytes, lowByte);
    const __m256i chroma = LumaHigh ? _mm256_and_si256(bytes, lowByte) : _mm256_srli_epi16(bytes, 8);
    const __m256i uv = _mm256_sub_epi16(chroma, _mm256_set1_epi16(128));
    // Weights as (U weight, V weight) word pairs.
    const __m256i a = _mm256_srai_epi32(_mm256_madd_epi16(uv, _mm256_set1_epi32(1167)), 10);
    const __m256i b = _mm256_srai_epi32(_mm256_madd_epi16(uv, _mm256_set1_epi32(595 | (403 << 16))), 10);
    const __m256i c = _mm256_srai_epi32(_mm256_madd_epi16(uv, _mm256_set1_epi32(2081 << 16)), 10);
    const __m256i bothHalves = _mm256_setr_epi8(0, 1, 0, 1, 4, 5, 4, 5, 8, 9, 8, 9, 12, 13, 12, 13,  //
                                                0, 1, 0, 1, 4, 5, 4, 5, 8, 9, 8, 9, 12, 13, 12, 13);
    const __m256i y = _mm256_sub_epi16(luma, _mm256_set1_epi16(16));
    return PixelWords{_mm256_add_epi16(y, _mm256_shuffle_epi8(a, bothHalves)),
                      _mm256_sub_epi16(y, _mm256_shuffle_epi8(b, bothHalves)),
                      _mm256_add_epi16(y, _mm256_shuffle_epi8(c, bothHalves))};
}

// Clamped pixels as blue, green, red, 0 words of 32 bits: pixels 0-3 and
// 8-11 in `low`, 4-7 and 12-15 in `high` (the lanes work apart).
struct PixelDwords {
    __m256i low, high;
};

PIXMOOR_TARGET_AVX2 inline PixelDwords ToDwords(const PixelWords& p) {
    const __m256i firstThird = _mm256_packus_epi16(p.first, p.third);
    const __m256i secondZero = _mm256_packus_epi16(p.second, _mm256_setzero_si256());
    const __m256i firstSecond = _mm256_unpacklo_epi8(firstThird, secondZero);
    const __m256i thirdZero = _mm256_unpackhi_epi8(firstThird, secondZero);
    return PixelDwords{_mm256_unpacklo_epi16(firstSecond, thirdZero), _mm256_unpackhi_epi16(firstSecond, thirdZero)};
}

PIXMOOR_TARGET_AVX2 inline __m256i ClampWords(__m256i v) {
    return _mm256_min_epi16(_mm256_max_epi16(v, _mm256_setzero_si256()), _mm256_set1_epi16(255));
}

template <RgbStoreKind Kind>
PIXMOOR_TARGET_AVX2 inline void StoreSixteen(const PixelWords& p, uint8_t* out) {
    if constexpr (Kind == RgbStoreKind::kBgr32) {
        const PixelDwords d = ToDwords(p);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), _mm256_permute2x128_si256(d.low, d.high, 0x20));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + 32), _mm256_permute2x128_si256(d.low, d.high, 0x31));
    } else if constexpr (Kind == RgbStoreKind::kBgr24) {
        // Each lane's four pixels squeezed to 12 bytes; the 16-byte stores
        // overlap, each one's last 4 bytes written over by the next, and
        // the last group goes out as exactly 12 bytes.
        const __m256i squeeze = _mm256_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1,  //
                                                 0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
        const PixelDwords d = ToDwords(p);
        const __m256i low = _mm256_shuffle_epi8(d.low, squeeze);
        const __m256i high = _mm256_shuffle_epi8(d.high, squeeze);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm256_castsi256_si128(low));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 12), _mm256_castsi256_si128(high));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 24), _mm256_extracti128_si256(low, 1));
        const __m128i last = _mm256_extracti128_si256(high, 1);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(out + 36), last);
        const int32_t lastWord = _mm_cvtsi128_si32(_mm_srli_si128(last, 8));
        std::memcpy(out + 44, &lastWord, 4);
    } else {
        const __m256i first = ClampWords(p.first);
        const __m256i second = ClampWords(p.second);
        const __m256i third = ClampWords(p.third);
        const __m256i top = _mm256_slli_epi16(_mm256_and_si256(third, _mm256_set1_epi16(0xF8)), 8);
        __m256i words;
        if constexpr (Kind == RgbStoreKind::kRgb565) {
            words = _mm256_or_si256(
                _mm256_or_si256(top, _mm256_slli_epi16(_mm256_and_si256(second, _mm256_set1_epi16(0xFC)), 3)),
                _mm256_srli_epi16(first, 3));
        } else {
            static_assert(Kind == RgbStoreKind::kRgb555High, "the packed roads store no other layout");
            words = _mm256_or_si256(
                _mm256_or_si256(top, _mm256_slli_epi16(_mm256_and_si256(second, _mm256_set1_epi16(0xF8)), 3)),
                _mm256_and_si256(_mm256_srli_epi16(first, 2), _mm256_set1_epi16(0x3E)));
        }
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), words);
    }
}

template <bool LumaHigh, RgbStoreKind Kind>
struct ConvertRow {
    PIXMOOR_TARGET_AVX2 static int32_t Run(const uint8_t* src, uint8_t* out, int32_t pairs) {
        if (pairs < 8) return 0;
        for (int32_t done = 0; done < pairs; done = NextBlock(done, pairs, 8))
            StoreSixteen<Kind>(ConvertEightPairs<LumaHigh>(src + 4 * done), out + 2 * BytesPerPixel(Kind) * done);
        return pairs;
    }
};

}  // namespace

PackedToRgbRowKernel PackedToRgbRowAvx2(bool lumaHigh, RgbStoreKind store) {
    return SelectPackedToRgbRow<ConvertRow>(lumaHigh, store);
}

}  // namespace pixmoor

#endif
