// The copy kernels of the vector tiers (axis 0 to a destination).
#include "primitives/mirror/mirror_vector_support.h"

#if PIXMOOR_MIRROR_VECTOR_KERNELS

#include <emmintrin.h>

#include <cstring>
#include <initializer_list>

#include "primitives/mirror/mirror_vector_kernels.h"

namespace pixmoor::mirror::vector {
namespace {

inline uintptr_t Address(const void* p) { return reinterpret_cast<uintptr_t>(p); }

inline __m128i Load(const uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
inline __m128i LoadAligned(const uint8_t* p) { return _mm_load_si128(reinterpret_cast<const __m128i*>(p)); }

// Streaming stores are left out where the source lies 65216 to 65520 bytes
// (modulo 64 KiB) above the destination: that band makes the streamed lines
// compete with the loads for the same cache sets.
constexpr uint32_t kNoStreamBandLow = 65216;
constexpr uint32_t kNoStreamBandHigh = 65520;

bool StreamingAllowed(const uint8_t* src, const uint8_t* dst) {
    const uint32_t distance = static_cast<uint32_t>(Address(src) - Address(dst)) & 0xFFFF;
    return distance < kNoStreamBandLow || distance > kNoStreamBandHigh;
}

// The last bytes: 8-byte units, then one each of 4, 2 and 1.
void CopyTail(const uint8_t* src, uint8_t* dst, int32_t bytes) {
    for (; bytes >= 8; bytes -= 8, src += 8, dst += 8) std::memcpy(dst, src, 8);
    if (bytes & 4) std::memcpy(dst, src, 4), src += 4, dst += 4;
    if (bytes & 2) std::memcpy(dst, src, 2), src += 2, dst += 2;
    if (bytes & 1) *dst = *src;
}

enum class Blocks { kStream, kAlignedLoads, kUnalignedLoads };

// 64-byte blocks to a 16-byte aligned destination.
template <Blocks kind>
void CopyBlocks64(const uint8_t* src, uint8_t* dst, int32_t blocks) {
    for (int32_t b = 0; b < blocks; ++b, src += 64, dst += 64) {
        __m128i v[4];
        for (int k = 0; k < 4; ++k) v[k] = kind == Blocks::kAlignedLoads ? LoadAligned(src + 16 * k) : Load(src + 16 * k);
        for (int k = 0; k < 4; ++k) {
            auto* out = reinterpret_cast<__m128i*>(dst + 16 * k);
            if (kind == Blocks::kStream)
                _mm_stream_si128(out, v[k]);
            else
                _mm_store_si128(out, v[k]);
        }
    }
    if (kind == Blocks::kStream) _mm_sfence();
}

// One 8-byte streaming store.
inline void Stream8(uint8_t* dst, const uint8_t* src) {
#if defined(__x86_64__) || defined(_M_X64)
    long long word;
    std::memcpy(&word, src, 8);
    _mm_stream_si64(reinterpret_cast<long long*>(dst), word);
#else
    int words[2];
    std::memcpy(words, src, 8);
    _mm_stream_si32(reinterpret_cast<int*>(dst), words[0]);
    _mm_stream_si32(reinterpret_cast<int*>(dst + 4), words[1]);
#endif
}

}  // namespace

void CopyBytesW7(const uint8_t* src, uint8_t* dst, int32_t bytes, int32_t flag) {
    if (bytes >= 64) {
        const uint32_t misalignment = Address(dst) & 15;
        if (misalignment != 0) {
            // One unaligned block, then on from the destination's next
            // boundary: the bytes in between are written twice.
            _mm_storeu_si128(reinterpret_cast<__m128i*>(dst), Load(src));
            const int32_t step = static_cast<int32_t>(16 - misalignment);
            src += step;
            dst += step;
            bytes -= step;
        }
        const int32_t blocks = bytes / 64;
        if (flag != 0 && StreamingAllowed(src, dst))
            CopyBlocks64<Blocks::kStream>(src, dst, blocks);
        else if ((Address(src) & 15) == 0)
            CopyBlocks64<Blocks::kAlignedLoads>(src, dst, blocks);
        else
            CopyBlocks64<Blocks::kUnalignedLoads>(src, dst, blocks);
        src += blocks * 64;
        dst += blocks * 64;
        bytes -= blocks * 64;
    }
    CopyTail(src, dst, bytes);
}

void CopyBytesA6(const uint8_t* src, uint8_t* dst, int32_t bytes) {
    if (bytes >= 8) {
        const uint32_t misalignment = Address(dst) & 7;
        if (misalignment != 0) {
            std::memcpy(dst, src, 8);
            const int32_t step = static_cast<int32_t>(8 - misalignment);
            src += step;
            dst += step;
            bytes -= step;
        }
        for (; bytes >= 64; bytes -= 64, src += 64, dst += 64)
            for (int k = 0; k < 64; k += 8) Stream8(dst + k, src + k);
        for (int32_t block : {32, 16, 8}) {
            if (bytes < block) continue;
            for (int k = 0; k < block; k += 8) Stream8(dst + k, src + k);
            src += block;
            dst += block;
            bytes -= block;
        }
    }
    _mm_sfence();
    if (bytes & 4) std::memcpy(dst, src, 4), src += 4, dst += 4;
    if (bytes & 2) std::memcpy(dst, src, 2), src += 2, dst += 2;
    if (bytes & 1) *dst = *src;
}

}  // namespace pixmoor::mirror::vector

#endif
