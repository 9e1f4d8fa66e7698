// Helpers shared by the colour transform tests: making an initialised
// transform, and independent models of the arithmetic written from the
// formulas (not from the library's code).
#ifndef PIXMOOR_TESTS_COLOUR_TEST_UTIL_H
#define PIXMOOR_TESTS_COLOUR_TEST_UTIL_H

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <gtest/gtest.h>
#include <pixmoor/pixmoor.h>

namespace colour_test {

using Orient = CColorXForm::EOrientation;
constexpr Orient kDefault = CColorXForm::OrientDefault;
constexpr Orient kTopDown = CColorXForm::OrientTopDown;
constexpr Orient kBottomUp = CColorXForm::OrientBottomUp;

using XFormPtr = std::unique_ptr<CColorXForm>;

inline XFormPtr Create(uint32_t src, uint32_t dest) { return XFormPtr(CColorXForm::CreateInstance(src, dest)); }

// A transform that passed Init, or a test failure.
inline XFormPtr Ready(uint32_t src, uint32_t dest, int32_t w, int32_t h, Orient so = kDefault,
                      Orient dO = kDefault) {
    XFormPtr x = Create(src, dest);
    EXPECT_NE(x, nullptr);
    if (x) {
        EXPECT_TRUE(x->Init(AbsSIZE(w, h), so, dO));
    }
    return x;
}

inline Orient AsOrient(int32_t v) { return static_cast<Orient>(v); }

// Blue, green, red of one pixel.
struct Pixel {
    int first, second, third;
    bool operator==(const Pixel& o) const { return first == o.first && second == o.second && third == o.third; }
};

// The fixed-point YUV arithmetic of the packed roads, from its formulas:
// terms are floors of the weighted chroma over 1024; luma is Y - 16 without
// gain; results are clamped to 0..255.
inline int FloorOver1024(int n) { return static_cast<int>(std::floor(n / 1024.0)); }
inline int Clamp255(int v) { return v < 0 ? 0 : (v > 255 ? 255 : v); }

inline Pixel ModelYuv(int Y, int U, int V) {
    const int u = U - 128, v = V - 128;
    const int a = FloorOver1024(1167 * u);
    const int b = FloorOver1024(595 * u + 403 * v);
    const int c = FloorOver1024(2081 * v);
    const int y = Y - 16;
    return Pixel{Clamp255(y + a), Clamp255(y - b), Clamp255(y + c)};
}

// Stored bytes of one pixel for a destination.  `yuvRoad` selects the 5-5-5
// layout that the packed 4:2:2 roads write (fields in bits 15..1).
inline std::vector<uint8_t> PixelBytes(uint32_t dest, const Pixel& p, bool yuvRoad) {
    auto word = [](unsigned w) { return std::vector<uint8_t>{uint8_t(w & 0xFF), uint8_t(w >> 8)}; };
    const unsigned b = unsigned(p.first), g = unsigned(p.second), r = unsigned(p.third);
    if (dest == FCC_RG24) return {uint8_t(b), uint8_t(g), uint8_t(r)};
    if (dest == FCC_RG32) return {uint8_t(b), uint8_t(g), uint8_t(r), 0};
    if (dest == FCC_RG56) return word((r / 8) * 2048 + (g / 4) * 32 + b / 8);
    if (yuvRoad) return word((r / 8) * 2048 + (g / 8) * 64 + (b / 8) * 2);
    return word((r / 8) * 1024 + (g / 8) * 32 + b / 8);
}

// True when the bytes at `at` are the pixel as `dest` stores it (no allocation,
// for the exhaustive sweeps).
inline bool StoredAs(uint32_t dest, const uint8_t* at, const Pixel& p, bool yuvRoad) {
    const unsigned b = unsigned(p.first), g = unsigned(p.second), r = unsigned(p.third);
    if (dest == FCC_RG24) return at[0] == b && at[1] == g && at[2] == r;
    if (dest == FCC_RG32) return at[0] == b && at[1] == g && at[2] == r && at[3] == 0;
    const unsigned word = at[0] + 256u * at[1];
    if (dest == FCC_RG56) return word == (r / 8) * 2048 + (g / 4) * 32 + b / 8;
    if (yuvRoad) return word == (r / 8) * 2048 + (g / 8) * 64 + (b / 8) * 2;
    return word == (r / 8) * 1024 + (g / 8) * 32 + b / 8;
}

inline int BytesPerPixel(uint32_t dest) { return dest == FCC_RG24 ? 3 : dest == FCC_RG32 ? 4 : 2; }

// Offsets of Y left, U, Y right, V in a packed pair.
struct PairLayout {
    int yLeft, u, yRight, v;
};
inline PairLayout LayoutOf(uint32_t src) {
    return src == FCC_YUY2 ? PairLayout{0, 1, 2, 3} : PairLayout{1, 0, 3, 2};
}

// Expected tight RGB rows (top to bottom, in source order) of a packed frame.
inline std::vector<uint8_t> ModelPackedRows(uint32_t src, uint32_t dest, const uint8_t* frame, int w, int h) {
    const PairLayout L = LayoutOf(src);
    std::vector<uint8_t> out;
    for (int i = 0; i < w / 2 * h; ++i) {
        const uint8_t* q = frame + 4 * i;
        for (int y : {q[L.yLeft], q[L.yRight]}) {
            auto bytes = PixelBytes(dest, ModelYuv(y, q[L.u], q[L.v]), true);
            out.insert(out.end(), bytes.begin(), bytes.end());
        }
    }
    return out;
}

// Expected tight rows of an "RG24" frame repacked into `dest`.
inline std::vector<uint8_t> ModelRepackRows(uint32_t dest, const uint8_t* frame, int w, int h) {
    std::vector<uint8_t> out;
    for (int i = 0; i < w * h; ++i) {
        auto bytes = PixelBytes(dest, Pixel{frame[3 * i], frame[3 * i + 1], frame[3 * i + 2]}, false);
        out.insert(out.end(), bytes.begin(), bytes.end());
    }
    return out;
}

// Where the rows of a routine that writes row after row land: row r (in
// source order) starts at `rowStart[r]` bytes from the destination pointer,
// which may be negative.  Builds the expected contents of a buffer that
// covers every row, with `dstOffset` the destination pointer's place in it.
struct PlacedRows {
    std::vector<uint8_t> expected;
    std::ptrdiff_t dstOffset = 0;
};

inline PlacedRows PlaceExpectedRows(const std::vector<uint8_t>& tightRows, int rows, int lineSize,
                                    const std::vector<int64_t>& rowStart, uint8_t fill) {
    int64_t lo = 0, hi = 0;
    for (int r = 0; r < rows; ++r) {
        lo = std::min(lo, rowStart[r]);
        hi = std::max(hi, rowStart[r] + lineSize);
    }
    PlacedRows placed;
    placed.dstOffset = static_cast<std::ptrdiff_t>(-lo);
    placed.expected.assign(static_cast<size_t>(hi - lo), fill);
    for (int r = 0; r < rows; ++r)  // in writing order, so overlaps end as the routine leaves them
        std::copy(tightRows.begin() + int64_t(r) * lineSize, tightRows.begin() + int64_t(r + 1) * lineSize,
                  placed.expected.begin() + (rowStart[r] - lo));
    return placed;
}

// Row starts of the roads with a default pitch: P is the pitch as a signed
// 32-bit number, or the line size for 0; flipped, row r lands at row H-1-r.
inline std::vector<int64_t> DefaultPitchRowStarts(uint32_t destPitch, int lineSize, int rows, bool flip) {
    const int64_t p = destPitch == 0 ? lineSize : int64_t(int32_t(destPitch));
    std::vector<int64_t> starts;
    for (int r = 0; r < rows; ++r) starts.push_back((flip ? rows - 1 - r : r) * p);
    return starts;
}

// Widths (multiples of 4, as Init requires) below, at and around the
// vector blocks of the scalar roads' fast rows (16, 32 and 64 pixels by
// road and instruction set), with scalar tails of every length.
inline std::vector<int> FastRowWidths() {
    return {4, 8, 12, 16, 20, 28, 32, 36, 44, 48, 52, 60, 64, 68, 76, 96, 100, 124, 128, 132};
}

}  // namespace colour_test

#endif
