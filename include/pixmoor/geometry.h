// Geometry and format codes: the dimension record, the four-character format
// codes with their aliases, RGB line and image sizes, the standard video size
// tests and the exported memory movers.
#ifndef PIXMOOR_GEOMETRY_H
#define PIXMOOR_GEOMETRY_H

#include <cstdint>
#include <pixmoor/export.h>

// The platform's SIZE record: either field may be negative.
struct tagSIZE {
    int32_t cx;
    int32_t cy;
};

// A picture's width and height in pixels.  Values that come in raw (two
// integers or a tagSIZE) are stored as absolute values, so a negative height
// loses its sign here; orientation is told separately.  Copying another
// AbsSIZE takes its fields as they stand.
class PIXMOOR_API AbsSIZE {
public:
    int32_t cx;
    int32_t cy;

    AbsSIZE();
    AbsSIZE(int32_t width, int32_t height);
    AbsSIZE(const AbsSIZE& other);
    AbsSIZE(const tagSIZE& size);  // NOLINT: implicit on purpose, like the raw record

    AbsSIZE& operator=(const AbsSIZE& other);
    AbsSIZE& operator=(const tagSIZE& size);

    bool operator==(const AbsSIZE& other) const;
    // Compares areas as wrapping 32-bit products: two shapes of one area are
    // neither less nor greater.
    bool operator<(const AbsSIZE& other) const;
};

// Builds a format code from four characters, the first in the lowest byte.
constexpr uint32_t MakeFourCC(char a, char b, char c, char d) {
    return static_cast<uint32_t>(static_cast<uint8_t>(a)) |
           (static_cast<uint32_t>(static_cast<uint8_t>(b)) << 8) |
           (static_cast<uint32_t>(static_cast<uint8_t>(c)) << 16) |
           (static_cast<uint32_t>(static_cast<uint8_t>(d)) << 24);
}

// Canonical format codes.
constexpr uint32_t FCC_I420 = MakeFourCC('I', '4', '2', '0');
constexpr uint32_t FCC_YV12 = MakeFourCC('Y', 'V', '1', '2');
constexpr uint32_t FCC_YUY2 = MakeFourCC('Y', 'U', 'Y', '2');
constexpr uint32_t FCC_UYVY = MakeFourCC('U', 'Y', 'V', 'Y');
constexpr uint32_t FCC_RG24 = MakeFourCC('R', 'G', '2', '4');
constexpr uint32_t FCC_RG32 = MakeFourCC('R', 'G', '3', '2');
constexpr uint32_t FCC_RG55 = MakeFourCC('R', 'G', '5', '5');
constexpr uint32_t FCC_RG56 = MakeFourCC('R', 'G', '5', '6');

// Other spellings accepted for the codes above.
constexpr uint32_t FCC_i420 = MakeFourCC('i', '4', '2', '0');
constexpr uint32_t FCC_yv12 = MakeFourCC('y', 'v', '1', '2');
constexpr uint32_t FCC_YUNV = MakeFourCC('Y', 'U', 'N', 'V');
constexpr uint32_t FCC_V422 = MakeFourCC('V', '4', '2', '2');
constexpr uint32_t FCC_yuy2 = MakeFourCC('y', 'u', 'y', '2');
constexpr uint32_t FCC_yunv = MakeFourCC('y', 'u', 'n', 'v');
constexpr uint32_t FCC_v422 = MakeFourCC('v', '4', '2', '2');
constexpr uint32_t FCC_Y422 = MakeFourCC('Y', '4', '2', '2');
constexpr uint32_t FCC_UYNV = MakeFourCC('U', 'Y', 'N', 'V');
constexpr uint32_t FCC_uyvy = MakeFourCC('u', 'y', 'v', 'y');
constexpr uint32_t FCC_y422 = MakeFourCC('y', '4', '2', '2');
constexpr uint32_t FCC_uynv = MakeFourCC('u', 'y', 'n', 'v');
constexpr uint32_t FCC_rg24 = MakeFourCC('r', 'g', '2', '4');
constexpr uint32_t FCC_rg32 = MakeFourCC('r', 'g', '3', '2');
constexpr uint32_t FCC_rg55 = MakeFourCC('r', 'g', '5', '5');
constexpr uint32_t FCC_rg56 = MakeFourCC('r', 'g', '5', '6');

// Codes known in one place each.
constexpr uint32_t FCC_IYUV = MakeFourCC('I', 'Y', 'U', 'V');
constexpr uint32_t FCC_Y800 = MakeFourCC('Y', '8', '0', '0');
constexpr uint32_t FCC_y800 = MakeFourCC('y', '8', '0', '0');
constexpr uint32_t FCC_0rgb = MakeFourCC('0', 'r', 'g', 'b');

// Bytes of one RGB row, rounded up to a multiple of 4.
PIXMOOR_API int32_t RGBLineSize(int32_t width, int32_t bitsPerPixel);
// Bytes of an RGB picture: |height| rows of RGBLineSize.
PIXMOOR_API int32_t RGBImageSize(int32_t width, int32_t height, int32_t bitsPerPixel);

PIXMOOR_API bool IsDVDim(AbsSIZE size);
PIXMOOR_API bool IsITUDim(AbsSIZE size);
PIXMOOR_API bool IsOrthITUDim(AbsSIZE size);

// Format code from a bitmap description (bit count and green mask).
PIXMOOR_API uint32_t CreateRGBFCC(int32_t bitCount, uint32_t greenMask);
// Maps a code to what a bitmap header would state; writes the depth.
PIXMOOR_API uint32_t NormalizeCustFCC(uint32_t code, uint16_t& bitCount);

// Memory movers.  Below the 512-byte threshold they move and fill; the roads
// for larger blocks are kept exactly as the library has always had them:
// MMXmemmove does nothing and MMXmemset stores a single 8-byte word (see the
// notes in memory_movers.cpp).
PIXMOOR_API void MoveMem(void* dst, const void* src, uint32_t count);
PIXMOOR_API void SetMem(void* dst, int32_t value, uint32_t count);
PIXMOOR_API void MMXmemmove(void* dst, const void* src, uint32_t count);
PIXMOOR_API void MMXmemset(void* dst, int32_t value, uint32_t count);

#endif
