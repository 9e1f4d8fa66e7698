// Image planes for the fuzz harnesses of image primitives: each plane holds
// exactly the lines its arguments describe, and steps and sizes are read
// from the input with the values the argument checks must reject mixed in.
#ifndef PIXMOOR_TESTS_FUZZ_IMAGE_PLANES_H
#define PIXMOOR_TESTS_FUZZ_IMAGE_PLANES_H

#include <algorithm>
#include <memory>

#include "fuzz_support.h"

namespace pixmoor_fuzz {

// One plane of an image: `lineBytes` bytes on each of `lines` lines, `step`
// bytes apart, in a buffer of exactly that span (plus `slack`).  A call
// that must be rejected gets a small buffer: it may touch none of it.
struct Plane {
    int32_t lineBytes = 0, lines = 0, step = 0;
    std::unique_ptr<ExactBuffer> bytes;
    std::vector<uint8_t> before;

    void Make(bool accepted, size_t slack, size_t misalign) {
        const size_t span = accepted ? static_cast<size_t>(lines - 1) * static_cast<size_t>(step) +
                                           static_cast<size_t>(lineBytes) + slack
                                     : 8;
        bytes = std::make_unique<ExactBuffer>(span, misalign);
    }
    uint8_t& At(int32_t x, int32_t y) { return bytes->data()[static_cast<size_t>(y) * step + x]; }
    // Lines closer than a line apart: the bytes written depend on the order
    // of the writes.
    bool Overlaps() const { return lines > 1 && step < lineBytes; }
};

// Everything an image primitive may take; each member passes what its shape
// has (packed pointers, plane arrays, one step or arrays of three).
struct ImageCall {
    const uint8_t* srcPacked;
    const uint8_t* const* srcPlanes;
    int32_t srcStep;
    const int32_t* srcSteps;
    uint8_t* dstPacked;
    uint8_t* const* dstPlanes;
    int32_t dstStep;
    const int32_t* dstSteps;
    int32_t width, height;
};

// Call shapes of the image members over an ImageCall, and the member's five
// entries (plain name, then the px, m6, a6 and w7 tiers) of one shape.
#define PACKED_TO_PACKED(fn) \
    [](const ImageCall& c) { return fn(c.srcPacked, c.srcStep, c.dstPacked, c.dstStep, c.width, c.height); }
#define PLANES_TO_PLANES_ONE(fn) \
    [](const ImageCall& c) { return fn(c.srcPlanes, c.srcStep, c.dstPlanes, c.dstStep, c.width, c.height); }
#define PACKED_TO_PLANES_ONE(fn) \
    [](const ImageCall& c) { return fn(c.srcPacked, c.srcStep, c.dstPlanes, c.dstStep, c.width, c.height); }
#define PLANES_ONE_TO_PACKED(fn) \
    [](const ImageCall& c) { return fn(c.srcPlanes, c.srcStep, c.dstPacked, c.dstStep, c.width, c.height); }
#define PACKED_TO_PLANES_STEPS(fn) \
    [](const ImageCall& c) { return fn(c.srcPacked, c.srcStep, c.dstPlanes, c.dstSteps, c.width, c.height); }
#define PACKED_TO_PLANES_COMPACT(fn) [](const ImageCall& c) { return fn(c.srcPacked, c.dstPlanes, c.width, c.height); }
#define PLANES_STEPS_TO_PACKED(fn) \
    [](const ImageCall& c) { return fn(c.srcPlanes, c.srcSteps, c.dstPacked, c.dstStep, c.width, c.height); }
#define PLANES_TO_PACKED_COMPACT(fn) [](const ImageCall& c) { return fn(c.srcPlanes, c.dstPacked, c.width, c.height); }
#define PLANES_ONE_TO_PLANES_STEPS(fn) \
    [](const ImageCall& c) { return fn(c.srcPlanes, c.srcStep, c.dstPlanes, c.dstSteps, c.width, c.height); }
#define PLANES_TO_PLANES_COMPACT(fn) [](const ImageCall& c) { return fn(c.srcPlanes, c.dstPlanes, c.width, c.height); }
#define PLANES_STEPS_TO_PLANES_ONE(fn) \
    [](const ImageCall& c) { return fn(c.srcPlanes, c.srcSteps, c.dstPlanes, c.dstStep, c.width, c.height); }
#define PLANES_STEPS_TO_WORDS(fn)                                                                    \
    [](const ImageCall& c) {                                                                        \
        return fn(c.srcPlanes, c.srcSteps, reinterpret_cast<uint16_t*>(c.dstPacked), c.dstStep, c.width, \
                  c.height);                                                                         \
    }
#define TIERS(SHAPE, name) {SHAPE(name), SHAPE(px_##name), SHAPE(m6_##name), SHAPE(a6_##name), SHAPE(w7_##name)}

// A step: a line and a gap mostly, now and then shorter than a line, 0,
// negative or anything.
inline int32_t ReadStep(FuzzInput& in, int32_t lineBytes) {
    const uint8_t how = in.Byte();
    if (how < 190) return lineBytes + in.Byte() % 24;
    if (how < 210) return 1 + in.Below(static_cast<uint32_t>(lineBytes > 0 ? lineBytes : 1));
    if (how < 225) return 0;
    if (how < 240) return -static_cast<int32_t>(in.Byte());
    const int32_t any = in.I32();
    return any > 0 ? 1 + any % 4096 : any;
}

// A width or height: at most 300 when positive.
inline int32_t ReadImageLength(FuzzInput& in, int32_t largest) {
    const int32_t v = in.Length(largest);
    return v > 0 ? 1 + (v - 1) % 300 : v;
}

// How one side of an image member lies in memory: one packed plane of
// `pixelBytes` a pixel, or three planes of one byte a sample whose second
// and third are full size, 4:2:2 (ceil(width/2) samples a line) or 4:2:0
// (and ceil(height/2) lines).
struct Layout {
    int planes;
    int pixelBytes;
    enum Chroma { kFull, k422, k420 } chroma;
    bool operator==(const Layout& o) const {
        return planes == o.planes && pixelBytes == o.pixelBytes && chroma == o.chroma;
    }
};
constexpr Layout Packed(int pixelBytes) { return {1, pixelBytes, Layout::kFull}; }
constexpr Layout kPlanesFull{3, 1, Layout::kFull};
constexpr Layout kPlanes422{3, 1, Layout::k422};
constexpr Layout kPlanes420{3, 1, Layout::k420};

// One step for the side, an array of three, or the compact forms' derived
// steps.
enum class Steps { One, Three, Derived };

// The planes of one side of a call.
struct Image {
    Layout layout{};
    int count = 1;
    Plane planes[3];
};

// The argument checks of the image members, in their order: the outer
// pointers (packed buffers, plane arrays, step arrays); the size; each plane
// pointer, source array first; the steps.  `stepsBeforePlanes` swaps the
// last two, as one member does.
struct CheckedCall {
    Image src, dst;
    ImageCall call{};
    PrimStatus expected = PrimStatusOk;
    bool accepted = false;
    const uint8_t* srcPtrs[3] = {};
    uint8_t* dstPtrs[3] = {};
    int32_t srcSteps[3] = {}, dstSteps[3] = {};
    int32_t w = 1, h = 1;  // the size, or 1 by 1 where the size is rejected

    CheckedCall() = default;
    CheckedCall(const CheckedCall&) = delete;
    CheckedCall& operator=(const CheckedCall&) = delete;
};

inline void ShapeImage(Image& image, Layout layout, int32_t w, int32_t h) {
    image.layout = layout;
    image.count = layout.planes;
    const int32_t cw = w / 2 + (w & 1), ch = h / 2 + (h & 1);
    for (int p = 0; p < image.count; ++p) {
        Plane& plane = image.planes[p];
        const bool sub = p > 0 && layout.chroma != Layout::kFull;
        plane.lineBytes = layout.planes == 1 ? layout.pixelBytes * w : sub ? cw : w;
        plane.lines = sub && layout.chroma == Layout::k420 ? ch : h;
    }
}

inline void ReadImageSteps(FuzzInput& in, Image& image, Steps steps) {
    for (int p = 0; p < image.count; ++p)
        image.planes[p].step = steps == Steps::Derived                ? image.planes[p].lineBytes
                               : steps == Steps::One && p > 0         ? image.planes[0].step
                                                                      : ReadStep(in, image.planes[p].lineBytes);
}

// Reads a whole call: size, null choices, steps, alignments and source
// bytes; the buffers hold exactly the lines described, plus `dstSlack`
// bytes behind a destination plane (and `dstAlign`-aligned starts), and the
// destination is filled with a pattern.
inline void PrepareCall(FuzzInput& in, CheckedCall& c, Layout srcLayout, Steps srcSteps, Layout dstLayout,
                        Steps dstSteps, bool stepsBeforePlanes = false, size_t dstSlack = 0, size_t dstAlign = 1,
                        int32_t element = 1) {
    const int32_t width = ReadImageLength(in, 70), height = ReadImageLength(in, 24);
    const uint8_t nulls = in.Byte();
    const bool sized = width >= 1 && height >= 1;
    c.w = sized ? width : 1, c.h = sized ? height : 1;
    ShapeImage(c.src, srcLayout, c.w, c.h);
    ShapeImage(c.dst, dstLayout, c.w, c.h);
    ReadImageSteps(in, c.src, srcSteps);
    ReadImageSteps(in, c.dst, dstSteps);
    // Members of wider elements get lines that start on whole elements.
    for (Image* image : {&c.src, &c.dst})
        for (int p = 0; p < image->count; ++p) {
            int32_t& step = image->planes[p].step;
            if (element > 1 && step >= 1 && step <= (1 << 20)) step = (step + element - 1) / element * element;
        }

    const bool nullSrcOuter = nulls == 0xF0, nullDstOuter = nulls == 0xF1;
    const bool nullSrcSteps = nulls == 0xF8 && srcSteps == Steps::Three;
    const bool nullDstSteps = nulls == 0xF9 && dstSteps == Steps::Three;
    int nullSrcPlane = nulls >= 0xF2 && nulls <= 0xF4 ? nulls - 0xF2 : -1;
    int nullDstPlane = nulls >= 0xF5 && nulls <= 0xF7 ? nulls - 0xF5 : -1;
    if (nullSrcPlane >= c.src.count) nullSrcPlane = -1;
    if (nullDstPlane >= c.dst.count) nullDstPlane = -1;
    const bool srcArray = srcLayout.planes == 3, dstArray = dstLayout.planes == 3;
    const bool outer = nullSrcOuter || nullDstOuter || nullSrcSteps || nullDstSteps ||
                       (nullSrcPlane >= 0 && !srcArray) || (nullDstPlane >= 0 && !dstArray);
    const bool inner = (nullSrcPlane >= 0 && srcArray) || (nullDstPlane >= 0 && dstArray);
    bool badStep = false;
    for (int p = 0; p < c.src.count; ++p) badStep |= c.src.planes[p].step < 1;
    for (int p = 0; p < c.dst.count; ++p) badStep |= c.dst.planes[p].step < 1;
    const PrimStatus third = stepsBeforePlanes ? PrimStatusStepError : PrimStatusNullPointer;
    const PrimStatus fourth = stepsBeforePlanes ? PrimStatusNullPointer : PrimStatusStepError;
    const bool thirdFails = stepsBeforePlanes ? badStep : inner, fourthFails = stepsBeforePlanes ? inner : badStep;
    c.expected = outer         ? PrimStatusNullPointer
                 : !sized      ? PrimStatusSizeError
                 : thirdFails  ? third
                 : fourthFails ? fourth
                               : PrimStatusOk;
    c.accepted = c.expected == PrimStatusOk;

    for (int p = 0; p < c.src.count; ++p) {
        Plane& plane = c.src.planes[p];
        plane.Make(c.accepted, 0, in.Byte() % 16 / static_cast<size_t>(element) * static_cast<size_t>(element));
        in.Fill(plane.bytes->data(), plane.bytes->size());
        plane.before = plane.bytes->Contents();
        c.srcPtrs[p] = p == nullSrcPlane ? nullptr : plane.bytes->data();
        c.srcSteps[p] = plane.step;
    }
    for (int p = 0; p < c.dst.count; ++p) {
        Plane& plane = c.dst.planes[p];
        const size_t align = std::max(dstAlign, static_cast<size_t>(element));
        plane.Make(c.accepted, dstSlack, in.Byte() % 16 / align * align);
        for (size_t i = 0; i < plane.bytes->size(); ++i) plane.bytes->data()[i] = static_cast<uint8_t>(i * 7 + 3 * p);
        plane.before = plane.bytes->Contents();
        c.dstPtrs[p] = p == nullDstPlane ? nullptr : plane.bytes->data();
        c.dstSteps[p] = plane.step;
    }
    c.call.width = width, c.call.height = height;
    c.call.srcPacked = nullSrcOuter ? nullptr : c.srcPtrs[0];
    c.call.srcPlanes = nullSrcOuter ? nullptr : c.srcPtrs;
    c.call.srcStep = c.srcSteps[0];
    c.call.srcSteps = nullSrcSteps ? nullptr : c.srcSteps;
    c.call.dstPacked = nullDstOuter ? nullptr : c.dstPtrs[0];
    c.call.dstPlanes = nullDstOuter ? nullptr : c.dstPtrs;
    c.call.dstStep = c.dstSteps[0];
    c.call.dstSteps = nullDstSteps ? nullptr : c.dstSteps;
}

// True while no source plane has changed.
inline bool SourceUnchanged(const CheckedCall& c) {
    for (int p = 0; p < c.src.count; ++p)
        if (!c.src.planes[p].bytes->Equals(c.src.planes[p].before)) return false;
    return true;
}

// True while no destination plane has changed.
inline bool DestinationUnchanged(const CheckedCall& c) {
    for (int p = 0; p < c.dst.count; ++p)
        if (!c.dst.planes[p].bytes->Equals(c.dst.planes[p].before)) return false;
    return true;
}

// Some destination lines overlap: the bytes depend on the order of writes.
inline bool DestinationOverlaps(const CheckedCall& c) {
    for (int p = 0; p < c.dst.count; ++p)
        if (c.dst.planes[p].Overlaps()) return true;
    return false;
}

}  // namespace pixmoor_fuzz

#endif
