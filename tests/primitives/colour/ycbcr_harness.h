// Runs the YCbCr members of any tier on images laid out in guarded buffers
// and builds the bytes each destination buffer must hold afterwards: a copy
// of the buffer as it stood, with the model's samples written in.  Bytes
// that a member must not touch (gaps between lines, the fourth byte of AC4
// pixels, the guards) therefore keep their random fill in the expectation.
#ifndef PIXMOOR_TESTS_PRIMITIVES_COLOUR_YCBCR_HARNESS_H
#define PIXMOOR_TESTS_PRIMITIVES_COLOUR_YCBCR_HARNESS_H

#include <pixmoor/primitives/colour.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "guarded_buffer.h"
#include "ycbcr_model.h"

namespace ycbcr_harness {

using namespace ycbcr_model;
using pixmoor_test::GuardedBuffer;

// Image sides.  P3 is three planes with one step, P3x420 three planes of
// 4:2:0 with three steps, Words one 16-bit word a pixel.
enum Kind { kC3, kAC4, kC2, kP3, kP3x420, kWords };

// Every argument a member may take.
struct Args {
    const uint8_t* src = nullptr;
    const uint8_t* const* srcPlanes = nullptr;
    int32_t srcStep = 0;
    const int32_t* srcSteps = nullptr;
    uint8_t* dst = nullptr;
    uint8_t* const* dstPlanes = nullptr;
    int32_t dstStep = 0;
    const int32_t* dstSteps = nullptr;
    int32_t width = 0, height = 0;
};
using Caller = PrimStatus (*)(const Args&);

enum Id {
    kRgbToC2, kC2ToRgb, kP3ToC2, kC2ToP3, kC2ToWords, kRgbTo420, kFrom420, kRgbToP3, kP3ToRgb,
    kRgbToC3, kC3ToRgb, kRgbToAC4, kAC4ToRgb, kC3ToWords
};

struct Member {
    const char* name;
    Id id;
    Kind src, dst;
    int bits;      // word layout of the members that write words
    bool redHigh;  // their order flag
    Caller tiers[4];
    Caller plain;
};

#define YCC_CALLERS(name, args)                                                                     \
    {[](const Args& a) { return px_##name args; }, [](const Args& a) { return m6_##name args; },     \
     [](const Args& a) { return a6_##name args; }, [](const Args& a) { return w7_##name args; }},    \
        [](const Args& a) { return name args; }
#define YCC_BYTES (a.src, a.srcStep, a.dst, a.dstStep, a.width, a.height)
#define YCC_WORDS (a.src, a.srcStep, reinterpret_cast<uint16_t*>(a.dst), a.dstStep, a.width, a.height)

// The 24 members in their list order.
inline const std::vector<Member>& Members() {
    static const std::vector<Member> all = {
        {"ImgRGBToYCbCr422C3C2", kRgbToC2, kC3, kC2, 0, false, YCC_CALLERS(ImgRGBToYCbCr422C3C2, YCC_BYTES)},
        {"ImgYCbCr422ToRGBC2C3", kC2ToRgb, kC2, kC3, 0, false, YCC_CALLERS(ImgYCbCr422ToRGBC2C3, YCC_BYTES)},
        {"ImgRGBToYCbCr422P3C2", kP3ToC2, kP3, kC2, 0, false,
         YCC_CALLERS(ImgRGBToYCbCr422P3C2, (a.srcPlanes, a.srcStep, a.dst, a.dstStep, a.width, a.height))},
        {"ImgYCbCr422ToRGBC2P3", kC2ToP3, kC2, kP3, 0, false,
         YCC_CALLERS(ImgYCbCr422ToRGBC2P3, (a.src, a.srcStep, a.dstPlanes, a.dstStep, a.width, a.height))},
        {"ImgYCbCr422ToBGR565", kC2ToWords, kC2, kWords, 565, false, YCC_CALLERS(ImgYCbCr422ToBGR565, YCC_WORDS)},
        {"ImgYCbCr422ToRGB565", kC2ToWords, kC2, kWords, 565, true, YCC_CALLERS(ImgYCbCr422ToRGB565, YCC_WORDS)},
        {"ImgYCbCr422ToBGR555", kC2ToWords, kC2, kWords, 555, false, YCC_CALLERS(ImgYCbCr422ToBGR555, YCC_WORDS)},
        {"ImgYCbCr422ToRGB555", kC2ToWords, kC2, kWords, 555, true, YCC_CALLERS(ImgYCbCr422ToRGB555, YCC_WORDS)},
        {"ImgYCbCr422ToBGR444", kC2ToWords, kC2, kWords, 444, false, YCC_CALLERS(ImgYCbCr422ToBGR444, YCC_WORDS)},
        {"ImgYCbCr422ToRGB444", kC2ToWords, kC2, kWords, 444, true, YCC_CALLERS(ImgYCbCr422ToRGB444, YCC_WORDS)},
        {"ImgRGBToYCbCr420C3P3", kRgbTo420, kC3, kP3x420, 0, false,
         YCC_CALLERS(ImgRGBToYCbCr420C3P3, (a.src, a.srcStep, a.dstPlanes, a.dstSteps, a.width, a.height))},
        {"ImgYCbCr420ToRGBP3C3", kFrom420, kP3x420, kC3, 0, false,
         YCC_CALLERS(ImgYCbCr420ToRGBP3C3, (a.srcPlanes, a.srcSteps, a.dst, a.dstStep, a.width, a.height))},
        {"ImgRGBToYCbCrP3", kRgbToP3, kP3, kP3, 0, false,
         YCC_CALLERS(ImgRGBToYCbCrP3, (a.srcPlanes, a.srcStep, a.dstPlanes, a.dstStep, a.width, a.height))},
        {"ImgYCbCrToRGBP3", kP3ToRgb, kP3, kP3, 0, false,
         YCC_CALLERS(ImgYCbCrToRGBP3, (a.srcPlanes, a.srcStep, a.dstPlanes, a.dstStep, a.width, a.height))},
        {"ImgRGBToYCbCrC3", kRgbToC3, kC3, kC3, 0, false, YCC_CALLERS(ImgRGBToYCbCrC3, YCC_BYTES)},
        {"ImgYCbCrToRGBC3", kC3ToRgb, kC3, kC3, 0, false, YCC_CALLERS(ImgYCbCrToRGBC3, YCC_BYTES)},
        {"ImgRGBToYCbCrAC4", kRgbToAC4, kAC4, kAC4, 0, false, YCC_CALLERS(ImgRGBToYCbCrAC4, YCC_BYTES)},
        {"ImgYCbCrToRGBAC4", kAC4ToRgb, kAC4, kAC4, 0, false, YCC_CALLERS(ImgYCbCrToRGBAC4, YCC_BYTES)},
        {"ImgYCbCrToRGB444", kC3ToWords, kC3, kWords, 444, true, YCC_CALLERS(ImgYCbCrToRGB444, YCC_WORDS)},
        {"ImgYCbCrToBGR444", kC3ToWords, kC3, kWords, 444, false, YCC_CALLERS(ImgYCbCrToBGR444, YCC_WORDS)},
        {"ImgYCbCrToRGB555", kC3ToWords, kC3, kWords, 555, true, YCC_CALLERS(ImgYCbCrToRGB555, YCC_WORDS)},
        {"ImgYCbCrToBGR555", kC3ToWords, kC3, kWords, 555, false, YCC_CALLERS(ImgYCbCrToBGR555, YCC_WORDS)},
        {"ImgYCbCrToRGB565", kC3ToWords, kC3, kWords, 565, true, YCC_CALLERS(ImgYCbCrToRGB565, YCC_WORDS)},
        {"ImgYCbCrToBGR565", kC3ToWords, kC3, kWords, 565, false, YCC_CALLERS(ImgYCbCrToBGR565, YCC_WORDS)},
    };
    return all;
}

inline const Member& Find(const std::string& name) {
    for (const Member& m : Members())
        if (name == m.name) return m;
    throw name;
}

// One plane: `lines` lines of `lineBytes` bytes, `step` apart, starting
// `offset` bytes into its buffer; a few spare bytes after the last line.
struct Plane {
    int lineBytes, lines, step, offset;
    GuardedBuffer buf;
    Plane(int lineBytes_, int lines_, int step_, int offset_, uint32_t seed)
        : lineBytes(lineBytes_), lines(lines_), step(step_), offset(offset_),
          buf(static_cast<size_t>(offset_) + static_cast<size_t>(step_) * (lines_ - 1) + lineBytes_ + 4) {
        buf.FillRandom(seed);
    }
    uint8_t* Ptr() { return buf.data() + offset; }
    const uint8_t* Ptr() const { return buf.data() + offset; }
};

// One side of a call.  `pad` lengthens every step; `offset` moves every
// plane's start (the vector tiers' alignment stages depend on it).
struct Side {
    Kind kind;
    int width, height;
    std::vector<Plane> planes;
    int32_t steps[3] = {0, 0, 0};
    uint8_t* ptrs[3] = {nullptr, nullptr, nullptr};

    Side(Kind k, int w, int h, int pad, int offset, uint32_t seed) : kind(k), width(w), height(h) {
        const int cw = (w + 1) / 2, ch = (h + 1) / 2;
        planes.reserve(3);
        switch (k) {
            case kC3: planes.emplace_back(3 * w, h, 3 * w + pad, offset, seed); break;
            case kAC4: planes.emplace_back(4 * w, h, 4 * w + pad, offset, seed); break;
            case kC2: planes.emplace_back(2 * w, h, 2 * w + pad, offset, seed); break;
            case kWords: planes.emplace_back(2 * w, h, 2 * w + pad, offset, seed); break;
            case kP3:
                for (int i = 0; i < 3; ++i) planes.emplace_back(w, h, w + pad, offset + 5 * i, seed + i);
                break;
            case kP3x420:
                planes.emplace_back(w, h, w + pad, offset, seed);
                planes.emplace_back(cw, ch, cw + pad, offset + 3, seed + 1);
                planes.emplace_back(cw, ch, cw + pad + (pad ? 3 : 0), offset + 7, seed + 2);
                break;
        }
        for (size_t i = 0; i < planes.size(); ++i) {
            steps[i] = planes[i].step;
            ptrs[i] = planes[i].Ptr();
        }
    }
    std::vector<std::vector<uint8_t>> Contents() const {
        std::vector<std::vector<uint8_t>> c;
        for (const Plane& p : planes) c.push_back(p.buf.Contents());
        return c;
    }
    bool GuardsIntact() const {
        for (const Plane& p : planes)
            if (!p.buf.GuardsIntact()) return false;
        return true;
    }
    // Byte offset of line y in plane i's buffer (the 16-bit step halved).
    size_t LineStart(int i, int y) const {
        const int32_t step = kind == kWords ? (steps[0] >> 1) * 2 : steps[i];
        return static_cast<size_t>(planes[i].offset) + static_cast<size_t>(step) * y;
    }
    const uint8_t* Line(int i, int y) const { return planes[i].buf.data() + LineStart(i, y); }
    Px Pixel(int x, int y) const {
        if (kind == kP3) return Px{Line(0, y)[x], Line(1, y)[x], Line(2, y)[x]};
        const uint8_t* p = Line(0, y) + (kind == kAC4 ? 4 : 3) * x;
        return Px{p[0], p[1], p[2]};
    }
};

// Fills Args from the two sides.
struct Bound {
    Args args;
    const uint8_t* srcPlanes[3];
    uint8_t* dstPlanes[3];
    Bound(Side& src, Side& dst) {
        for (int i = 0; i < 3; ++i) {
            srcPlanes[i] = src.ptrs[i];
            dstPlanes[i] = dst.ptrs[i];
        }
        args.src = src.ptrs[0];
        args.srcPlanes = srcPlanes;
        args.srcStep = src.steps[0];
        args.srcSteps = src.steps;
        args.dst = dst.ptrs[0];
        args.dstPlanes = dstPlanes;
        args.dstStep = dst.steps[0];
        args.dstSteps = dst.steps;
        args.width = src.width;
        args.height = src.height;
    }
};

// The expected destination: a copy of its buffers, written by the model.
struct Expected {
    const Side& real;
    std::vector<std::vector<uint8_t>> bytes;
    explicit Expected(const Side& dst) : real(dst), bytes(dst.Contents()) {}

    uint8_t* Line(int i, int y) { return bytes[i].data() + real.LineStart(i, y); }
    uintptr_t Address(int i, int y) const { return reinterpret_cast<uintptr_t>(real.Line(i, y)); }
    void Put(int x, int y, Px c) {
        if (real.kind == kP3) {
            Line(0, y)[x] = static_cast<uint8_t>(c.a);
            Line(1, y)[x] = static_cast<uint8_t>(c.b);
            Line(2, y)[x] = static_cast<uint8_t>(c.c);
            return;
        }
        uint8_t* p = Line(0, y) + (real.kind == kAC4 ? 4 : 3) * x;
        p[0] = static_cast<uint8_t>(c.a);
        p[1] = static_cast<uint8_t>(c.b);
        p[2] = static_cast<uint8_t>(c.c);
    }
    void PutWord(int x, int y, uint16_t w) { std::memcpy(Line(0, y) + 2 * x, &w, 2); }
    // Three plain bytes at the start of line y, the halved step apart.
    void PutBytesAtHalvedStep(int y, Px c) {
        uint8_t* p = bytes[0].data() + real.planes[0].offset + static_cast<size_t>(real.steps[0] >> 1) * y;
        p[0] = static_cast<uint8_t>(c.a);
        p[1] = static_cast<uint8_t>(c.b);
        p[2] = static_cast<uint8_t>(c.c);
    }
};

// ---- whole-image models --------------------------------------------------

inline Px Forward(Px p) { return Px{Y(p), Cb1(p), Cr1(p)}; }

// Lane pairs and scalar pairs of w7's RGB to 4:2:2 kernel on one line.
inline void ExpectW7ForwardLine(const Side& src, Expected& e, int y, int w) {
    const int pairs = w / 2;
    const int lead = std::min(pairs, static_cast<int>(((16 - (e.Address(0, y) & 15)) & 15) / 4));
    const int laneEnd = lead + (pairs - lead) / 4 * 4 + ((pairs - lead) % 4 >= 2 ? 2 : 0);
    uint8_t* out = e.Line(0, y);
    for (int j = 0; j < pairs; ++j) {
        const Px a = src.Pixel(2 * j, y), b = src.Pixel(2 * j + 1, y), s = Add(a, b);
        const bool lane = j >= lead && j < laneEnd;
        out[4 * j] = static_cast<uint8_t>(lane ? YLane(a) : YSecond(a));
        out[4 * j + 1] = static_cast<uint8_t>(CbPair(s));
        out[4 * j + 2] = static_cast<uint8_t>(lane ? YLane(b) : YSecond(b));
        out[4 * j + 3] = static_cast<uint8_t>(CrPair(s));
    }
}

inline void ExpectForward422(int tier, bool laneForm, const Side& src, Expected& e, int w, int h) {
    for (int y = 0; y < h; ++y) {
        uint8_t* out = e.Line(0, y);
        if (laneForm && tier == kW7) {
            ExpectW7ForwardLine(src, e, y, w);
        } else {
            for (int j = 0; j < w / 2; ++j) {
                const Px a = src.Pixel(2 * j, y), b = src.Pixel(2 * j + 1, y), s = Add(a, b);
                out[4 * j] = static_cast<uint8_t>(Y(a));
                out[4 * j + 1] = static_cast<uint8_t>(CbPair(s));
                out[4 * j + 2] = static_cast<uint8_t>(YSecond(b));
                out[4 * j + 3] = static_cast<uint8_t>(CrPair(s));
            }
        }
        if (w & 1) {
            const Px a = src.Pixel(w - 1, y);
            out[2 * (w - 1)] = static_cast<uint8_t>(Y(a));
            out[2 * (w - 1) + 1] = static_cast<uint8_t>(Cb1(a));
        }
    }
}

inline void ExpectInverse422(int tier, const Member& m, const Side& src, Expected& e, int w, int h) {
    auto put = [&](int x, int y, Px c) {
        if (m.dst == kWords)
            e.PutWord(x, y, Pack(c, m.bits, m.redHigh));
        else
            e.Put(x, y, c);
    };
    auto rgb = [&](int yy, int u, int v) { return tier == kW7 ? Inverse422Lane(yy, u, v) : Inverse422(yy, u, v); };
    for (int y = 0; y < h; ++y) {
        const uint8_t* p = src.Line(0, y);
        if (w == 1) {
            if (m.dst == kWords)
                e.PutBytesAtHalvedStep(y, WidthOne(p[0], p[1]));
            else
                e.Put(0, y, WidthOne(p[0], p[1]));
            continue;
        }
        for (int j = 0; j < w / 2; ++j) {
            put(2 * j, y, rgb(p[4 * j], p[4 * j + 1], p[4 * j + 3]));
            put(2 * j + 1, y, rgb(p[4 * j + 2], p[4 * j + 1], p[4 * j + 3]));
        }
        if (w & 1) {
            const int k = 2 * (w - 1);
            put(w - 1, y, rgb(p[k], p[k + 1], p[k - 1]));
        }
    }
}

inline void ExpectForward420(int tier, const Side& src, Expected& e, int w, int h) {
    const bool lanes = tier == kA6 || tier == kW7;
    auto putY = [&](int x, int y, int v) { e.Line(0, y)[x] = static_cast<uint8_t>(v); };
    auto putC = [&](int x, int y, int cb, int cr) {
        e.Line(1, y)[x] = static_cast<uint8_t>(cb);
        e.Line(2, y)[x] = static_cast<uint8_t>(cr);
    };
    for (int i = 0; i < h / 2; ++i) {
        for (int j = 0; j < w / 2; ++j) {
            const Px p[4] = {src.Pixel(2 * j, 2 * i), src.Pixel(2 * j + 1, 2 * i), src.Pixel(2 * j, 2 * i + 1),
                             src.Pixel(2 * j + 1, 2 * i + 1)};
            const Px s = Add(Add(p[0], p[1]), Add(p[2], p[3]));
            for (int k = 0; k < 4; ++k) putY(2 * j + (k & 1), 2 * i + k / 2, lanes ? Y420(p[k]) : Y(p[k]));
            putC(j, i, lanes ? Cb420(s) : CbFour(s), lanes ? Cr420(s) : CrFour(s));
        }
        if (w & 1) {
            const Px a = src.Pixel(w - 1, 2 * i), b = src.Pixel(w - 1, 2 * i + 1);
            putY(w - 1, 2 * i, Y(a));
            putY(w - 1, 2 * i + 1, Y(b));
            putC(w / 2, i, CbTwo(Add(a, b)), CrTwo(Add(a, b)));
        }
    }
    if (h & 1) {
        const int y = h - 1;
        for (int j = 0; j < w / 2; ++j) {
            const Px a = src.Pixel(2 * j, y), b = src.Pixel(2 * j + 1, y);
            putY(2 * j, y, Y(a));
            putY(2 * j + 1, y, Y(b));
            putC(j, h / 2, CbTwo(Add(a, b)), CrTwo(Add(a, b)));
        }
        if (w & 1) {
            const Px a = src.Pixel(w - 1, y);
            putY(w - 1, y, Y(a));
            putC(w / 2, h / 2, Cb1(a), Cr1(a));
        }
    }
}

inline void ExpectInverse420(int tier, const Side& src, Expected& e, int w, int h) {
    const bool lanes = tier == kA6 || tier == kW7;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const int yy = src.Line(0, y)[x], u = src.Line(1, y / 2)[x / 2], v = src.Line(2, y / 2)[x / 2];
            // Only the row kernel's blocks take the lane form; the last column
            // and last line of odd sizes take the reference.
            const bool kernel = lanes && x < (w & ~1) && y < (h & ~1);
            e.Put(x, y, kernel ? Inverse420(yy, u, v) : Inverse(yy, u, v));
        }
}

// w7's planes kernels: plane by plane, reference samples up to the plane
// line's 16-byte boundary, lanes for whole groups of 16, reference after.
template <class Ref, class Lane>
void ExpectStages(Expected& e, int plane, int y, int w, Ref ref, Lane lane) {
    const int lead = std::min(w, static_cast<int>((16 - (e.Address(plane, y) & 15)) & 15));
    const int body = lead + (w - lead) / 16 * 16;
    for (int x = 0; x < w; ++x) e.Line(plane, y)[x] = static_cast<uint8_t>(x >= lead && x < body ? lane(x) : ref(x));
}

inline void ExpectForwardPlanes(int tier, const Side& src, Expected& e, int w, int h) {
    for (int y = 0; y < h; ++y) {
        auto px = [&](int x) { return src.Pixel(x, y); };
        if (tier != kW7) {
            for (int x = 0; x < w; ++x) e.Put(x, y, Forward(px(x)));
            continue;
        }
        ExpectStages(e, 0, y, w, [&](int x) { return Y(px(x)); }, [&](int x) { return YLane(px(x)); });
        ExpectStages(e, 1, y, w, [&](int x) { return Cb1(px(x)); }, [&](int x) { return CbLane(px(x)); });
        ExpectStages(e, 2, y, w, [&](int x) { return Cr1(px(x)); }, [&](int x) { return CrLane(px(x)); });
    }
}

inline void ExpectInversePlanes(int tier, const Side& src, Expected& e, int w, int h) {
    for (int y = 0; y < h; ++y) {
        auto px = [&](int x) { return src.Pixel(x, y); };
        auto ref = [&](int x) { const Px s = px(x); return Inverse(s.a, s.b, s.c); };
        if (tier != kW7) {
            for (int x = 0; x < w; ++x) e.Put(x, y, ref(x));
            continue;
        }
        ExpectStages(e, 0, y, w, [&](int x) { return ref(x).a; }, [&](int x) { return RLane(px(x).a, px(x).c); });
        ExpectStages(e, 1, y, w, [&](int x) { return ref(x).b; },
                     [&](int x) { return GLane(px(x).a, px(x).b, px(x).c); });
        ExpectStages(e, 2, y, w, [&](int x) { return ref(x).c; }, [&](int x) { return BLane(px(x).a, px(x).b); });
    }
}

inline void ExpectPixels(int tier, const Member& m, const Side& src, Expected& e, int w, int h) {
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const Px p = src.Pixel(x, y);
            switch (m.id) {
                case kRgbToC3: e.Put(x, y, tier == kW7 ? ForwardHalf(p) : Forward(p)); break;
                case kRgbToAC4: e.Put(x, y, Forward(p)); break;
                case kC3ToWords: e.PutWord(x, y, Pack(Inverse(p.a, p.b, p.c), m.bits, m.redHigh)); break;
                default: e.Put(x, y, Inverse(p.a, p.b, p.c)); break;
            }
        }
}

inline void Expect(int tier, const Member& m, const Side& src, Expected& e, int w, int h) {
    switch (m.id) {
        case kRgbToC2: ExpectForward422(tier, true, src, e, w, h); break;
        case kP3ToC2: ExpectForward422(tier, false, src, e, w, h); break;
        case kC2ToRgb:
        case kC2ToP3:
        case kC2ToWords: ExpectInverse422(tier, m, src, e, w, h); break;
        case kRgbTo420: ExpectForward420(tier, src, e, w, h); break;
        case kFrom420: ExpectInverse420(tier, src, e, w, h); break;
        case kRgbToP3: ExpectForwardPlanes(tier, src, e, w, h); break;
        case kP3ToRgb: ExpectInversePlanes(tier, src, e, w, h); break;
        default: ExpectPixels(tier, m, src, e, w, h); break;
    }
}

// One run: lays out both sides, calls the member, compares every byte of
// every destination buffer with the model's.
struct Case {
    int width, height;
    int srcPad = 0, dstPad = 0;
    int srcOffset = 0, dstOffset = 0;
    uint32_t seed = 1;
};

inline std::string Describe(const Member& m, int tier, const Case& c) {
    return std::string(m.name) + " " + TierName(tier) + " " + std::to_string(c.width) + "x" +
           std::to_string(c.height) + " pads " + std::to_string(c.srcPad) + "," + std::to_string(c.dstPad) +
           " offsets " + std::to_string(c.srcOffset) + "," + std::to_string(c.dstOffset);
}

struct Outcome {
    PrimStatus status;
    bool asModel;
    bool guardsIntact;
};

inline Outcome RunMember(const Member& m, int tier, const Case& c, bool plainName = false) {
    Side src(m.src, c.width, c.height, c.srcPad, c.srcOffset, c.seed);
    Side dst(m.dst, c.width, c.height, c.dstPad, c.dstOffset, c.seed + 100);
    Expected e(dst);
    Expect(tier, m, src, e, c.width, c.height);
    Bound b(src, dst);
    const PrimStatus s = plainName ? m.plain(b.args) : m.tiers[tier](b.args);
    return Outcome{s, dst.Contents() == e.bytes, dst.GuardsIntact()};
}

}  // namespace ycbcr_harness

#endif
