// Runs the 4:4:4 members of any tier on frames of model pixels: lays the
// frame out in guarded buffers with the requested step padding and start
// offset, calls the entry, reads the result back and tells whether any byte
// other than a written sample changed (line gaps, guards, byte 3 of 4-byte
// pixels).
#ifndef PIXMOOR_TESTS_PRIMITIVES_COLOUR_YUV444_HARNESS_H
#define PIXMOOR_TESTS_PRIMITIVES_COLOUR_YUV444_HARNESS_H

#include <pixmoor/primitives/colour.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "guarded_buffer.h"
#include "yuv444_model.h"

namespace yuv444_harness {

using pixmoor_test::GuardedBuffer;
using yuv444_model::Layout;
using yuv444_model::Member;
using yuv444_model::Trio;

using PackedFn = PrimStatus (*)(const uint8_t*, int32_t, uint8_t*, int32_t, int32_t, int32_t);
using PlanesFn = PrimStatus (*)(const uint8_t* const[3], int32_t, uint8_t* const[3], int32_t, int32_t, int32_t);
using ToPlanesFn = PrimStatus (*)(const uint8_t*, int32_t, uint8_t* const[3], int32_t, int32_t, int32_t);
using FromPlanesFn = PrimStatus (*)(const uint8_t* const[3], int32_t, uint8_t*, int32_t, int32_t, int32_t);

struct Entries {
    PackedFn rgbToYuv;
    PackedFn rgbaToYuva;
    PlanesFn rgbPlanesToYuvPlanes;
    ToPlanesFn rgbToYuvPlanes;
    PackedFn yuvToRgb;
    PackedFn yuvaToRgba;
    PlanesFn yuvPlanesToRgbPlanes;
    FromPlanesFn yuvPlanesToRgb;
};

#define YUV444_ENTRIES(p)                                                                          \
    Entries {                                                                                      \
        p##ImgRGBToYUV, p##ImgRGBAToYUVA, p##ImgRGBPlanesToYUVPlanes, p##ImgRGBToYUVPlanes,        \
            p##ImgYUVToRGB, p##ImgYUVAToRGBA, p##ImgYUVPlanesToRGBPlanes, p##ImgYUVPlanesToRGB     \
    }

// Tiers 0 to 3 by prefix; index 4 is the plain names.
constexpr int kPlain = 4;
inline const Entries& EntriesOf(int tier) {
    static const Entries all[5] = {YUV444_ENTRIES(px_), YUV444_ENTRIES(m6_), YUV444_ENTRIES(a6_),
                                   YUV444_ENTRIES(w7_), YUV444_ENTRIES()};
    return all[tier];
}

inline int BytesPerPixel(Layout l) { return l == yuv444_model::kPacked4 ? 4 : l == yuv444_model::kPacked3 ? 3 : 1; }

// One side of a call: one packed buffer or three planes, each line `pad`
// bytes longer than its samples, the first sample `offset` bytes into its
// buffer.  Bytes that are not samples are random, and remembered.
class Image {
public:
    Image(Layout layout, int w, int h, int pad, int offset, uint32_t seed)
        : layout_(layout), w_(w), h_(h), bpp_(BytesPerPixel(layout)), step_(w * bpp_ + pad), offset_(offset) {
        const int count = layout == yuv444_model::kPlanes ? 3 : 1;
        const size_t bytes = static_cast<size_t>(offset) + static_cast<size_t>(step_) * (h - 1) + static_cast<size_t>(w) * bpp_;
        for (int i = 0; i < count; ++i) {
            bufs_.emplace_back(new GuardedBuffer(bytes));
            bufs_.back()->FillRandom(seed + static_cast<uint32_t>(i));
            ptrs_[i] = bufs_.back()->data() + offset;
            before_.push_back(bufs_.back()->Contents());
        }
    }

    int32_t Step() const { return step_; }
    uint8_t* Packed() { return ptrs_[0]; }
    uint8_t* const* Planes() { return ptrs_; }
    const uint8_t* const* ConstPlanes() const { return const_cast<const uint8_t* const*>(ptrs_); }

    uint8_t& Sample(int x, int y, int k) {
        if (layout_ == yuv444_model::kPlanes) return ptrs_[k][static_cast<size_t>(y) * step_ + x];
        return ptrs_[0][static_cast<size_t>(y) * step_ + static_cast<size_t>(x) * bpp_ + k];
    }

    void Load(const std::vector<Trio>& px) {
        for (int y = 0; y < h_; ++y)
            for (int x = 0; x < w_; ++x)
                for (int k = 0; k < 3; ++k) Sample(x, y, k) = static_cast<uint8_t>(px[static_cast<size_t>(y) * w_ + x].s[k]);
        for (size_t i = 0; i < bufs_.size(); ++i) before_[i] = bufs_[i]->Contents();
    }
    std::vector<Trio> Read() {
        std::vector<Trio> px(static_cast<size_t>(w_) * h_);
        for (int y = 0; y < h_; ++y)
            for (int x = 0; x < w_; ++x)
                for (int k = 0; k < 3; ++k) px[static_cast<size_t>(y) * w_ + x].s[k] = Sample(x, y, k);
        return px;
    }

    // True while every byte that is not a sample holds what it held.
    bool OutsideUntouched() const {
        for (size_t i = 0; i < bufs_.size(); ++i) {
            if (!bufs_[i]->GuardsIntact()) return false;
            const GuardedBuffer& b = *bufs_[i];
            for (size_t j = 0; j < b.size(); ++j)
                if (!IsSample(j) && b[j] != before_[i][j]) return false;
        }
        return true;
    }
    // True while nothing at all changed.
    bool Untouched() const {
        for (size_t i = 0; i < bufs_.size(); ++i)
            if (!bufs_[i]->GuardsIntact() || bufs_[i]->Contents() != before_[i]) return false;
        return true;
    }

private:
    bool IsSample(size_t j) const {
        if (j < static_cast<size_t>(offset_)) return false;
        const size_t rel = j - offset_;
        const size_t line = rel / step_, col = rel % step_;
        if (line >= static_cast<size_t>(h_) || col >= static_cast<size_t>(w_) * bpp_) return false;
        return bpp_ != 4 || col % 4 != 3;
    }

    Layout layout_;
    int w_, h_, bpp_, step_, offset_;
    std::vector<std::unique_ptr<GuardedBuffer>> bufs_;
    std::vector<std::vector<uint8_t>> before_;
    uint8_t* ptrs_[3] = {nullptr, nullptr, nullptr};
};

// Calls a member on two sides that offer Packed(), Planes(), ConstPlanes()
// and Step().
template <class Side>
PrimStatus Call(Member m, const Entries& e, Side& src, Side& dst, int w, int h) {
    using namespace yuv444_model;
    switch (m) {
        case kRgbToYuv: return e.rgbToYuv(src.Packed(), src.Step(), dst.Packed(), dst.Step(), w, h);
        case kRgbaToYuva: return e.rgbaToYuva(src.Packed(), src.Step(), dst.Packed(), dst.Step(), w, h);
        case kRgbPlanesToYuvPlanes:
            return e.rgbPlanesToYuvPlanes(src.ConstPlanes(), src.Step(), dst.Planes(), dst.Step(), w, h);
        case kRgbToYuvPlanes: return e.rgbToYuvPlanes(src.Packed(), src.Step(), dst.Planes(), dst.Step(), w, h);
        case kYuvToRgb: return e.yuvToRgb(src.Packed(), src.Step(), dst.Packed(), dst.Step(), w, h);
        case kYuvaToRgba: return e.yuvaToRgba(src.Packed(), src.Step(), dst.Packed(), dst.Step(), w, h);
        case kYuvPlanesToRgbPlanes:
            return e.yuvPlanesToRgbPlanes(src.ConstPlanes(), src.Step(), dst.Planes(), dst.Step(), w, h);
        case kYuvPlanesToRgb: return e.yuvPlanesToRgb(src.ConstPlanes(), src.Step(), dst.Packed(), dst.Step(), w, h);
    }
    return -1;
}

struct Layouting {
    int srcPad = 0, dstPad = 0;
    int srcOffset = 0, dstOffset = 0;
};

struct RunResult {
    std::vector<Trio> out;
    PrimStatus status;
    bool outsideUntouched;
};

// One call of `member` through `entries` on a frame of w * h pixels.
inline RunResult RunMember(Member m, const Entries& e, const std::vector<Trio>& in, int w, int h,
                     const Layouting& l = Layouting(), uint32_t seed = 7) {
    Image src(yuv444_model::SourceLayout(m), w, h, l.srcPad, l.srcOffset, seed);
    Image dst(yuv444_model::DestLayout(m), w, h, l.dstPad, l.dstOffset, seed + 100);
    src.Load(in);
    const PrimStatus s = Call(m, e, src, dst, w, h);
    return RunResult{dst.Read(), s, dst.OutsideUntouched() && src.Untouched()};
}

// The model's frame for a member and tier.
inline std::vector<Trio> ModelFrame(Member m, int tier, const std::vector<Trio>& in, int w, int h) {
    std::vector<Trio> out(in.size());
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const size_t i = static_cast<size_t>(y) * w + x;
            out[i] = yuv444_model::Model(m, tier, in[i], x, w);
        }
    return out;
}

inline std::vector<Trio> RandomPixels(int w, int h, uint32_t seed) {
    std::mt19937 rng(seed);
    std::vector<Trio> px(static_cast<size_t>(w) * h);
    for (auto& p : px)
        for (int& s : p.s) s = static_cast<int>(rng() & 0xFF);
    return px;
}

inline std::string Describe(Member m, int tier, int w, int h) {
    return std::string(yuv444_model::MemberName(m)) + " " + (tier == kPlain ? "plain" : yuv444_model::TierName(tier)) +
           " " + std::to_string(w) + "x" + std::to_string(h);
}

}  // namespace yuv444_harness

#endif
