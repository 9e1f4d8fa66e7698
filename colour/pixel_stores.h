// How one blue-green-red pixel is stored in each RGB destination.  Fields of
// the 16-bit formats are cut from the 8-bit values, never rounded; words are
// little-endian and need no alignment.
#ifndef PIXMOOR_COLOUR_PIXEL_STORES_H
#define PIXMOOR_COLOUR_PIXEL_STORES_H

#include <cstdint>

#include <pixmoor/geometry.h>

namespace pixmoor {

// Names the stores for the vector row kernels, which take the store as a
// value rather than as a type.
enum class RgbStoreKind { kBgr24, kBgr32, kRgb565, kRgb555, kRgb555High };

constexpr int32_t BytesPerPixel(RgbStoreKind kind) {
    return kind == RgbStoreKind::kBgr32 ? 4 : kind == RgbStoreKind::kBgr24 ? 3 : 2;
}

inline void PutWord16(uint8_t* out, uint32_t word) {
    out[0] = static_cast<uint8_t>(word);
    out[1] = static_cast<uint8_t>(word >> 8);
}

// "RG24": blue, green, red.  "RG32": the same and a zero byte, whatever the
// buffer held.
template <uint32_t DestFCC, int32_t Bytes>
struct StoreBgrBytes {
    static constexpr uint32_t kDestFCC = DestFCC;
    static constexpr RgbStoreKind kKind = Bytes == 4 ? RgbStoreKind::kBgr32 : RgbStoreKind::kBgr24;
    static constexpr int32_t kBytes = Bytes;
    static void Put(uint8_t* out, uint32_t first, uint32_t second, uint32_t third) {
        out[0] = static_cast<uint8_t>(first);
        out[1] = static_cast<uint8_t>(second);
        out[2] = static_cast<uint8_t>(third);
        if constexpr (Bytes == 4) out[3] = 0;
    }
};

using StoreBgr24 = StoreBgrBytes<FCC_RG24, 3>;
using StoreBgr32 = StoreBgrBytes<FCC_RG32, 4>;

// "RG56": RRRRRGGGGGGBBBBB.
inline uint32_t PackRgb565(uint32_t first, uint32_t second, uint32_t third) {
    return ((third >> 3) << 11) | ((second >> 2) << 5) | (first >> 3);
}

// "RG55" as the library's RGB writers store it: 0RRRRRGGGGGBBBBB.
inline uint32_t PackRgb555(uint32_t first, uint32_t second, uint32_t third) {
    return ((third >> 3) << 10) | ((second >> 3) << 5) | (first >> 3);
}

// "RG55" as the packed 4:2:2 roads store it: the three 5-bit fields stand one
// bit higher, in bits 15..11, 10..6 and 5..1, with bit 0 clear.  This road
// has always written this layout under the "RG55" code, and its frames are
// expected to stay exactly so.
inline uint32_t PackRgb555High(uint32_t first, uint32_t second, uint32_t third) {
    return ((third & 0xF8u) << 8) | ((second & 0xF8u) << 3) | ((first >> 2) & 0x3Eu);
}

// A 16-bit destination: one word a pixel, packed by `Pack`.
template <uint32_t DestFCC, uint32_t (*Pack)(uint32_t, uint32_t, uint32_t), RgbStoreKind Kind>
struct StoreWord16 {
    static constexpr uint32_t kDestFCC = DestFCC;
    static constexpr RgbStoreKind kKind = Kind;
    static constexpr int32_t kBytes = 2;
    static void Put(uint8_t* out, uint32_t first, uint32_t second, uint32_t third) {
        PutWord16(out, Pack(first, second, third));
    }
};

using StoreRgb565 = StoreWord16<FCC_RG56, PackRgb565, RgbStoreKind::kRgb565>;
using StoreRgb555 = StoreWord16<FCC_RG55, PackRgb555, RgbStoreKind::kRgb555>;
using StoreRgb555High = StoreWord16<FCC_RG55, PackRgb555High, RgbStoreKind::kRgb555High>;

}  // namespace pixmoor

#endif
