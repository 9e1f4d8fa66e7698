// AVX-512 form of the packed 4:2:2 to RGB row: sixteen pairs (thirty-two
// pixels) a step, the arithmetic of the AVX2 form on 512-bit vectors (see
// packed_to_rgb_avx2.cpp): multiply-adds of the (U, V) word pairs give the
// floored chroma terms per pair, which are copied to both lumas of the pair
// and summed in 16-bit lanes; unsigned saturation (or min and max) clamps.
#include "colour/packed_row_select.h"

#if PIXMOOR_HAVE_X86_TARGETS

#include "colour/avx512_intrinsics.h"

namespace pixmoor {
namespace {

struct PixelWords {
    __m512i first, second, third;
};

template <bool LumaHigh>
PIXMOOR_TARGET_AVX512 inline PixelWords ConvertSixteenPairs(const uint8_t* src) {
    const __m512i bytes = _mm512_loadu_si512(src);
    const __m512i lowByte = _mm512_set1_epi16(0x00FF);
    const __m512i luma = LumaHigh ? _mm512_srli_epi16(bytes, 8) : _mm512_and_si512(bytes, lowByte);
    const __m512i chroma = LumaHigh ? _mm512_and_si512(bytes, lowByte) : _mm512_srli_epi16(bytes, 8);
    const __m512i uv = _mm512_sub_epi16(chroma, _mm512_set1_epi16(128));
    const __m512i a = _mm512_srai_epi32(_mm512_madd_epi16(uv, _mm512_set1_epi32(1167)), 10);
    const __m512i b = _mm512_srai_epi32(_mm512_madd_epi16(uv, _mm512_set1_epi32(595 | (403 << 16))), 10);
    const __m512i c = _mm512_srai_epi32(_mm512_madd_epi16(uv, _mm512_set1_epi32(2081 << 16)), 10);
    const __m512i bothHalves =
        _mm512_broadcast_i32x4(_mm_setr_epi8(0, 1, 0, 1, 4, 5, 4, 5, 8, 9, 8, 9, 12, 13, 12, 13));
    const __m512i y = _mm512_sub_epi16(luma, _mm512_set1_epi16(16));
    return PixelWords{_mm512_add_epi16(y, _mm512_shuffle_epi8(a, bothHalves)),
                      _mm512_sub_epi16(y, _mm512_shuffle_epi8(b, bothHalves)),
                      _mm512_add_epi16(y, _mm512_shuffle_epi8(c, bothHalves))};
}

// Clamped pixels as blue, green, red, 0 dwords: lane k of `low` holds
// pixels 8k to 8k+3, lane k of `high` pixels 8k+4 to 8k+7.
struct PixelDwords {
    __m512i low, high;
};

PIXMOOR_TARGET_AVX512 inline PixelDwords ToDwords(const PixelWords& p) {
    const __m512i firstThird = _mm512_packus_epi16(p.first, p.third);
    const __m512i secondZero = _mm512_packus_epi16(p.second, _mm512_setzero_si512());
    const __m512i firstSecond = _mm512_unpacklo_epi8(firstThird, secondZero);
    const __m512i thirdZero = _mm512_unpackhi_epi8(firstThird, secondZero);
    return PixelDwords{_mm512_unpacklo_epi16(firstSecond, thirdZero), _mm512_unpackhi_epi16(firstSecond, thirdZero)};
}

PIXMOOR_TARGET_AVX512 inline __m512i ClampWords(__m512i v) {
    return _mm512_min_epi16(_mm512_max_epi16(v, _mm512_setzero_si512()), _mm512_set1_epi16(255));
}

template <RgbStoreKind Kind>
PIXMOOR_TARGET_AVX512 inline void StoreThirtyTwo(const PixelWords& p, uint8_t* out) {
    if constexpr (Kind == RgbStoreKind::kBgr32) {
        // Groups of four pixels, low and high lanes taken in turn.
        const PixelDwords d = ToDwords(p);
        const __m512i front = _mm512_setr_epi64(0, 1, 8, 9, 2, 3, 10, 11);
        const __m512i back = _mm512_setr_epi64(4, 5, 12, 13, 6, 7, 14, 15);
        _mm512_storeu_si512(out, _mm512_permutex2var_epi64(d.low, front, d.high));
        _mm512_storeu_si512(out + 64, _mm512_permutex2var_epi64(d.low, back, d.high));
    } else if constexpr (Kind == RgbStoreKind::kBgr24) {
        // Each lane's four pixels squeezed to three dwords, then the 24
        // dwords gathered in pixel order: 64 bytes and 32 bytes.
        const __m512i squeeze = _mm512_broadcast_i32x4(
            _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1));
        const PixelDwords d = ToDwords(p);
        const __m512i low = _mm512_shuffle_epi8(d.low, squeeze);
        const __m512i high = _mm512_shuffle_epi8(d.high, squeeze);
        const __m512i front = _mm512_setr_epi32(0, 1, 2, 16, 17, 18, 4, 5, 6, 20, 21, 22, 8, 9, 10, 24);
        const __m512i back = _mm512_setr_epi32(25, 26, 12, 13, 14, 28, 29, 30, 0, 0, 0, 0, 0, 0, 0, 0);
        _mm512_storeu_si512(out, _mm512_permutex2var_epi32(low, front, high));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(out + 64),
                            _mm512_castsi512_si256(_mm512_permutex2var_epi32(low, back, high)));
    } else {
        const __m512i first = ClampWords(p.first);
        const __m512i second = ClampWords(p.second);
        const __m512i third = ClampWords(p.third);
        const __m512i top = _mm512_slli_epi16(_mm512_and_si512(third, _mm512_set1_epi16(0xF8)), 8);
        __m512i words;
        if constexpr (Kind == RgbStoreKind::kRgb565) {
            words = _mm512_or_si512(
                _mm512_or_si512(top, _mm512_slli_epi16(_mm512_and_si512(second, _mm512_set1_epi16(0xFC)), 3)),
                _mm512_srli_epi16(first, 3));
        } else {
            static_assert(Kind == RgbStoreKind::kRgb555High, "the packed roads store no other layout");
            words = _mm512_or_si512(
                _mm512_or_si512(top, _mm512_slli_epi16(_mm512_and_si512(second, _mm512_set1_epi16(0xF8)), 3)),
                _mm512_and_si512(_mm512_srli_epi16(first, 2), _mm512_set1_epi16(0x3E)));
        }
        _mm512_storeu_si512(out, words);
    }
}

template <bool LumaHigh, RgbStoreKind Kind>
struct ConvertRow {
    PIXMOOR_TARGET_AVX512 static int32_t Run(const uint8_t* src, uint8_t* out, int32_t pairs) {
        if (pairs < 16) return 0;
        for (int32_t done = 0; done < pairs; done = NextBlock(done, pairs, 16))
            StoreThirtyTwo<Kind>(ConvertSixteenPairs<LumaHigh>(src + 4 * done), out + 2 * BytesPerPixel(Kind) * done);
        return pairs;
    }
};

}  // namespace

PackedToRgbRowKernel PackedToRgbRowAvx512(bool lumaHigh, RgbStoreKind store) {
    return SelectPackedToRgbRow<ConvertRow>(lumaHigh, store);
}

}  // namespace pixmoor

#endif
