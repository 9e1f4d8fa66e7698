#include "pictures.h"

namespace bench {
namespace {

int BytesPerPixel(Layout layout) {
    switch (layout) {
    case Layout::RG24: return 3;
    case Layout::RG32: return 4;
    case Layout::YUY2:
    case Layout::UYVY:
    case Layout::RG55:
    case Layout::RG56: return 2;
    default: return 1;
    }
}

int LineBytes(Layout layout, int width) {
    return (width * BytesPerPixel(layout) + 3) & ~3;
}

}  // namespace

const char* LayoutName(Layout layout) {
    switch (layout) {
    case Layout::I420: return "I420";
    case Layout::YV12: return "YV12";
    case Layout::YUY2: return "YUY2";
    case Layout::UYVY: return "UYVY";
    case Layout::RG24: return "RG24";
    case Layout::RG32: return "RG32";
    case Layout::RG55: return "RG55";
    case Layout::RG56: return "RG56";
    }
    return "?";
}

bool IsPlanar(Layout layout) { return layout == Layout::I420 || layout == Layout::YV12; }

size_t FrameBytes(Layout layout, int width, int height) {
    if (IsPlanar(layout)) return size_t(width) * height * 3 / 2;
    return size_t(LineBytes(layout, width)) * height;
}

Picture PictureOf(Layout layout, const uint8_t* base, int width, int height) {
    Picture picture;
    uint8_t* p = const_cast<uint8_t*>(base);  // sources are only read
    if (!IsPlanar(layout)) {
        picture.plane[0] = p;
        picture.stride[0] = LineBytes(layout, width);
        return picture;
    }
    size_t luma = size_t(width) * height;
    size_t chroma = luma / 4;
    picture.plane[0] = p;
    picture.plane[1] = p + luma + (layout == Layout::YV12 ? chroma : 0);
    picture.plane[2] = p + luma + (layout == Layout::YV12 ? 0 : chroma);
    picture.stride[0] = width;
    picture.stride[1] = picture.stride[2] = width / 2;
    return picture;
}

Picture Packed(const uint8_t* base, int stride) {
    Picture picture;
    picture.plane[0] = const_cast<uint8_t*>(base);  // sources are only read
    picture.stride[0] = stride;
    return picture;
}

Picture Flipped(const Picture& picture, Layout layout, int height) {
    Picture flipped = picture;
    int planes = IsPlanar(layout) ? 3 : 1;
    for (int i = 0; i < planes; ++i) {
        int rows = i == 0 ? height : height / 2;
        flipped.plane[i] = picture.plane[i] + std::ptrdiff_t(rows - 1) * picture.stride[i];
        flipped.stride[i] = -picture.stride[i];
    }
    return flipped;
}

}  // namespace bench
