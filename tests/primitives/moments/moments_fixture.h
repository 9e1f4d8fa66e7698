// Shared pieces of the moments tests: the members of every tier by name,
// test images of all six pixel layouts at any start alignment, and helpers
// to hold and compare states.
#ifndef PIXMOOR_TESTS_MOMENTS_FIXTURE_H
#define PIXMOOR_TESTS_MOMENTS_FIXTURE_H

#include <pixmoor/primitives/moments.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace moments_test {

// The six compute members, in a fixed order.
enum Layout { k8uC1, k8uC3, k8uAC4, k32fC1, k32fC3, k32fAC4, kLayoutCount };

struct LayoutInfo {
    const char* name;
    int elementBytes;   // 1 or 4
    int samples;        // samples a pixel: 1, 3 or 4
    int channels;       // channels that count: 1 or 3
};

inline const LayoutInfo& Info(Layout layout) {
    static const LayoutInfo kInfo[kLayoutCount] = {
        {"8uC1", 1, 1, 1}, {"8uC3", 1, 3, 3}, {"8uAC4", 1, 4, 3},
        {"32fC1", 4, 1, 1}, {"32fC3", 4, 3, 3}, {"32fAC4", 4, 4, 3},
    };
    return kInfo[layout];
}

inline int PixelBytes(Layout layout) { return Info(layout).elementBytes * Info(layout).samples; }

using Compute8u = PrimStatus (*)(const uint8_t*, int32_t, int32_t, int32_t, ImgMomentState*);
using Compute32f = PrimStatus (*)(const float*, int32_t, int32_t, int32_t, ImgMomentState*);

// Every member of one tier, reached by its prefixed name.
struct Tier {
    const char* name;
    PrimStatus (*alloc)(ImgMomentState**, PrimAlgHint);
    PrimStatus (*release)(ImgMomentState*);
    Compute8u compute8u[3];
    Compute32f compute32f[3];
    PrimStatus (*spatial)(const ImgMomentState*, int32_t, int32_t, int32_t, ImgPoint, double*);
    PrimStatus (*central)(const ImgMomentState*, int32_t, int32_t, int32_t, double*);
    PrimStatus (*normSpatial)(const ImgMomentState*, int32_t, int32_t, int32_t, ImgPoint, double*);
    PrimStatus (*normCentral)(const ImgMomentState*, int32_t, int32_t, int32_t, double*);
    PrimStatus (*hu)(const ImgMomentState*, int32_t, double*);
};

#define MOMENTS_TEST_TIER(p)                                                                               \
    Tier {                                                                                                 \
        #p, p##ImgMomentStateAlloc, p##ImgMomentStateFree,                                                 \
            {p##ImgMoments8uC1, p##ImgMoments8uC3, p##ImgMoments8uAC4},                                    \
            {p##ImgMoments32fC1, p##ImgMoments32fC3, p##ImgMoments32fAC4}, p##ImgGetSpatialMoment,         \
            p##ImgGetCentralMoment, p##ImgGetNormalizedSpatialMoment, p##ImgGetNormalizedCentralMoment,    \
            p##ImgGetHuMoments                                                                             \
    }

inline const std::vector<Tier>& Tiers() {
    static const std::vector<Tier> kTiers = {MOMENTS_TEST_TIER(px_), MOMENTS_TEST_TIER(m6_),
                                             MOMENTS_TEST_TIER(a6_), MOMENTS_TEST_TIER(w7_)};
    return kTiers;
}
inline const Tier& TierPx() { return Tiers()[0]; }
inline const Tier& TierM6() { return Tiers()[1]; }
inline const Tier& TierA6() { return Tiers()[2]; }
inline const Tier& TierW7() { return Tiers()[3]; }

// An image of one layout in its own storage.  The first pixel sits `misalign`
// bytes past a 32-byte boundary and rows are `padding` bytes longer than
// their pixels.
class Image {
public:
    Image(Layout layout, int32_t width, int32_t height, int misalign = 0, int32_t padding = 0)
        : layout_(layout), width_(width), height_(height),
          step_(width * PixelBytes(layout) + padding),
          storage_(static_cast<size_t>(step_) * (height > 0 ? height : 1) + 64, 0) {
        const uintptr_t raw = reinterpret_cast<uintptr_t>(storage_.data());
        offset_ = static_cast<size_t>(((raw + 31) & ~uintptr_t{31}) - raw) + static_cast<size_t>(misalign);
    }

    Layout layout() const { return layout_; }
    int32_t width() const { return width_; }
    int32_t height() const { return height_; }
    int32_t step() const { return step_; }
    uint8_t* bytes() { return storage_.data() + offset_; }
    const uint8_t* bytes() const { return storage_.data() + offset_; }

    uint8_t* SampleAddress(int32_t x, int32_t y, int s) {
        return bytes() + static_cast<size_t>(y) * step_ + (static_cast<size_t>(x) * Info(layout_).samples + s) *
                                                              Info(layout_).elementBytes;
    }
    const uint8_t* SampleAddress(int32_t x, int32_t y, int s) const {
        return const_cast<Image*>(this)->SampleAddress(x, y, s);
    }

    // Sample s of pixel (x, y) as a double, whatever its type.
    double Get(int32_t x, int32_t y, int s) const {
        const uint8_t* at = SampleAddress(x, y, s);
        if (Info(layout_).elementBytes == 1) return *at;
        float f;
        std::memcpy(&f, at, 4);
        return f;
    }
    void Set(int32_t x, int32_t y, int s, double value) {
        uint8_t* at = SampleAddress(x, y, s);
        if (Info(layout_).elementBytes == 1) {
            *at = static_cast<uint8_t>(value);
        } else {
            const float f = static_cast<float>(value);
            std::memcpy(at, &f, 4);
        }
    }

    // Random content: bytes over the whole range; floats of mixed sign and
    // magnitude, so that the order of additions shows in the low bits.
    void FillRandom(uint32_t seed) {
        std::mt19937 rng(seed);
        std::uniform_real_distribution<float> mantissa(-1.0f, 1.0f);
        std::uniform_int_distribution<int> exponent(-6, 6);
        for (int32_t y = 0; y < height_; ++y)
            for (int32_t x = 0; x < width_; ++x)
                for (int s = 0; s < Info(layout_).samples; ++s) {
                    if (Info(layout_).elementBytes == 1)
                        Set(x, y, s, static_cast<double>(rng() & 0xFF));
                    else
                        Set(x, y, s, std::ldexp(static_cast<double>(mantissa(rng)), exponent(rng)));
                }
    }

    void Fill(double value) {
        for (int32_t y = 0; y < height_; ++y)
            for (int32_t x = 0; x < width_; ++x)
                for (int s = 0; s < Info(layout_).samples; ++s) Set(x, y, s, value);
    }

private:
    Layout layout_;
    int32_t width_, height_, step_;
    std::vector<uint8_t> storage_;
    size_t offset_ = 0;
};

// Runs the tier's compute member of the image's layout.
inline PrimStatus Compute(const Tier& tier, const Image& image, ImgMomentState* state, int32_t step,
                          int32_t width, int32_t height) {
    const Layout layout = image.layout();
    if (Info(layout).elementBytes == 1) return tier.compute8u[layout](image.bytes(), step, width, height, state);
    return tier.compute32f[layout - k32fC1](reinterpret_cast<const float*>(image.bytes()), step, width, height,
                                            state);
}
inline PrimStatus Compute(const Tier& tier, const Image& image, ImgMomentState* state) {
    return Compute(tier, image, state, image.step(), image.width(), image.height());
}

// A state record owned by a test, freed through the tier that made it.
class State {
public:
    explicit State(const Tier& tier, PrimAlgHint hint = PrimAlgHintFast) : tier_(tier) {
        status_ = tier.alloc(&state_, hint);
    }
    ~State() {
        if (state_ != nullptr) tier_.release(state_);
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    PrimStatus status() const { return status_; }
    ImgMomentState* get() const { return state_; }
    ImgMomentState* operator->() const { return state_; }

private:
    const Tier& tier_;
    ImgMomentState* state_ = nullptr;
    PrimStatus status_;
};

// The 400 bytes of a state, to show that a failing call changed nothing.
inline std::vector<uint8_t> Snapshot(const ImgMomentState* state) {
    const uint8_t* p = reinterpret_cast<const uint8_t*>(state);
    return std::vector<uint8_t>(p, p + sizeof(ImgMomentState));
}

// Sixteen moments of each channel, as the state keeps them.
struct Moments {
    double m[3][16] = {};
};

inline Moments MomentsOf(const ImgMomentState* state) {
    Moments result;
    std::memcpy(result.m, state->channelMoments, sizeof(result.m));
    return result;
}

inline bool SameBits(double a, double b) { return std::memcmp(&a, &b, sizeof(double)) == 0; }

}  // namespace moments_test

#endif
