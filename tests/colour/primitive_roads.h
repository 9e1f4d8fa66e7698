// Helpers for the tests of the five roads that run on dispatched primitives
// ("I420"/"YV12" to the RGB formats, "RG24" to "I420"): a played processor
// for each tier, models of each road's output built on the 4:2:0 models of
// the primitives, and spies that stand in the dispatch slots and record
// every call before passing it on.
#ifndef PIXMOOR_TESTS_COLOUR_PRIMITIVE_ROADS_H
#define PIXMOOR_TESTS_COLOUR_PRIMITIVE_ROADS_H

#include <pixmoor/primitives/colour.h>
#include <pixmoor/primitives/mirror.h>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "../primitives/colour/yuv420_harness.h"
#include "../primitives/colour/yuv420_model.h"
#include "../runtime/played_processor.h"
#include "colour_test_util.h"
#include "guarded_buffer.h"

namespace colour_test {

using yuv420_model::RgbFrame;
using yuv420_model::YuvFrame;

// A processor of the reference vendor, family 6, whose feature bits make
// detection give `tier`.
inline pixmoor_test::PlayedProcessor ProcessorFor(int tier) {
    using namespace pixmoor_test;
    static const uint32_t kFeatures[4] = {0, kMmx, kMmx | kSse, kMmx | kSse | kSse2};
    return PlayedProcessor::Reference(6, kFeatures[tier]);
}

// For the lifetime of the object: the runtime's state is saved (and put
// back at the end), a processor that detects `tier` is played through the
// platform seam, so that the selection each Init runs picks that tier.
class PlayedTier {
public:
    explicit PlayedTier(int tier) : platform_(ProcessorFor(tier)) {}

    // Detection gives `tier` from now on.
    void Play(int tier) { platform_.processor() = ProcessorFor(tier); }
    const pixmoor_test::PlayedPlatform& platform() const { return platform_; }
    const pixmoor_test::RuntimeStateGuard& saved() const { return guard_; }

private:
    pixmoor_test::RuntimeStateGuard guard_;  // first in, last out
    pixmoor_test::PlayedPlatform platform_;
};

// ---- Source frames.

inline std::vector<uint8_t> Concat(std::initializer_list<const std::vector<uint8_t>*> parts) {
    std::vector<uint8_t> out;
    for (const auto* p : parts) out.insert(out.end(), p->begin(), p->end());
    return out;
}

// The bytes of a 4:2:0 frame in "I420" (Y, U, V) or "YV12" (Y, V, U) order.
inline std::vector<uint8_t> PlanarBytes(uint32_t fcc, const YuvFrame& f) {
    return fcc == FCC_I420 ? Concat({&f.y, &f.u, &f.v}) : Concat({&f.y, &f.v, &f.u});
}

// ---- Models of the roads.

// The tight 3-byte rows that the primitive of `tier` makes of a planar
// frame.  The road hands the V plane to the primitive as its U plane and
// the U plane as its V plane; the bytes come out in the primitive's order.
inline std::vector<uint8_t> ModelPlanarRows(const YuvFrame& f, int tier) {
    YuvFrame handed = f;
    std::swap(handed.u, handed.v);
    const RgbFrame rgb = yuv420_model::Inverse(handed, yuv420_model::Tier(tier), false);
    std::vector<uint8_t> rows;
    for (size_t i = 0; i < rgb.r.size(); ++i) rows.insert(rows.end(), {rgb.r[i], rgb.g[i], rgb.b[i]});
    return rows;
}

// Turns rows of `lineBytes` bytes, `step` apart, upside down in `buffer`
// starting at `at`: row i changes places with row H-1-i.
inline void SwapRows(std::vector<uint8_t>& buffer, std::ptrdiff_t at, int64_t step, int lineBytes, int rows) {
    for (int i = 0; i < rows / 2; ++i)
        std::swap_ranges(buffer.begin() + at + i * step, buffer.begin() + at + i * step + lineBytes,
                         buffer.begin() + at + (rows - 1 - i) * step);
}

// What an "I420"/"YV12" to "RG24" destination holds: rows written
// `rowStep` bytes apart (at least a line), then, when flipping, rows of
// `lineSize` bytes turned over.  The buffer covers both grids; `fill` stands
// where nothing is written.
inline PlacedRows ModelRg24Destination(const std::vector<uint8_t>& rows, int w, int h, int64_t rowStep,
                                       int lineSize, bool flip, uint8_t fill) {
    const int line = 3 * w;
    std::vector<int64_t> starts;
    for (int r = 0; r < h; ++r) starts.push_back(r * rowStep);
    PlacedRows placed = PlaceExpectedRows(rows, h, line, starts, fill);
    const size_t mirrorEnd = static_cast<size_t>(placed.dstOffset) + size_t(h - 1) * lineSize + line;
    if (placed.expected.size() < mirrorEnd) placed.expected.resize(mirrorEnd, fill);
    if (flip) SwapRows(placed.expected, placed.dstOffset, lineSize, line, h);
    return placed;
}

// "RG24" rows (tight, 3 bytes a pixel) as the primitive of `tier` reads
// them: byte 0 as its red, byte 1 green, byte 2 blue; read from the last
// row up when `flip`.
inline RgbFrame Rg24AsPrimitiveInput(const std::vector<uint8_t>& rg24, int w, int h, bool flip) {
    RgbFrame in = RgbFrame::Make(w, h);
    for (int r = 0; r < h; ++r) {
        const uint8_t* row = &rg24[size_t(flip ? h - 1 - r : r) * 3 * w];
        for (int x = 0; x < w; ++x) in.Set(x, r, yuv420_model::Pixel{row[3 * x], row[3 * x + 1], row[3 * x + 2]});
    }
    return in;
}

// The "I420" picture of the "RG24" to "I420" road: the primitive's Y plane,
// then its V plane at the U place, then its U plane at the V place.
inline std::vector<uint8_t> ModelRg24ToI420(const std::vector<uint8_t>& rg24, int w, int h, bool flip, int tier) {
    const YuvFrame out = yuv420_model::Forward(Rg24AsPrimitiveInput(rg24, w, h, flip), yuv420_model::Tier(tier), false);
    return Concat({&out.y, &out.v, &out.u});
}

// ---- Spies in the slots of the rows the roads call.

struct SlotCall {
    int row = -1;
    const uint8_t* src = nullptr;  // rows 11, 16 (the picture), 17
    uint8_t* dst = nullptr;        // rows 12, 13, 17
    const uint8_t* planes[3] = {nullptr, nullptr, nullptr};
    int32_t planeSteps[3] = {0, 0, 0};  // row 13
    int32_t srcStep = 0, dstStep = 0;   // row 16's step is srcStep
    int32_t width = 0, height = 0;
    int32_t axis = -1;
};

// While alive, rows 11, 12, 13, 16 and 17 jump to spies that record each
// call and pass it on to what the slot held before (or, with `fail` set,
// return the null-pointer status and do nothing).  Install after Init, since
// selection refills the slots.
class SlotSpies {
public:
    explicit SlotSpies(bool fail = false) {
        fail_ = fail;
        calls_.clear();
        Install(11, Spy<11, decltype(&px_ImgRGBToYUV420)>::Call);
        Install(12, Spy<12, decltype(&px_ImgYUV420ToRGB)>::Call);
        Install(13, Spy<13, decltype(&px_ImgYUV420ToRGB_Step)>::Call);
        Install(16, Spy<16, decltype(&px_ImgMirror8uC3I)>::Call);
        Install(17, Spy<17, decltype(&px_ImgMirror8uC3)>::Call);
    }
    ~SlotSpies() {
        for (int row : {11, 12, 13, 16, 17}) *PrimDispatchTable[row].slot = passOn_[row];
    }
    SlotSpies(const SlotSpies&) = delete;
    SlotSpies& operator=(const SlotSpies&) = delete;

    const std::vector<SlotCall>& calls() const { return calls_; }
    std::vector<int> rows() const {
        std::vector<int> r;
        for (const SlotCall& c : calls_) r.push_back(c.row);
        return r;
    }

private:
    template <class Fn>
    static void Install(int row, Fn spy) {
        passOn_[row] = *PrimDispatchTable[row].slot;
        *PrimDispatchTable[row].slot = reinterpret_cast<PrimEntry>(spy);
    }

    // One spy per row, of the row's own type: records, then passes on.
    template <int Row, class Fn>
    struct Spy;
    template <int Row, class... Args>
    struct Spy<Row, PrimStatus (*)(Args...)> {
        static PrimStatus Call(Args... args) {
            SlotCall c = Describe(args...);
            c.row = Row;
            calls_.push_back(c);
            if (fail_) return PrimStatusNullPointer;
            return reinterpret_cast<PrimStatus (*)(Args...)>(passOn_[Row])(args...);
        }
    };

    // What each row's arguments are, by the row's signature.
    static SlotCall Describe(const uint8_t* src, uint8_t* const dst[3], int32_t w, int32_t h) {  // 11
        SlotCall c;
        c.src = src, c.width = w, c.height = h;
        for (int i = 0; i < 3; ++i) c.planes[i] = dst[i];
        return c;
    }
    static SlotCall Describe(const uint8_t* const src[3], uint8_t* dst, int32_t w, int32_t h) {  // 12
        SlotCall c;
        c.dst = dst, c.width = w, c.height = h;
        for (int i = 0; i < 3; ++i) c.planes[i] = src[i];
        return c;
    }
    static SlotCall Describe(const uint8_t* const src[3], const int32_t steps[3], uint8_t* dst, int32_t dstStep,
                             int32_t w, int32_t h) {  // 13
        SlotCall c = Describe(src, dst, w, h);
        c.dstStep = dstStep;
        for (int i = 0; i < 3; ++i) c.planeSteps[i] = steps[i];
        return c;
    }
    static SlotCall Describe(uint8_t* srcDst, int32_t step, int32_t w, int32_t h, MirrorAxis axis) {  // 16
        SlotCall c;
        c.src = srcDst, c.srcStep = step, c.width = w, c.height = h, c.axis = axis;
        return c;
    }
    static SlotCall Describe(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, int32_t w,
                             int32_t h, MirrorAxis axis) {  // 17
        SlotCall c;
        c.src = src, c.srcStep = srcStep, c.dst = dst, c.dstStep = dstStep, c.width = w, c.height = h, c.axis = axis;
        return c;
    }

    static inline std::vector<SlotCall> calls_;
    static inline PrimEntry passOn_[PrimDispatchRowCount] = {};
    static inline bool fail_ = false;
};

// A road's output beside its model's.
struct RoadOutcome {
    std::vector<uint8_t> got, expected;
    bool guardsIntact = true;  // nothing written outside the modelled bytes
    bool sourceKept = true;    // the source frame unchanged
};

inline void ExpectModel(const RoadOutcome& o) {
    EXPECT_EQ(o.got, o.expected);
    EXPECT_TRUE(o.guardsIntact);
    EXPECT_TRUE(o.sourceKept);
}

// Sizes that Init accepts, with pair counts from 2 to 34: below, at and
// past every main-loop bound of the tiers (4, 8 and 16 pairs), with tails
// of every length.
inline std::vector<std::pair<int, int>> RoadSizes() {
    std::vector<std::pair<int, int>> sizes;
    for (int w : {4, 8, 12, 16, 20, 24, 28, 32, 36, 48, 64, 68}) sizes.push_back({w, w % 8 == 0 ? 4 : 8});
    sizes.push_back({176, 12});
    return sizes;
}

}  // namespace colour_test

#endif
