// Frame layouts as the peers see them: plane pointers and strides for the
// formats of the comparison, and the turned-over view of a picture (last
// row first, negative stride) for the routes that flip.
#ifndef PIXMOOR_BENCH_PICTURES_H
#define PIXMOOR_BENCH_PICTURES_H

#include <cstddef>
#include <cstdint>

namespace bench {

enum class Layout {
    I420,  // planes Y, U, V, chroma at half width and half height
    YV12,  // planes Y, V, U
    YUY2,  // Y0 U Y1 V
    UYVY,  // U Y0 V Y1
    RG24,  // 3 bytes a pixel, lines padded to 4 bytes
    RG32,  // 4 bytes a pixel
    RG55,  // 16-bit words 5-5-5
    RG56,  // 16-bit words 5-6-5
};

// Plane 0 only for packed layouts.  For planar layouts the planes are in
// the order Y, U, V whatever their order in memory.
struct Picture {
    uint8_t* plane[3] = {nullptr, nullptr, nullptr};
    int stride[3] = {0, 0, 0};
};

const char* LayoutName(Layout layout);
bool IsPlanar(Layout layout);
size_t FrameBytes(Layout layout, int width, int height);
Picture PictureOf(Layout layout, const uint8_t* base, int width, int height);
// One packed plane at `base`, `stride` bytes a line.
Picture Packed(const uint8_t* base, int stride);
// The same picture walked from its last row up.
Picture Flipped(const Picture& picture, Layout layout, int height);

}  // namespace bench

#endif
