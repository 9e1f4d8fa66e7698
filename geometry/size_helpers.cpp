#include <pixmoor/geometry.h>

namespace {
uint32_t Magnitude(int32_t v) {
    const uint32_t u = static_cast<uint32_t>(v);
    return v < 0 ? 0u - u : u;
}

bool Matches(const AbsSIZE& s, const AbsSIZE* table, int count) {
    for (int i = 0; i < count; ++i)
        if (s == table[i]) return true;
    return false;
}
}  // namespace

int32_t RGBLineSize(int32_t width, int32_t bitsPerPixel) {
    // Bytes per pixel keep the sign of the depth (arithmetic shift), so a
    // depth that is no multiple of 8 rounds down.  All products wrap in 32 bits.
    const uint32_t bytesPerPixel = static_cast<uint32_t>(bitsPerPixel >> 3);
    const uint32_t bytes = bytesPerPixel * Magnitude(width);
    return static_cast<int32_t>((bytes + 3u) & ~3u);
}

int32_t RGBImageSize(int32_t width, int32_t height, int32_t bitsPerPixel) {
    return static_cast<int32_t>(Magnitude(height) * static_cast<uint32_t>(RGBLineSize(width, bitsPerPixel)));
}

bool IsDVDim(AbsSIZE size) {
    static const AbsSIZE kSizes[] = {AbsSIZE(80, 60), AbsSIZE(160, 120), AbsSIZE(320, 240), AbsSIZE(640, 480)};
    return Matches(size, kSizes, 4);
}

bool IsOrthITUDim(AbsSIZE size) {
    static const AbsSIZE kSizes[] = {AbsSIZE(176, 144), AbsSIZE(352, 288), AbsSIZE(704, 576),
                                     AbsSIZE(1408, 1152)};
    return Matches(size, kSizes, 4);
}

bool IsITUDim(AbsSIZE size) { return IsOrthITUDim(size) || size == AbsSIZE(128, 96); }
