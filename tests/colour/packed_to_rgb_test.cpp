// Packed 4:2:2 to RGB: the fixed-point arithmetic on every (Y, U, V) triple,
// its worked values, the pixel stores, and where rows land for every pitch
// and orientation.
#include "guarded_buffer.h"
#include "colour_test_util.h"
#include "isa_levels.h"

using namespace colour_test;
using pixmoor_test::GuardedBuffer;

namespace {

const uint32_t kSources[] = {FCC_YUY2, FCC_UYVY};
const uint32_t kDests[] = {FCC_RG24, FCC_RG32, FCC_RG55, FCC_RG56};

bool HonoursOrientation(uint32_t dest) { return dest == FCC_RG24 || dest == FCC_RG32; }

// Packs one pair in the source's byte order.
void PutPair(uint32_t src, uint8_t* at, int yLeft, int u, int yRight, int v) {
    const PairLayout L = LayoutOf(src);
    at[L.yLeft] = uint8_t(yLeft);
    at[L.u] = uint8_t(u);
    at[L.yRight] = uint8_t(yRight);
    at[L.v] = uint8_t(v);
}

// Converts a single pair (a 2 by 1 picture is no size Init accepts, so a
// 4 by 4 picture of that pair) and returns the two stored pixels.
std::vector<uint8_t> ConvertPair(uint32_t src, uint32_t dest, int yLeft, int u, int yRight, int v) {
    XFormPtr x = Ready(src, dest, 4, 4, kTopDown, kTopDown);
    std::vector<uint8_t> frame(4 * 2 * 4);
    for (int i = 0; i < 8; ++i) PutPair(src, &frame[4 * i], yLeft, u, yRight, v);
    std::vector<uint8_t> out(x->DestBufferSize());
    x->XForm(frame.data(), out.data(), 0);
    return std::vector<uint8_t>(out.begin(), out.begin() + 2 * BytesPerPixel(dest));
}

std::vector<uint8_t> Rgb24(int yLeft, int u, int yRight, int v) { return ConvertPair(FCC_YUY2, FCC_RG24, yLeft, u, yRight, v); }

}  // namespace

// All 2^24 (Y, U, V) triples through the routines, against the model.  Pair
// k carries chroma (k >> 7) and the lumas 2(k & 127) and 2(k & 127) + 1, so
// 2^23 pairs cover every triple; they go through in slices of 256 rows.
TEST(PackedToRgb, EveryTripleMatchesTheModel) {
    pixmoor_test::ForEachIsaLevel([&] {
        const int width = 4096, height = 256, pairsPerSlice = width / 2 * height;
        const std::pair<uint32_t, uint32_t> roads[] = {
            {FCC_YUY2, FCC_RG32}, {FCC_UYVY, FCC_RG24}, {FCC_YUY2, FCC_RG55}, {FCC_UYVY, FCC_RG56}};
        for (const auto& [src, dest] : roads) {
            XFormPtr x = Ready(src, dest, width, height, kTopDown, kTopDown);
            const int bpp = BytesPerPixel(dest);
            std::vector<uint8_t> frame(size_t(pairsPerSlice) * 4);
            std::vector<uint8_t> out(x->DestBufferSize());
            int64_t mismatches = 0;
            for (int slice = 0; slice < (1 << 23) / pairsPerSlice; ++slice) {
                for (int i = 0; i < pairsPerSlice; ++i) {
                    const int k = slice * pairsPerSlice + i;
                    const int uv = k >> 7, y = 2 * (k & 127);
                    PutPair(src, &frame[4 * size_t(i)], y, uv >> 8, y + 1, uv & 255);
                }
                x->XForm(frame.data(), out.data(), 0);
                for (int i = 0; i < pairsPerSlice; ++i) {
                    const int k = slice * pairsPerSlice + i;
                    const int uv = k >> 7, y = 2 * (k & 127);
                    for (int side = 0; side < 2; ++side) {
                        const Pixel p = ModelYuv(y + side, uv >> 8, uv & 255);
                        if (!StoredAs(dest, &out[(2 * size_t(i) + side) * bpp], p, true) && mismatches++ == 0)
                            ADD_FAILURE() << "Y " << y + side << " U " << (uv >> 8) << " V " << (uv & 255);
                    }
                }
            }
            EXPECT_EQ(mismatches, 0) << std::hex << src << " -> " << dest;
        }
    });
}

TEST(PackedToRgb, NeutralChromaKeepsTheLumaRange) {
    EXPECT_EQ(Rgb24(16, 128, 0, 128), (std::vector<uint8_t>{0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Rgb24(255, 128, 235, 128), (std::vector<uint8_t>{239, 239, 239, 219, 219, 219}));
    EXPECT_EQ(Rgb24(17, 128, 116, 128), (std::vector<uint8_t>{1, 1, 1, 100, 100, 100}));
}

TEST(PackedToRgb, NegativeTermsRoundDown) {
    // u = -1: a = -2, b = -1 (v = 0).
    EXPECT_EQ(Rgb24(116, 127, 116, 128), (std::vector<uint8_t>{98, 101, 100, 98, 101, 100}));
    // v = -1: c = -3, b = -1.
    EXPECT_EQ(Rgb24(116, 128, 116, 127), (std::vector<uint8_t>{100, 101, 97, 100, 101, 97}));
}

TEST(PackedToRgb, WorkedValues) {
    // v = 127: c = 258, b = 49.
    EXPECT_EQ(Rgb24(235, 128, 235, 255), (std::vector<uint8_t>{219, 170, 255, 219, 170, 255}));
    // u = -128: a = -146 (and b = -75).
    EXPECT_EQ(Rgb24(216, 0, 216, 128), (std::vector<uint8_t>{54, 255, 200, 54, 255, 200}));
    // v = -128: c = -261 (and b = -51).
    EXPECT_EQ(Rgb24(216, 128, 255, 0), (std::vector<uint8_t>{200, 251, 0, 239, 255, 0}));
    // u = v = -128: b = -125, so second = y + 125.
    EXPECT_EQ(Rgb24(100, 0, 16, 0), (std::vector<uint8_t>{0, 209, 0, 0, 125, 0}));
    // The same a, b, c serve both pixels of the pair (u = 72, v = -28:
    // a = 82, b = 30, c = -57).
    EXPECT_EQ(Rgb24(100, 200, 150, 100), (std::vector<uint8_t>{166, 54, 27, 216, 104, 77}));
}

TEST(PackedToRgb, StoresOfEachDestination) {
    for (uint32_t src : kSources) {
        EXPECT_EQ(ConvertPair(src, FCC_RG32, 235, 128, 16, 255), (std::vector<uint8_t>{219, 170, 255, 0, 0, 0, 255, 0}));
        // 5-5-5 of this road: fields in bits 15..11, 10..6, 5..1.
        EXPECT_EQ(ConvertPair(src, FCC_RG55, 255, 128, 16, 128), (std::vector<uint8_t>{0x7A, 0xEF, 0, 0}));
        EXPECT_EQ(ConvertPair(src, FCC_RG56, 255, 128, 16, 128), (std::vector<uint8_t>{0x7D, 0xEF, 0, 0}));
    }
}

TEST(PackedToRgb, SourceLayouts) {
    // The same pair in the two byte orders gives the same pixels.
    for (uint32_t dest : kDests)
        EXPECT_EQ(ConvertPair(FCC_YUY2, dest, 30, 90, 200, 180), ConvertPair(FCC_UYVY, dest, 30, 90, 200, 180));
    // Byte roles of "UYVY": U Y0 V Y1.
    XFormPtr x = Ready(FCC_UYVY, FCC_RG24, 4, 4, kTopDown, kTopDown);
    std::vector<uint8_t> frame(32, 128), out(48);
    frame[1] = 116;  // left Y of the first pair
    frame[3] = 16;   // right Y
    x->XForm(frame.data(), out.data(), 0);
    EXPECT_EQ(std::vector<uint8_t>(out.begin(), out.begin() + 6), (std::vector<uint8_t>{100, 100, 100, 0, 0, 0}));
}

// Where rows land, for every road, orientation, pitch and width (vector
// blocks and scalar tails), at every instruction-set level; bytes outside
// the rows stay untouched.
TEST(PackedToRgb, RowsLandWherePitchAndOrientationSay) {
  pixmoor_test::ForEachIsaLevel([] {
   for (int w : FastRowWidths()) {
    const int h = 4;
    SCOPED_TRACE(w);
    const std::vector<uint8_t> frame = pixmoor_test::RandomBytes(2 * w * h, 7 + w);
    for (uint32_t src : kSources) {
        for (uint32_t dest : kDests) {
            const int line = w * BytesPerPixel(dest);
            const std::vector<uint8_t> tight = ModelPackedRows(src, dest, frame.data(), w, h);
            const std::vector<uint32_t> pitches = {0,        uint32_t(line),      uint32_t(line + 12), uint32_t(line + 1),
                                                   100,      uint32_t(line / 2),  uint32_t(-line),     uint32_t(-(line + 8)),
                                                   uint32_t(3 * line)};
            for (auto [so, dO] : {std::pair{kTopDown, kTopDown}, std::pair{kTopDown, kBottomUp},
                                  std::pair{kDefault, kDefault}, std::pair{AsOrient(1), AsOrient(3)},
                                  std::pair{kBottomUp, kBottomUp}}) {
                XFormPtr x = Ready(src, dest, w, h, so, dO);
                const bool flip = HonoursOrientation(dest) && (so == kDefault ? 1 : so) != (dO == kDefault ? 2 : dO);
                for (uint32_t pitch : pitches) {
                    const PlacedRows placed =
                        PlaceExpectedRows(tight, h, line, DefaultPitchRowStarts(pitch, line, h, flip), 0x3C);
                    GuardedBuffer buf(placed.expected.size(), 0x3C);
                    x->XForm(frame.data(), buf.data() + placed.dstOffset, pitch);
                    EXPECT_EQ(buf.Contents(), placed.expected)
                        << std::hex << src << " -> " << dest << std::dec << " pitch " << int32_t(pitch) << " flip " << flip;
                    EXPECT_TRUE(buf.GuardsIntact());
                }
            }
        }
    }
   }
  });
}

TEST(PackedToRgb, WorkedPitchOfOneHundred) {
    // W = 4, H = 4, pitch 100, "RG24": row r starts at 100 * (3 - r) when the
    // orientations differ and at 100 * r when they are equal.
    const std::vector<uint8_t> frame = pixmoor_test::RandomBytes(32, 11);
    const std::vector<uint8_t> tight = ModelPackedRows(FCC_YUY2, FCC_RG24, frame.data(), 4, 4);
    for (bool flip : {true, false}) {
        XFormPtr x = Ready(FCC_YUY2, FCC_RG24, 4, 4, kTopDown, flip ? kBottomUp : kTopDown);
        GuardedBuffer buf(312, 0x77);
        x->XForm(frame.data(), buf.data(), 100);
        for (int r = 0; r < 4; ++r) {
            const int start = 100 * (flip ? 3 - r : r);
            for (int i = 0; i < 100 && start + i < 312; ++i)
                EXPECT_EQ(buf[start + i], i < 12 ? tight[12 * r + i] : 0x77) << r << " " << i;
        }
        EXPECT_TRUE(buf.GuardsIntact());
    }
}

TEST(PackedToRgb, SixteenBitRowsAreContiguousWhateverThePitch) {
    const std::vector<uint8_t> frame = pixmoor_test::RandomBytes(2 * 8 * 4, 3);
    XFormPtr x = Ready(FCC_YUY2, FCC_RG55, 8, 4);  // default orientations differ; not looked at
    GuardedBuffer buf(3 * 40 + 16, 0);
    x->XForm(frame.data(), buf.data(), 40);
    const std::vector<uint8_t> tight = ModelPackedRows(FCC_YUY2, FCC_RG55, frame.data(), 8, 4);
    for (int r = 0; r < 4; ++r)
        for (int i = 0; i < 16; ++i) EXPECT_EQ(buf[40 * r + i], tight[16 * r + i]);
}

TEST(PackedToRgb, ZeroSizeWritesNothing) {
    pixmoor_test::ForEachIsaLevel([&] {
        for (uint32_t src : kSources) {
            for (uint32_t dest : kDests) {
                // A transform of zero size, and one whose first Init failed the
                // size test (its routine and line size are set, its size is 0 by 0).
                XFormPtr zero = Ready(src, dest, 0, 0, kTopDown, kBottomUp);
                XFormPtr failed = Create(src, dest);
                EXPECT_FALSE(failed->Init(AbsSIZE(322, 240), kDefault, kDefault));
                for (CColorXForm* x : {zero.get(), failed.get()}) {
                    for (uint32_t pitch : {0u, 100u}) {
                        GuardedBuffer buf(0);
                        const uint8_t src1[4] = {1, 2, 3, 4};
                        x->XForm(src1, buf.data(), pitch);
                        EXPECT_TRUE(buf.GuardsIntact());
                    }
                }
            }
        }
    });
}

TEST(PackedToRgb, ARowOfWidthBelowTwoWritesNothing) {
    pixmoor_test::ForEachIsaLevel([&] {
        // Width 0 with a height: every row is empty; the pointer moves but
        // nothing is written.
        XFormPtr x = Ready(FCC_YUY2, FCC_RG24, 0, 8, kTopDown, kBottomUp);
        GuardedBuffer buf(0);
        const uint8_t src1[4] = {1, 2, 3, 4};
        x->XForm(src1, buf.data(), 0);
        EXPECT_TRUE(buf.GuardsIntact());
    });
}
