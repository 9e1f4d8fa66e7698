#include "colour/planar_rg32_one_pass.h"

#include <pixmoor/primitives/colour.h>
#include <pixmoor/runtime.h>

#include <cstring>
#include <memory>
#include <new>

#include "colour/byte_span.h"
#include "primitives/colour/yuv420_wide_rgb0.h"
#include "runtime/dispatch.h"

namespace pixmoor {
namespace {

using ConvertEntry = decltype(&px_ImgYUV420ToRGB);

// What rgbBuffer holds, told by its last byte.
enum BufferMark : uint8_t {
    kHoldsPicture = 0,  // the 3-byte picture of the last frame converted
    kHoldsPlanesPx = 1,  // a copy of the planes of a frame converted in one pass by px
    kHoldsPlanesM6 = 2,  // the same, by m6
};

// The sizes of a frame, and whether its buffer carries a mark: rgbBuffer
// is there and is 4*W*H bytes, a count reckoned without wrapping.  Init
// allocates rgbBuffer of destBufferSize bytes, so the two agree unless the
// last Init failed its size test after the allocation (size then stays
// what it was): with another size, the buffer is left as it is.
struct FrameBytes {
    int32_t width, height;
    int32_t chromaLine, chromaRows;  // the compact chroma planes: ceil(W/2) by ceil(H/2)
    int64_t luma, chroma, buffer;

    FrameBytes(int32_t w, int32_t h)
        : width(w),
          height(h),
          chromaLine((width >> 1) + (width & 1)),
          chromaRows((height >> 1) + (height & 1)),
          luma(int64_t{width} * height),
          chroma(int64_t{chromaLine} * chromaRows),
          buffer(luma * 4) {}
    bool Sized() const { return width >= 1 && height >= 1 && buffer <= INT32_MAX; }
    bool Marked(const CColorXFormPlanarToRG32* t) const {
        return t->rgbBuffer != nullptr && Sized() && int64_t{t->destBufferSize} == buffer;
    }
    uint8_t& MarkOf(uint8_t* rgbBuffer) const { return rgbBuffer[buffer - 1]; }
};

// The copy of the planes sits at the start of rgbBuffer: Y, then the second
// and third planes, compact.  It ends well before the mark.
//
// The frame goes one line pair at a time (the last line of an odd height
// alone), each pair's planes copied right after it is converted, while
// they are still in the cache.  Every pixel depends on its own Y and its
// pair's chroma alone, and a strip of whole line pairs gets the same row
// kernel and edge code as in one call, so the strips give the bytes of the
// whole-frame call.
constexpr int32_t kStripRows = 2;
static_assert(kStripRows % 2 == 0, "strips of whole line pairs");

void ConvertAndKeepInStrips(const FrameBytes& f, PrimTier tier, const uint8_t* const planes[3], uint8_t* dst,
                            int32_t step, uint8_t* rgbBuffer) {
    uint8_t* const keptY = rgbBuffer;
    uint8_t* const kept1 = keptY + f.luma;
    uint8_t* const kept2 = kept1 + f.chroma;
    for (int32_t top = 0; top < f.height; top += kStripRows) {
        const int32_t rows = f.height - top < kStripRows ? f.height - top : kStripRows;
        const int64_t lumaAt = int64_t{f.width} * top;
        const int64_t chromaAt = int64_t{f.chromaLine} * (top >> 1);
        const uint8_t* const strip[3] = {planes[0] + lumaAt, planes[1] + chromaAt, planes[2] + chromaAt};
        colour::Yuv420ToRgb0Wide(tier, strip, dst + int64_t{step} * top, step, f.width, rows);
        const auto lumaBytes = static_cast<size_t>(int64_t{f.width} * rows);
        const auto chromaBytes = static_cast<size_t>(int64_t{f.chromaLine} * ((rows >> 1) + (rows & 1)));
        std::memcpy(keptY + lumaAt, strip[0], lumaBytes);
        std::memcpy(kept1 + chromaAt, strip[1], chromaBytes);
        std::memcpy(kept2 + chromaAt, strip[2], chromaBytes);
    }
}

}  // namespace

void MarkRG32BufferFresh(uint8_t* rgbBuffer, AbsSIZE size) {
    const FrameBytes f(size.cx, size.cy);
    if (rgbBuffer != nullptr && f.Sized()) f.MarkOf(rgbBuffer) = kHoldsPicture;
}

bool ConvertRG32InOnePass(const CColorXFormPlanarToRG32* t, const uint8_t* const planes[3], uint8_t* dst,
                          int32_t gap) {
    const FrameBytes f(t->size.cx, t->size.cy);
    // What the conversion would refuse, and what keeps no mark.
    if (planes[0] == nullptr || planes[1] == nullptr || planes[2] == nullptr || dst == nullptr || !f.Marked(t))
        return false;
    // Rows go down the destination without touching one another, every
    // offset within 32 bits.
    const int64_t step = int64_t{f.width} * 4 + gap;
    if (gap < 0 || int64_t{t->destLineSize} != int64_t{f.width} * 4 || step * f.height > INT32_MAX) return false;
    // The two passes read the whole source before they write anything, and
    // the buffer is theirs alone: here nothing may share a byte.
    const ByteSpan source = ByteSpan::OfRows(planes[0], f.width, f.height, f.width)
                                .Join(ByteSpan::OfRows(planes[1], f.chromaLine, f.chromaRows, f.chromaLine))
                                .Join(ByteSpan::OfRows(planes[2], f.chromaLine, f.chromaRows, f.chromaLine));
    const ByteSpan out = ByteSpan::OfRows(dst, step, f.height, f.width * 4);
    const ByteSpan buffer = ByteSpan::OfRows(t->rgbBuffer, 0, 1, static_cast<int32_t>(f.buffer));
    if (out.Overlaps(source) || out.Overlaps(buffer) || source.Overlaps(buffer)) return false;

    const ConvertEntry entry = dispatch::OwnEntryInSlot<ConvertEntry>(dispatch::kRow_ImgYUV420ToRGB);
    if (entry != &px_ImgYUV420ToRGB && entry != &m6_ImgYUV420ToRGB) return false;
    const bool m6 = entry == &m6_ImgYUV420ToRGB;

    ConvertAndKeepInStrips(f, m6 ? PrimTierM6 : PrimTierPx, planes, dst, static_cast<int32_t>(step), t->rgbBuffer);
    f.MarkOf(t->rgbBuffer) = m6 ? kHoldsPlanesM6 : kHoldsPlanesPx;
    return true;
}

void RestoreRG32Picture(const CColorXFormPlanarToRG32* t) {
    const FrameBytes f(t->size.cx, t->size.cy);
    if (!f.Marked(t)) return;
    uint8_t& mark = f.MarkOf(t->rgbBuffer);
    if (mark == kHoldsPicture) return;
    // The picture is written over the copy, so the copy moves out first.
    // Should there be no memory for that, the buffer is left as it is.
    const int64_t bytes = f.luma + 2 * f.chroma;
    const std::unique_ptr<uint8_t[]> copy(new (std::nothrow) uint8_t[static_cast<size_t>(bytes)]);
    if (copy != nullptr) {
        std::memcpy(copy.get(), t->rgbBuffer, static_cast<size_t>(bytes));
        const uint8_t* const planes[3] = {copy.get(), copy.get() + f.luma, copy.get() + f.luma + f.chroma};
        const ConvertEntry convert = mark == kHoldsPlanesM6 ? &m6_ImgYUV420ToRGB : &px_ImgYUV420ToRGB;
        convert(planes, t->rgbBuffer, f.width, f.height);
    }
    mark = kHoldsPicture;
}

}  // namespace pixmoor
