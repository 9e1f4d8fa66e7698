// Runs the 4:2:0 members of any tier on model frames: lays a frame out in
// guarded buffers with the requested steps, calls the tier entry, reads
// the result back and reports whether any byte outside the samples moved.
#ifndef PIXMOOR_TESTS_PRIMITIVES_COLOUR_YUV420_HARNESS_H
#define PIXMOOR_TESTS_PRIMITIVES_COLOUR_YUV420_HARNESS_H

#include <pixmoor/primitives/colour.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>

#include "guarded_buffer.h"
#include "yuv420_model.h"

namespace yuv420_harness {

using pixmoor_test::GuardedBuffer;
using yuv420_model::RgbFrame;
using yuv420_model::Tier;
using yuv420_model::YuvFrame;

using RgbToYuv420Fn = PrimStatus (*)(const uint8_t*, uint8_t* const[3], int32_t, int32_t);
using RgbToYuv420StepFn = PrimStatus (*)(const uint8_t*, int32_t, uint8_t* const[3], const int32_t[3], int32_t, int32_t);
using RgbPlanesToYuv420Fn = PrimStatus (*)(const uint8_t* const[3], uint8_t* const[3], int32_t, int32_t);
using RgbPlanesToYuv420StepFn = PrimStatus (*)(const uint8_t* const[3], int32_t, uint8_t* const[3], const int32_t[3], int32_t, int32_t);
using Yuv420ToRgbFn = PrimStatus (*)(const uint8_t* const[3], uint8_t*, int32_t, int32_t);
using Yuv420ToRgbStepFn = PrimStatus (*)(const uint8_t* const[3], const int32_t[3], uint8_t*, int32_t, int32_t, int32_t);
using Yuv420ToRgbPlanesFn = PrimStatus (*)(const uint8_t* const[3], uint8_t* const[3], int32_t, int32_t);
using Yuv420ToRgbPlanesStepFn = PrimStatus (*)(const uint8_t* const[3], const int32_t[3], uint8_t* const[3], int32_t, int32_t, int32_t);

struct TierEntries {
    RgbToYuv420Fn rgbToYuv420;
    RgbToYuv420StepFn rgbToYuv420Step;
    RgbPlanesToYuv420Fn rgbPlanesToYuv420;
    RgbPlanesToYuv420StepFn rgbPlanesToYuv420Step;
    Yuv420ToRgbFn yuv420ToRgb;
    Yuv420ToRgbStepFn yuv420ToRgbStep;
    Yuv420ToRgbPlanesFn yuv420ToRgbPlanes;
    Yuv420ToRgbPlanesStepFn yuv420ToRgbPlanesStep;
};

#define YUV420_TIER_ENTRIES(t)                                                                  \
    TierEntries {                                                                               \
        t##_ImgRGBToYUV420, t##_ImgRGBToYUV420_Step, t##_ImgRGBPlanesToYUV420,                  \
            t##_ImgRGBPlanesToYUV420_Step, t##_ImgYUV420ToRGB, t##_ImgYUV420ToRGB_Step,         \
            t##_ImgYUV420ToRGBPlanes, t##_ImgYUV420ToRGBPlanes_Step                             \
    }

inline const TierEntries& Entries(int tier) {
    static const TierEntries all[4] = {YUV420_TIER_ENTRIES(px), YUV420_TIER_ENTRIES(m6),
                                       YUV420_TIER_ENTRIES(a6), YUV420_TIER_ENTRIES(w7)};
    return all[tier];
}

constexpr uint8_t kFill = GuardedBuffer::kCanary;

// One plane of `lines` lines of `lineBytes` bytes at distance `step`.
struct Plane {
    int lineBytes, lines, step;
    GuardedBuffer buf;
    Plane(int lineBytes_, int lines_, int step_)
        : lineBytes(lineBytes_), lines(lines_), step(step_),
          buf(static_cast<size_t>(step_) * (lines_ - 1) + lineBytes_, kFill) {}
    uint8_t* Line(int i) { return buf.data() + static_cast<size_t>(i) * step; }
    // True while the gaps between lines and the guards hold the fill.
    bool OutsideUntouched() const {
        if (!buf.GuardsIntact()) return false;
        for (int i = 0; i + 1 < lines; ++i)
            for (int k = lineBytes; k < step; ++k)
                if (buf[static_cast<size_t>(i) * step + k] != kFill) return false;
        return true;
    }
};

// Steps: the tight line plus `pad` bytes.
struct Layout {
    int pad = 0;
    bool compact = false;
};

struct Yuv420Planes {
    std::unique_ptr<Plane> y, u, v;
    Yuv420Planes(int w, int h, int pad) {
        const int cw = (w + 1) / 2, ch = (h + 1) / 2;
        y.reset(new Plane(w, h, w + pad));
        u.reset(new Plane(cw, ch, cw + pad));
        v.reset(new Plane(cw, ch, cw + pad + (pad ? 3 : 0)));  // unequal steps when padded
    }
    uint8_t* ptrs[3];
    int32_t steps[3];
    void Bind() {
        ptrs[0] = y->buf.data();
        ptrs[1] = u->buf.data();
        ptrs[2] = v->buf.data();
        steps[0] = y->step;
        steps[1] = u->step;
        steps[2] = v->step;
    }
    void Load(const YuvFrame& f) {
        for (int i = 0; i < f.height; ++i) std::memcpy(y->Line(i), &f.y[static_cast<size_t>(i) * f.width], f.width);
        for (int i = 0; i < f.chromaHeight; ++i) {
            std::memcpy(u->Line(i), &f.u[static_cast<size_t>(i) * f.chromaWidth], f.chromaWidth);
            std::memcpy(v->Line(i), &f.v[static_cast<size_t>(i) * f.chromaWidth], f.chromaWidth);
        }
    }
    YuvFrame Read(int w, int h) {
        YuvFrame f = YuvFrame::Make(w, h);
        for (int i = 0; i < h; ++i) std::memcpy(&f.y[static_cast<size_t>(i) * w], y->Line(i), w);
        for (int i = 0; i < f.chromaHeight; ++i) {
            std::memcpy(&f.u[static_cast<size_t>(i) * f.chromaWidth], u->Line(i), f.chromaWidth);
            std::memcpy(&f.v[static_cast<size_t>(i) * f.chromaWidth], v->Line(i), f.chromaWidth);
        }
        return f;
    }
    bool OutsideUntouched() const {
        return y->OutsideUntouched() && u->OutsideUntouched() && v->OutsideUntouched();
    }
};

struct RgbPlanes {
    std::unique_ptr<Plane> r, g, b;
    RgbPlanes(int w, int h, int pad) : r(new Plane(w, h, w + pad)), g(new Plane(w, h, w + pad)), b(new Plane(w, h, w + pad)) {}
    uint8_t* ptrs[3];
    void Bind() {
        ptrs[0] = r->buf.data();
        ptrs[1] = g->buf.data();
        ptrs[2] = b->buf.data();
    }
    void Load(const RgbFrame& f) {
        for (int i = 0; i < f.height; ++i) {
            std::memcpy(r->Line(i), &f.r[static_cast<size_t>(i) * f.width], f.width);
            std::memcpy(g->Line(i), &f.g[static_cast<size_t>(i) * f.width], f.width);
            std::memcpy(b->Line(i), &f.b[static_cast<size_t>(i) * f.width], f.width);
        }
    }
    RgbFrame Read(int w, int h) {
        RgbFrame f = RgbFrame::Make(w, h);
        for (int i = 0; i < h; ++i) {
            std::memcpy(&f.r[static_cast<size_t>(i) * w], r->Line(i), w);
            std::memcpy(&f.g[static_cast<size_t>(i) * w], g->Line(i), w);
            std::memcpy(&f.b[static_cast<size_t>(i) * w], b->Line(i), w);
        }
        return f;
    }
    bool OutsideUntouched() const {
        return r->OutsideUntouched() && g->OutsideUntouched() && b->OutsideUntouched();
    }
};

struct PackedRgb {
    Plane p;
    PackedRgb(int w, int h, int pad) : p(3 * w, h, 3 * w + pad) {}
    void Load(const RgbFrame& f) {
        for (int y = 0; y < f.height; ++y)
            for (int x = 0; x < f.width; ++x) {
                const yuv420_model::Pixel c = f.At(x, y);
                uint8_t* q = p.Line(y) + 3 * x;
                q[0] = static_cast<uint8_t>(c.r);
                q[1] = static_cast<uint8_t>(c.g);
                q[2] = static_cast<uint8_t>(c.b);
            }
    }
    RgbFrame Read(int w, int h) {
        RgbFrame f = RgbFrame::Make(w, h);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) {
                const uint8_t* q = p.Line(y) + 3 * x;
                f.Set(x, y, yuv420_model::Pixel{q[0], q[1], q[2]});
            }
        return f;
    }
};

struct Result {
    PrimStatus status;
    bool outsideUntouched;
};

struct ForwardOut {
    YuvFrame frame;
    Result result;
};
struct InverseOut {
    RgbFrame frame;
    Result result;
};

// Forward members: packed (planesSource false) or planes, compact or with
// steps padded by `pad` bytes.
inline ForwardOut RunForward(int tier, bool planesSource, bool compact, const RgbFrame& in, int pad = 0) {
    const int w = in.width, h = in.height;
    const int p = compact ? 0 : pad;
    Yuv420Planes out(w, h, p);
    out.Bind();
    const TierEntries& e = Entries(tier);
    PrimStatus s;
    if (planesSource) {
        RgbPlanes src(w, h, p);
        src.Load(in);
        src.Bind();
        const uint8_t* const sp[3] = {src.ptrs[0], src.ptrs[1], src.ptrs[2]};
        s = compact ? e.rgbPlanesToYuv420(sp, out.ptrs, w, h)
                    : e.rgbPlanesToYuv420Step(sp, src.r->step, out.ptrs, out.steps, w, h);
    } else {
        PackedRgb src(w, h, p);
        src.Load(in);
        s = compact ? e.rgbToYuv420(src.p.buf.data(), out.ptrs, w, h)
                    : e.rgbToYuv420Step(src.p.buf.data(), src.p.step, out.ptrs, out.steps, w, h);
    }
    return ForwardOut{out.Read(w, h), Result{s, out.OutsideUntouched()}};
}

inline InverseOut RunInverse(int tier, bool planesDest, bool compact, const YuvFrame& in, int pad = 0) {
    const int w = in.width, h = in.height;
    const int p = compact ? 0 : pad;
    Yuv420Planes src(w, h, p);
    src.Load(in);
    src.Bind();
    const uint8_t* const sp[3] = {src.ptrs[0], src.ptrs[1], src.ptrs[2]};
    const TierEntries& e = Entries(tier);
    if (planesDest) {
        RgbPlanes out(w, h, p);
        out.Bind();
        const PrimStatus s = compact ? e.yuv420ToRgbPlanes(sp, out.ptrs, w, h)
                                     : e.yuv420ToRgbPlanesStep(sp, src.steps, out.ptrs, out.r->step, w, h);
        return InverseOut{out.Read(w, h), Result{s, out.OutsideUntouched()}};
    }
    PackedRgb out(w, h, p);
    const PrimStatus s = compact ? e.yuv420ToRgb(sp, out.p.buf.data(), w, h)
                                 : e.yuv420ToRgbStep(sp, src.steps, out.p.buf.data(), out.p.step, w, h);
    return InverseOut{out.Read(w, h), Result{s, out.p.OutsideUntouched()}};
}

inline RgbFrame RandomRgb(int w, int h, uint32_t seed) {
    RgbFrame f = RgbFrame::Make(w, h);
    pixmoor_test::FillChannelsRandom({&f.r, &f.g, &f.b}, seed);
    return f;
}

inline YuvFrame RandomYuv(int w, int h, uint32_t seed) {
    YuvFrame f = YuvFrame::Make(w, h);
    pixmoor_test::FillChannelsRandom({&f.y, &f.u, &f.v}, seed);
    return f;
}

inline RgbFrame Uniform(int w, int h, yuv420_model::Pixel p) {
    RgbFrame f = RgbFrame::Make(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) f.Set(x, y, p);
    return f;
}

// One run of a member against the model.
struct Case {
    int tier;
    bool planes;   // the RGB side is planes rather than packed
    bool compact;  // the compact form rather than the step form
    int width, height, pad;
    uint32_t seed;
};

inline std::string Describe(const Case& c) {
    return std::string(yuv420_model::TierName(c.tier)) + (c.planes ? " planes" : " packed") +
           (c.compact ? " compact " : " step ") + std::to_string(c.width) + "x" + std::to_string(c.height);
}

// Widths 1 to 70 pass every tier's main-loop bounds (4, 8 and 16 pairs)
// several times over, with odd widths and every tail length; heights cover
// one line, odd and even counts of line pairs.
template <class Run>
void ForEachSmallCase(Run run) {
    uint32_t seed = 1;
    for (int tier : yuv420_model::kTiers)
        for (bool planes : {false, true})
            for (bool compact : {true, false})
                for (int h : {1, 2, 3, 4, 5, 7})
                    for (int w = 1; w <= 70; ++w)
                        if (!run(Case{tier, planes, compact, w, h, 5, seed++})) return;
}

// Larger frames, step forms with padding.
template <class Run>
void ForEachLargeCase(Run run) {
    const int sizes[][2] = {{641, 9}, {1024, 4}, {333, 17}, {128, 33}, {352, 288}};
    uint32_t seed = 1000;
    for (int tier : yuv420_model::kTiers)
        for (bool planes : {false, true})
            for (const auto& s : sizes)
                if (!run(Case{tier, planes, false, s[0], s[1], 13, seed++})) return;
}

inline bool Same(const YuvFrame& a, const YuvFrame& b) { return a.y == b.y && a.u == b.u && a.v == b.v; }
inline bool Same(const RgbFrame& a, const RgbFrame& b) { return a.r == b.r && a.g == b.g && a.b == b.b; }

}  // namespace yuv420_harness

#endif
