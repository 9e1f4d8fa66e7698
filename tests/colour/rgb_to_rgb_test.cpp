// RGB to RGB: the four copying roads and the three repacking roads, with
// their flip and pitch rules.
#include "guarded_buffer.h"
#include "colour_test_util.h"
#include "isa_levels.h"

using namespace colour_test;
using pixmoor_test::GuardedBuffer;
using pixmoor_test::RandomBytes;

namespace {

const uint32_t kCopyFormats[] = {FCC_RG24, FCC_RG32, FCC_RG55, FCC_RG56};
const uint32_t kRepackDests[] = {FCC_RG32, FCC_RG55, FCC_RG56};

// The source rows in reverse order: what a flipping copy writes, row after row.
std::vector<uint8_t> ReversedRows(const std::vector<uint8_t>& frame, int rows, int line) {
    std::vector<uint8_t> out;
    for (int r = rows - 1; r >= 0; --r) out.insert(out.end(), frame.begin() + r * line, frame.begin() + (r + 1) * line);
    return out;
}

// One "RG24" pixel repacked by a 4 by 4 picture of it.
std::vector<uint8_t> Repack(uint32_t dest, uint8_t b, uint8_t g, uint8_t r) {
    XFormPtr x = Ready(FCC_RG24, dest, 4, 4);
    std::vector<uint8_t> frame;
    for (int i = 0; i < 16; ++i) frame.insert(frame.end(), {b, g, r});
    std::vector<uint8_t> out(x->DestBufferSize(), 0xFF);
    x->XForm(frame.data(), out.data(), 0);
    return std::vector<uint8_t>(out.begin(), out.begin() + BytesPerPixel(dest));
}

}  // namespace

TEST(RgbCopy, SameOrientationIsOneTightBlockWhateverThePitch) {
    for (uint32_t fcc : kCopyFormats) {
        for (uint32_t pitch : {0u, 1000u, 1u, 0xFFFFFF00u}) {
            XFormPtr x = Ready(fcc, fcc, 12, 8);  // default orientations are equal: 2 and 2
            const std::vector<uint8_t> frame = RandomBytes(x->DestBufferSize(), fcc);
            GuardedBuffer buf(x->DestBufferSize(), 0);
            x->XForm(frame.data(), buf.data(), pitch);
            EXPECT_EQ(buf.Contents(), frame);
            EXPECT_TRUE(buf.GuardsIntact());
        }
    }
}

TEST(RgbCopy, FlipPlacesRowsAtThePitchAsItStands) {
    const int w = 12, h = 8;
    for (uint32_t fcc : kCopyFormats) {
        const int line = w * BytesPerPixel(fcc);
        for (auto [so, dO] : {std::pair{kTopDown, kBottomUp}, std::pair{kBottomUp, AsOrient(3)},
                              std::pair{kDefault, kTopDown}}) {
            XFormPtr x = Ready(fcc, fcc, w, h, so, dO);
            const std::vector<uint8_t> frame = RandomBytes(x->DestBufferSize(), 5);
            const std::vector<uint8_t> reversed = ReversedRows(frame, h, line);
            for (uint32_t pitch : {uint32_t(line), 0u, uint32_t(line + 8), uint32_t(line / 2), uint32_t(-line),
                                   uint32_t(-(2 * line + 1)), uint32_t(3 * line + 5)}) {
                std::vector<int64_t> starts;
                for (int k = 0; k < h; ++k) starts.push_back(int64_t(k) * int32_t(pitch));
                const PlacedRows placed = PlaceExpectedRows(reversed, h, line, starts, 0x5A);
                GuardedBuffer buf(placed.expected.size(), 0x5A);
                x->XForm(frame.data(), buf.data() + placed.dstOffset, pitch);
                EXPECT_EQ(buf.Contents(), placed.expected) << std::hex << fcc << std::dec << " pitch " << int32_t(pitch);
                EXPECT_TRUE(buf.GuardsIntact());
            }
        }
    }
}

TEST(RgbCopy, WorkedFlips) {
    XFormPtr x = Ready(FCC_RG24, FCC_RG24, 4, 4, kTopDown, kBottomUp);
    const std::vector<uint8_t> frame = RandomBytes(48, 9);
    {
        // Pitch = line: reversed rows, first destination row is the last source row.
        GuardedBuffer buf(48, 0);
        x->XForm(frame.data(), buf.data(), 12);
        EXPECT_EQ(buf.Contents(), ReversedRows(frame, 4, 12));
    }
    {
        // Pitch 0: every row falls on the first one, which ends as the
        // source's first row; the rest stays untouched, on 64-bit builds too.
        GuardedBuffer buf(48, 0xEE);
        x->XForm(frame.data(), buf.data(), 0);
        for (int i = 0; i < 48; ++i) EXPECT_EQ(buf[i], i < 12 ? frame[i] : 0xEE) << i;
        EXPECT_TRUE(buf.GuardsIntact());
    }
    {
        // Pitch = line + 8: 8 bytes after each row stay untouched.
        GuardedBuffer buf(3 * 20 + 12, 0xEE);
        x->XForm(frame.data(), buf.data(), 20);
        for (int r = 0; r < 4; ++r)
            for (int i = 0; i < 20 && 20 * r + i < 72; ++i)
                EXPECT_EQ(buf[20 * r + i], i < 12 ? frame[12 * (3 - r) + i] : 0xEE);
        EXPECT_TRUE(buf.GuardsIntact());
    }
}

TEST(RgbCopy, ZeroSizeWritesNothing) {
    for (uint32_t fcc : kCopyFormats) {
        for (auto dO : {kDefault, kTopDown}) {
            XFormPtr x = Ready(fcc, fcc, 0, 0, kDefault, dO);
            GuardedBuffer buf(0);
            const uint8_t src[4] = {1, 2, 3, 4};
            x->XForm(src, buf.data(), 0);
            x->XForm(src, buf.data(), 64);
            EXPECT_TRUE(buf.GuardsIntact());
        }
    }
}

TEST(RgbCopy, AfterAFailedFirstInitTheBlockIsTheComputedBufferSize) {
    // The size is still 0 by 0, but the unflipped copy moves destBufferSize
    // bytes; flipped, no row is copied.
    XFormPtr x = Create(FCC_RG24, FCC_RG24);
    EXPECT_FALSE(x->Init(AbsSIZE(10, 4), kDefault, kDefault));
    EXPECT_EQ(x->DestBufferSize(), 128);
    const std::vector<uint8_t> frame = RandomBytes(128, 1);
    GuardedBuffer buf(128, 0);
    x->XForm(frame.data(), buf.data(), 0);
    EXPECT_EQ(buf.Contents(), frame);
    EXPECT_FALSE(x->Init(AbsSIZE(10, 4), kTopDown, kDefault));
    GuardedBuffer untouched(0);
    x->XForm(frame.data(), untouched.data(), 32);
    EXPECT_TRUE(untouched.GuardsIntact());
}

TEST(RgbRepack, WorkedValues) {
    pixmoor_test::ForEachIsaLevel([&] {
        EXPECT_EQ(Repack(FCC_RG55, 255, 255, 255), (std::vector<uint8_t>{0xFF, 0x7F}));
        EXPECT_EQ(Repack(FCC_RG55, 0, 7, 0), (std::vector<uint8_t>{0, 0}));
        EXPECT_EQ(Repack(FCC_RG55, 239, 239, 239), (std::vector<uint8_t>{0xBD, 0x77}));
        EXPECT_EQ(Repack(FCC_RG55, 8, 0, 0), (std::vector<uint8_t>{0x01, 0}));
        EXPECT_EQ(Repack(FCC_RG55, 0, 8, 0), (std::vector<uint8_t>{0x20, 0}));
        EXPECT_EQ(Repack(FCC_RG55, 0, 0, 8), (std::vector<uint8_t>{0, 0x04}));
        EXPECT_EQ(Repack(FCC_RG56, 0, 4, 0), (std::vector<uint8_t>{0x20, 0}));
        EXPECT_EQ(Repack(FCC_RG56, 255, 255, 255), (std::vector<uint8_t>{0xFF, 0xFF}));
        EXPECT_EQ(Repack(FCC_RG56, 7, 3, 7), (std::vector<uint8_t>{0, 0}));
        EXPECT_EQ(Repack(FCC_RG56, 0, 0, 8), (std::vector<uint8_t>{0, 0x08}));
        EXPECT_EQ(Repack(FCC_RG32, 1, 2, 3), (std::vector<uint8_t>{1, 2, 3, 0}));  // over a buffer of 0xFF
    });
}

TEST(RgbRepack, EveryChannelValue) {
    pixmoor_test::ForEachIsaLevel([&] {
        // Each byte value in each of the three positions, against the model.
        const int w = 256, h = 4;
        for (uint32_t dest : kRepackDests) {
            XFormPtr x = Ready(FCC_RG24, dest, w, h, kTopDown, kTopDown);
            std::vector<uint8_t> frame(3 * w * h);
            for (int r = 0; r < h; ++r)
                for (int i = 0; i < w; ++i) {
                    uint8_t* p = &frame[3 * (r * w + i)];
                    p[0] = uint8_t(r == 0 || r == 3 ? i : 255 - i);
                    p[1] = uint8_t(r == 1 || r == 3 ? i : 37 * i);
                    p[2] = uint8_t(r == 2 || r == 3 ? i : 101 * i + 3);
                }
            std::vector<uint8_t> out(x->DestBufferSize(), 0xFF);
            x->XForm(frame.data(), out.data(), 0);
            EXPECT_EQ(out, ModelRepackRows(dest, frame.data(), w, h)) << std::hex << dest;
        }
    });
}

TEST(RgbRepack, RowsLandWherePitchAndOrientationSay) {
  pixmoor_test::ForEachIsaLevel([] {
   for (int w : FastRowWidths()) {
    const int h = 4;
    SCOPED_TRACE(w);
    const std::vector<uint8_t> frame = RandomBytes(3 * w * h, 21 + w);
    for (uint32_t dest : kRepackDests) {
        const int line = w * BytesPerPixel(dest);
        const std::vector<uint8_t> tight = ModelRepackRows(dest, frame.data(), w, h);
        for (auto [so, dO] : {std::pair{kDefault, kDefault}, std::pair{kTopDown, kBottomUp},
                              std::pair{kTopDown, kDefault}, std::pair{AsOrient(3), kTopDown},
                              std::pair{kTopDown, kTopDown}}) {
            XFormPtr x = Ready(FCC_RG24, dest, w, h, so, dO);
            const bool flip = (so == kDefault ? 2 : so) != (dO == kDefault ? 2 : dO);
            for (uint32_t pitch : {0u, uint32_t(line), uint32_t(line + 8), uint32_t(line + 3), uint32_t(line / 2),
                                   uint32_t(-line), uint32_t(-(line + 4)), 1000u}) {
                const PlacedRows placed =
                    PlaceExpectedRows(tight, h, line, DefaultPitchRowStarts(pitch, line, h, flip), 0x66);
                GuardedBuffer buf(placed.expected.size(), 0x66);
                x->XForm(frame.data(), buf.data() + placed.dstOffset, pitch);
                EXPECT_EQ(buf.Contents(), placed.expected)
                    << std::hex << dest << std::dec << " pitch " << int32_t(pitch) << " flip " << flip;
                EXPECT_TRUE(buf.GuardsIntact());
            }
        }
    }
   }
  });
}

// These loops count down and test at the end of a round, so a zero count is
// no empty picture: a transform of size 0 by 0 still stores one pixel, at the
// destination's first byte (the pitch defaults to the line size, 0).
TEST(RgbRepack, ZeroSizeStillStoresOnePixel) {
    pixmoor_test::ForEachIsaLevel([&] {
        const uint8_t pixel[3] = {8, 16, 24};
        for (uint32_t dest : kRepackDests) {
            for (auto dO : {kDefault, kTopDown}) {
                XFormPtr x = Ready(FCC_RG24, dest, 0, 0, kDefault, dO);
                GuardedBuffer buf(BytesPerPixel(dest), 0xFF);
                x->XForm(pixel, buf.data(), 0);
                EXPECT_EQ(buf.Contents(), ModelRepackRows(dest, pixel, 1, 1));
                EXPECT_TRUE(buf.GuardsIntact());
            }
        }
    });
}
