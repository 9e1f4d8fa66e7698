// An 8-bit RGB picture, rows top to bottom, bytes red, green, blue: what the
// tool shows of any frame.
#ifndef PIXMOOR_TOOL_RGB_IMAGE_H
#define PIXMOOR_TOOL_RGB_IMAGE_H

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

}  // namespace pixmoor_tool

#endif
