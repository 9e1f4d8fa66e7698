#include "colour/planar_rg32_one_pass.h"

#include <pixmoor/primitives/colour.h>
#include <pixmoor/runtime.h>

#include <cstring>

#include "colour/byte_span.h"
#include "primitives/colour/yuv420_rgb0.h"
#include "runtime/dispatch.h"

namespace pixmoor {
namespace {

using ConvertEntry = decltype(&px_ImgYUV420ToRGB);

// What rgbBuffer holds, told by its last byte: 0 for the 3-byte picture
// of the last frame converted, else 1 + the tier of the library's entry
// that converted the last frame in one pass, whose planes are kept.
constexpr uint8_t kHoldsPicture = 0;

// Marks go up to 1 + w7.
constexpr int kTiers = 4;

ConvertEntry OwnConvertEntry(int tier) {
    return reinterpret_cast<ConvertEntry>(dispatch::OwnEntry(dispatch::kRow_ImgYUV420ToRGB, tier));
}

// The sizes of a frame, and whether its buffer carries a mark: rgbBuffer
// is there and is 4*W*H bytes, a count reckoned without wrapping.  Init
// allocates rgbBuffer of destBufferSize bytes, so the two agree unless the
// last Init failed its size test after the allocation (size then stays
// what it was): with another size, the buffer is left as it is.  Sizes
// that passed the size test are multiples of 4, which the layout of the
// copy below relies on.
struct FrameBytes {
    int32_t width, height;
    int64_t buffer;     // bytes of rgbBuffer
    int64_t pairBytes;  // the copy of one line pair: two Y rows, one row of each chroma plane
    int64_t copyStart;  // where the copy begins in rgbBuffer

    FrameBytes(int32_t w, int32_t h)
        : width(w),
          height(h),
          buffer(int64_t{w} * h * 4),
          pairBytes(int64_t{w} * 3),
          copyStart(buffer - 1 - pairBytes * (h >> 1)) {}
    bool Sized() const {
        return width >= 4 && height >= 4 && (width & 3) == 0 && (height & 3) == 0 && buffer <= INT32_MAX;
    }
    bool Marked(const CColorXFormPlanarToRG32* t) const {
        return t->rgbBuffer != nullptr && Sized() && int64_t{t->destBufferSize} == buffer;
    }
    uint8_t& MarkOf(uint8_t* rgbBuffer) const { return rgbBuffer[buffer - 1]; }

    // The three planes of line pair `pair` of a frame.
    static void PairPlanes(const uint8_t* const planes[3], int32_t width, int32_t pair, const uint8_t* out[3]) {
        out[0] = planes[0] + int64_t{width} * 2 * pair;
        out[1] = planes[1] + int64_t{width >> 1} * pair;
        out[2] = planes[2] + int64_t{width >> 1} * pair;
    }
    // The copy of line pair `pair`: its Y rows, then its rows of the
    // second and third planes.
    uint8_t* CopyOf(uint8_t* rgbBuffer, int32_t pair) const { return rgbBuffer + copyStart + pairBytes * pair; }
    int64_t SecondAt() const { return int64_t{width} * 2; }
    int64_t ThirdAt() const { return SecondAt() + (width >> 1); }
};

// The frame goes one line pair at a time, each pair's samples copied
// aside as it is converted (step by step in the vector forms, while the
// samples are at hand).  Every pixel depends on its own Y and its pair's
// chroma alone, and a line pair gets the same row kernel whether it is
// converted alone or with the others (the widths have no odd last column),
// so the pairs give the bytes of the whole-frame call.
//
// The copy fills the end of rgbBuffer up to the mark, pair after pair.
// Turning it back into the picture, pair by pair from the top, writes the
// 6*W bytes of pair i below the copy of pair i as long as
// 6*W*(i+1) <= copyStart + 3*W*i, that is for every pair when H >= 4: no
// pair is written over before it is read.
void ConvertAndKeep(const FrameBytes& f, PrimTier tier, const uint8_t* const planes[3], uint8_t* dst,
                    int32_t step, uint8_t* rgbBuffer) {
    for (int32_t pair = 0; pair < (f.height >> 1); ++pair) {
        const uint8_t* in[3];
        FrameBytes::PairPlanes(planes, f.width, pair, in);
        uint8_t* const kept = f.CopyOf(rgbBuffer, pair);
        uint8_t* const top = dst + int64_t{step} * 2 * pair;
        colour::Yuv420PairToRgb0Keeping(
            tier, colour::Yuv420Lines<const uint8_t>{in[0], in[0] + f.width, in[1], in[2]}, top, top + step, f.width,
            colour::Yuv420Lines<uint8_t>{kept, kept + f.width, kept + f.SecondAt(), kept + f.ThirdAt()});
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
    const int32_t chromaLine = f.width >> 1;
    const int32_t chromaRows = f.height >> 1;
    const ByteSpan source = ByteSpan::OfRows(planes[0], f.width, f.height, f.width)
                                .Join(ByteSpan::OfRows(planes[1], chromaLine, chromaRows, chromaLine))
                                .Join(ByteSpan::OfRows(planes[2], chromaLine, chromaRows, chromaLine));
    const ByteSpan out = ByteSpan::OfRows(dst, step, f.height, f.width * 4);
    const ByteSpan buffer = ByteSpan::Of(t->rgbBuffer, static_cast<uint64_t>(f.buffer));
    if (out.Overlaps(source) || out.Overlaps(buffer) || source.Overlaps(buffer)) return false;

    const int tier = dispatch::OwnTierInSlot(dispatch::kRow_ImgYUV420ToRGB);
    if (tier < 0) return false;

    ConvertAndKeep(f, static_cast<PrimTier>(tier), planes, dst, static_cast<int32_t>(step), t->rgbBuffer);
    f.MarkOf(t->rgbBuffer) = static_cast<uint8_t>(1 + tier);
    return true;
}

void RestoreRG32Picture(const CColorXFormPlanarToRG32* t) {
    const FrameBytes f(t->size.cx, t->size.cy);
    if (!f.Marked(t)) return;
    uint8_t& mark = f.MarkOf(t->rgbBuffer);
    if (mark == kHoldsPicture || mark > kTiers) return;
    // Pair by pair from the top, each written below what is still to be
    // read (see ConvertAndKeep), by the entry of the tier that converted
    // the frame.
    const ConvertEntry convert = OwnConvertEntry(mark - 1);
    for (int32_t pair = 0; pair < (f.height >> 1); ++pair) {
        const uint8_t* const at = f.CopyOf(t->rgbBuffer, pair);
        const uint8_t* const kept[3] = {at, at + f.SecondAt(), at + f.ThirdAt()};
        convert(kept, t->rgbBuffer + int64_t{f.width} * 6 * pair, f.width, 2);
    }
    mark = kHoldsPicture;
}

}  // namespace pixmoor
