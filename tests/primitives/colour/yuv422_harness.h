// Runs the 4:2:2 members of any tier on model frames: lays a frame out in
// guarded buffers with the requested steps (or the compact ones), calls
// the entry, reads the result back and reports whether any byte outside
// the samples moved.
#ifndef PIXMOOR_TESTS_PRIMITIVES_COLOUR_YUV422_HARNESS_H
#define PIXMOOR_TESTS_PRIMITIVES_COLOUR_YUV422_HARNESS_H

#include <pixmoor/primitives/colour.h>

#include <cstring>
#include <memory>
#include <random>

#include "yuv420_harness.h"
#include "yuv422_model.h"

namespace yuv422_harness {

using yuv420_harness::PackedRgb;
using yuv420_harness::Plane;
using yuv420_harness::Result;
using yuv420_harness::RgbPlanes;
using yuv420_model::RgbFrame;
using yuv422_model::Packed422Frame;
using yuv422_model::Yuv422Frame;

using Packed422ToRgbFn = PrimStatus (*)(const uint8_t*, int32_t, uint8_t*, int32_t, int32_t, int32_t);
using RgbToPlanesStepFn = PrimStatus (*)(const uint8_t*, int32_t, uint8_t* const[3], const int32_t[3], int32_t, int32_t);
using RgbToPlanesFn = PrimStatus (*)(const uint8_t*, uint8_t* const[3], int32_t, int32_t);
using PlanesToRgbStepFn = PrimStatus (*)(const uint8_t* const[3], const int32_t[3], uint8_t*, int32_t, int32_t, int32_t);
using PlanesToRgbFn = PrimStatus (*)(const uint8_t* const[3], uint8_t*, int32_t, int32_t);
using RgbPlanesToPlanesStepFn = PrimStatus (*)(const uint8_t* const[3], int32_t, uint8_t* const[3], const int32_t[3], int32_t, int32_t);
using PlanesToPlanesFn = PrimStatus (*)(const uint8_t* const[3], uint8_t* const[3], int32_t, int32_t);
using PlanesToRgbPlanesStepFn = PrimStatus (*)(const uint8_t* const[3], const int32_t[3], uint8_t* const[3], int32_t, int32_t, int32_t);

struct TierEntries {
    Packed422ToRgbFn packedToRgb;
    RgbToPlanesStepFn rgbToPlanesStep;
    RgbToPlanesFn rgbToPlanes;
    PlanesToRgbStepFn planesToRgbStep;
    PlanesToRgbFn planesToRgb;
    RgbPlanesToPlanesStepFn rgbPlanesToPlanesStep;
    PlanesToPlanesFn rgbPlanesToPlanes;
    PlanesToRgbPlanesStepFn planesToRgbPlanesStep;
    PlanesToPlanesFn planesToRgbPlanes;
};

#define YUV422_TIER_ENTRIES(t)                                                                           \
    TierEntries {                                                                                        \
        t##ImgYUV422ToRGB, t##ImgRGBToYUV422Planes_Step, t##ImgRGBToYUV422Planes,                        \
            t##ImgYUV422PlanesToRGB_Step, t##ImgYUV422PlanesToRGB, t##ImgRGBPlanesToYUV422Planes_Step,   \
            t##ImgRGBPlanesToYUV422Planes, t##ImgYUV422PlanesToRGBPlanes_Step, t##ImgYUV422PlanesToRGBPlanes \
    }

// Tiers 0 to 3 by their prefixed names; 4 is the plain names.
constexpr int kPlain = 4;
inline const TierEntries& Entries(int tier) {
    static const TierEntries all[5] = {YUV422_TIER_ENTRIES(px_), YUV422_TIER_ENTRIES(m6_), YUV422_TIER_ENTRIES(a6_),
                                       YUV422_TIER_ENTRIES(w7_), YUV422_TIER_ENTRIES()};
    return all[tier];
}

// Planar 4:2:2 in guarded planes; unequal steps when padded.
struct Yuv422Planes {
    std::unique_ptr<Plane> y, u, v;
    uint8_t* ptrs[3];
    int32_t steps[3];
    Yuv422Planes(int w, int h, int pad) {
        const int cw = (w + 1) / 2;
        y.reset(new Plane(w, h, w + pad));
        u.reset(new Plane(cw, h, cw + pad));
        v.reset(new Plane(cw, h, cw + pad + (pad ? 5 : 0)));
        Plane* planes[3] = {y.get(), u.get(), v.get()};
        for (int i = 0; i < 3; ++i) {
            ptrs[i] = planes[i]->buf.data();
            steps[i] = planes[i]->step;
        }
    }
    void Load(const Yuv422Frame& f) {
        for (int i = 0; i < f.height; ++i) {
            std::memcpy(y->Line(i), &f.y[static_cast<size_t>(i) * f.width], f.width);
            std::memcpy(u->Line(i), &f.u[static_cast<size_t>(i) * f.chromaWidth], f.chromaWidth);
            std::memcpy(v->Line(i), &f.v[static_cast<size_t>(i) * f.chromaWidth], f.chromaWidth);
        }
    }
    Yuv422Frame Read(int w, int h) {
        Yuv422Frame f = Yuv422Frame::Make(w, h);
        for (int i = 0; i < h; ++i) {
            std::memcpy(&f.y[static_cast<size_t>(i) * w], y->Line(i), w);
            std::memcpy(&f.u[static_cast<size_t>(i) * f.chromaWidth], u->Line(i), f.chromaWidth);
            std::memcpy(&f.v[static_cast<size_t>(i) * f.chromaWidth], v->Line(i), f.chromaWidth);
        }
        return f;
    }
    bool OutsideUntouched() const { return y->OutsideUntouched() && u->OutsideUntouched() && v->OutsideUntouched(); }
};

struct ForwardOut {
    Yuv422Frame frame;
    Result result;
};
struct InverseOut {
    RgbFrame frame;
    Result result;
};

inline ForwardOut RunForward(int tier, bool planesSource, bool compact, const RgbFrame& in, int pad) {
    const int w = in.width, h = in.height, p = compact ? 0 : pad;
    Yuv422Planes out(w, h, p);
    const TierEntries& e = Entries(tier);
    PrimStatus s;
    if (planesSource) {
        RgbPlanes src(w, h, p);
        src.Load(in);
        src.Bind();
        const uint8_t* const sp[3] = {src.ptrs[0], src.ptrs[1], src.ptrs[2]};
        s = compact ? e.rgbPlanesToPlanes(sp, out.ptrs, w, h)
                    : e.rgbPlanesToPlanesStep(sp, src.r->step, out.ptrs, out.steps, w, h);
    } else {
        PackedRgb src(w, h, p);
        src.Load(in);
        s = compact ? e.rgbToPlanes(src.p.buf.data(), out.ptrs, w, h)
                    : e.rgbToPlanesStep(src.p.buf.data(), src.p.step, out.ptrs, out.steps, w, h);
    }
    return ForwardOut{out.Read(w, h), Result{s, out.OutsideUntouched()}};
}

inline InverseOut RunFromPlanes(int tier, bool planesDest, bool compact, const Yuv422Frame& in, int pad) {
    const int w = in.width, h = in.height, p = compact ? 0 : pad;
    Yuv422Planes src(w, h, p);
    src.Load(in);
    const uint8_t* const sp[3] = {src.ptrs[0], src.ptrs[1], src.ptrs[2]};
    const TierEntries& e = Entries(tier);
    if (planesDest) {
        RgbPlanes out(w, h, p);
        out.Bind();
        const PrimStatus s = compact ? e.planesToRgbPlanes(sp, out.ptrs, w, h)
                                     : e.planesToRgbPlanesStep(sp, src.steps, out.ptrs, out.r->step, w, h);
        return InverseOut{out.Read(w, h), Result{s, out.OutsideUntouched()}};
    }
    PackedRgb out(w, h, p);
    const PrimStatus s = compact ? e.planesToRgb(sp, out.p.buf.data(), w, h)
                                 : e.planesToRgbStep(sp, src.steps, out.p.buf.data(), out.p.step, w, h);
    return InverseOut{out.Read(w, h), Result{s, out.p.OutsideUntouched()}};
}

inline InverseOut RunFromPacked(int tier, const Packed422Frame& in, int srcPad, int dstPad) {
    const int w = in.width, h = in.height;
    Plane src(in.LineBytes(), h, in.LineBytes() + srcPad);
    for (int l = 0; l < h; ++l) std::memcpy(src.Line(l), in.Line(l), in.LineBytes());
    PackedRgb out(w, h, dstPad);
    const PrimStatus s = Entries(tier).packedToRgb(src.buf.data(), src.step, out.p.buf.data(), out.p.step, w, h);
    return InverseOut{out.Read(w, h), Result{s, out.p.OutsideUntouched()}};
}

inline Yuv422Frame RandomYuv422(int w, int h, uint32_t seed) {
    Yuv422Frame f = Yuv422Frame::Make(w, h);
    pixmoor_test::FillChannelsRandom({&f.y, &f.u, &f.v}, seed);
    return f;
}

inline Packed422Frame RandomPacked422(int w, int h, uint32_t seed) {
    Packed422Frame f;
    f.width = w;
    f.height = h;
    f.bytes = pixmoor_test::RandomBytes(static_cast<size_t>(2 * w) * h, seed);
    return f;
}

// For one U, a packed frame of 512 by 128 whose pairs run through every V
// and every Y, two Y values a pair (Y, Y + 1): 256 such frames hold every
// YUV triple.
inline Packed422Frame EveryYvOfOneU(int u) {
    const int w = 512, h = 128;
    Packed422Frame packed;
    packed.width = w;
    packed.height = h;
    packed.bytes.resize(static_cast<size_t>(2 * w) * h);
    for (int l = 0; l < h; ++l)
        for (int j = 0; j < w / 2; ++j) {
            const int n = l * (w / 2) + j, v = n / 128, y = 2 * (n % 128);
            uint8_t* p = &packed.bytes[static_cast<size_t>(l) * 2 * w + 4 * j];
            p[0] = static_cast<uint8_t>(y);
            p[1] = static_cast<uint8_t>(u);
            p[2] = static_cast<uint8_t>(y + 1);
            p[3] = static_cast<uint8_t>(v);
        }
    return packed;
}

}  // namespace yuv422_harness

#endif
