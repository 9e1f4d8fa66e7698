// How one blue-green-red pixel is stored in each RGB destination.  Fields of
// the 16-bit formats are cut from the 8-bit values, never rounded; words are
// little-endian and need no alignment.
#ifndef PIXMOOR_COLOUR_PIXEL_STORES_H
#define PIXMOOR_COLOUR_PIXEL_STORES_H

#include <cstdint>

#include <pixmoor/geometry.h>

namespace pixmoor {

inline void PutWord16(uint8_t* out, uint32_t word) {
    out[0] = static_cast<uint8_t>(word);
    out[1] = static_cast<uint8_t>(word >> 8);
}

// "RG24": blue, green, red.
struct StoreBgr24 {
    static constexpr uint32_t kDestFCC = FCC_RG24;
    static constexpr int32_t kBytes = 3;
    static void Put(uint8_t* out, uint32_t first, uint32_t second, uint32_t third) {
        out[0] = static_cast<uint8_t>(first);
        out[1] = static_cast<uint8_t>(second);
        out[2] = static_cast<uint8_t>(third);
    }
};

// "RG32": blue, green, red and a zero byte, whatever the buffer held.
struct StoreBgr32 {
    static constexpr uint32_t kDestFCC = FCC_RG32;
    static constexpr int32_t kBytes = 4;
    static void Put(uint8_t* out, uint32_t first, uint32_t second, uint32_t third) {
        out[0] = static_cast<uint8_t>(first);
        out[1] = static_cast<uint8_t>(second);
        out[2] = static_cast<uint8_t>(third);
        out[3] = 0;
    }
};

// "RG56": RRRRRGGGGGGBBBBB.
struct StoreRgb565 {
    static constexpr uint32_t kDestFCC = FCC_RG56;
    static constexpr int32_t kBytes = 2;
    static uint32_t Pack(uint32_t first, uint32_t second, uint32_t third) {
        return ((third >> 3) << 11) | ((second >> 2) << 5) | (first >> 3);
    }
    static void Put(uint8_t* out, uint32_t first, uint32_t second, uint32_t third) {
        PutWord16(out, Pack(first, second, third));
    }
};

// "RG55" as the library's RGB writers store it: 0RRRRRGGGGGBBBBB.
struct StoreRgb555 {
    static constexpr uint32_t kDestFCC = FCC_RG55;
    static constexpr int32_t kBytes = 2;
    static uint32_t Pack(uint32_t first, uint32_t second, uint32_t third) {
        return ((third >> 3) << 10) | ((second >> 3) << 5) | (first >> 3);
    }
    static void Put(uint8_t* out, uint32_t first, uint32_t second, uint32_t third) {
        PutWord16(out, Pack(first, second, third));
    }
};

// "RG55" as the packed 4:2:2 roads store it: the three 5-bit fields stand one
// bit higher, in bits 15..11, 10..6 and 5..1, with bit 0 clear.  This road
// has always written this layout under the "RG55" code, and its frames are
// expected to stay exactly so.
struct StoreRgb555High {
    static constexpr uint32_t kDestFCC = FCC_RG55;
    static constexpr int32_t kBytes = 2;
    static uint32_t Pack(uint32_t first, uint32_t second, uint32_t third) {
        return ((third & 0xF8u) << 8) | ((second & 0xF8u) << 3) | ((first >> 2) & 0x3Eu);
    }
    static void Put(uint8_t* out, uint32_t first, uint32_t second, uint32_t third) {
        PutWord16(out, Pack(first, second, third));
    }
};

}  // namespace pixmoor

#endif
