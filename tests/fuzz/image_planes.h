// Image planes for the fuzz harnesses of image primitives: each plane holds
// exactly the lines its arguments describe, and steps and sizes are read
// from the input with the values the argument checks must reject mixed in.
#ifndef PIXMOOR_TESTS_FUZZ_IMAGE_PLANES_H
#define PIXMOOR_TESTS_FUZZ_IMAGE_PLANES_H

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

}  // namespace pixmoor_fuzz

#endif
