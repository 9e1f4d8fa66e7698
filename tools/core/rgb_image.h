// An 8-bit RGB picture, rows top to bottom, bytes red, green, blue: what the
// tool shows of any frame.
#ifndef PIXMOOR_TOOL_RGB_IMAGE_H
#define PIXMOOR_TOOL_RGB_IMAGE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace pixmoor_tool {

struct RgbImage {
    int32_t width = 0;
    int32_t height = 0;
    std::vector<uint8_t> pixels;

    RgbImage() = default;
    RgbImage(int32_t w, int32_t h) : width(w), height(h), pixels(size_t(w) * size_t(h) * 3, 0) {}

    uint8_t* at(int32_t x, int32_t y) { return &pixels[(size_t(y) * size_t(width) + size_t(x)) * 3]; }
    const uint8_t* at(int32_t x, int32_t y) const {
        return &pixels[(size_t(y) * size_t(width) + size_t(x)) * 3];
    }
};

// Swaps row r with row height-1-r.
inline void FlipRows(RgbImage& image) {
    const size_t row = size_t(image.width) * 3;
    for (int32_t top = 0, bottom = image.height - 1; top < bottom; ++top, --bottom)
        std::swap_ranges(image.at(0, top), image.at(0, top) + row, image.at(0, bottom));
}

}  // namespace pixmoor_tool

#endif
