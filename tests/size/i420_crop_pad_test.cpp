// Crop and pad of planar 4:2:0 frames: the strip records, the worked
// numbers (including the chroma borders counted in luma bytes and the
// one-byte chroma drift), and the frames byte for byte against a model.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <vector>

#include <pixmoor/size.h>

#include "size/i420_crop_pad.h"
#include "isa_levels.h"
#include "size_test_support.h"

using namespace size_test;

namespace {

struct Strip {
    int32_t rows, copyBytes, topPadBytes, topSkipBytes, leftPadBytes, leftSkipBytes;
};
using Strips = std::array<Strip, 3>;

// The geometry as the transform is to reckon it: the picture centred, the
// smaller half of an odd difference as margin, and every chroma number the
// luma number halved (the vertical ones are byte counts, so chroma borders
// come out twice the plane's need).
Strips ExpectedStrips(AbsSIZE in, AbsSIZE out) {
    Strip y{};
    if (out.cy > in.cy) {
        y.rows = in.cy;
        y.topPadBytes = (out.cy - in.cy) / 2 * out.cx;
    } else {
        y.rows = out.cy;
        y.topSkipBytes = (in.cy - out.cy) / 2 * in.cx;
    }
    if (out.cx > in.cx) {
        y.copyBytes = in.cx;
        y.leftPadBytes = (out.cx - in.cx) / 2;
    } else {
        y.copyBytes = out.cx;
        y.leftSkipBytes = (in.cx - out.cx) / 2;
    }
    const Strip c{y.rows / 2,         y.copyBytes / 2,    y.topPadBytes / 2,
                  y.topSkipBytes / 2, y.leftPadBytes / 2, y.leftSkipBytes / 2};
    return {y, c, c};
}

void ExpectStrip(const PlaneStrip& got, const Strip& want, int plane) {
    EXPECT_EQ(got.rows, want.rows) << "plane " << plane;
    EXPECT_EQ(got.copyBytes, want.copyBytes) << "plane " << plane;
    EXPECT_EQ(got.topPadBytes, want.topPadBytes) << "plane " << plane;
    EXPECT_EQ(got.topSkipBytes, want.topSkipBytes) << "plane " << plane;
    EXPECT_EQ(got.leftPadBytes, want.leftPadBytes) << "plane " << plane;
    EXPECT_EQ(got.leftSkipBytes, want.leftSkipBytes) << "plane " << plane;
}

// The frame written, byte by byte: each margin is zeros when it pads and a
// skip of the source otherwise; source and destination run on from plane
// to plane.  With a null source only the extents are counted.
struct Walk {
    std::vector<uint8_t> written;
    size_t read = 0;
};

Walk WalkFrame(const Strips& strips, const uint8_t* src) {
    Walk w;
    auto margin = [&](int32_t pad, int32_t skip) {
        if (pad > 0)
            w.written.insert(w.written.end(), Bytes(pad), 0);
        else
            w.read += Bytes(skip);
    };
    for (const Strip& s : strips) {
        margin(s.topPadBytes, s.topSkipBytes);
        for (int32_t row = 0; row < s.rows; ++row) {
            margin(s.leftPadBytes, s.leftSkipBytes);
            for (int32_t i = 0; i < s.copyBytes; ++i, ++w.read) w.written.push_back(src ? src[w.read] : 0);
            margin(s.leftPadBytes, s.leftSkipBytes);
        }
        margin(s.topPadBytes, s.topSkipBytes);
    }
    return w;
}

// Initialises a fresh transform and checks its three strips: the two chroma
// records are alike.
Transform InitWithStrips(AbsSIZE in, AbsSIZE out, const Strip& luma, const Strip& chroma,
                         uint32_t fourcc = FCC_I420) {
    Transform t = Make(fourcc, 12);
    EXPECT_TRUE(t->Init(in, out, XFormCropPad, InterpDefault));
    const auto& crop = dynamic_cast<const CSizeXFormI420CropPad&>(*t);
    ExpectStrip(crop.Strip(0), luma, 0);
    ExpectStrip(crop.Strip(1), chroma, 1);
    ExpectStrip(crop.Strip(2), chroma, 2);
    return t;
}

size_t FrameBytes(AbsSIZE s) { return Bytes(s.cx * s.cy * 3 / 2); }

// Runs one frame through a fresh transform with a destination of exactly
// the bytes the walk writes, and checks them and the canaries around them.
// Returns the source and what was written.
struct FrameRun {
    std::vector<uint8_t> src, dst;
};

FrameRun CheckFrame(uint32_t fourcc, AbsSIZE in, AbsSIZE out, uint32_t seed) {
    const Strips strips = ExpectedStrips(in, out);
    Transform t = InitWithStrips(in, out, strips[0], strips[1], fourcc);

    const size_t readBytes = std::max(WalkFrame(strips, nullptr).read, FrameBytes(in));
    GuardedBuffer src(readBytes);
    src.FillRandom(seed);
    const Walk expected = WalkFrame(strips, src.data());
    GuardedBuffer dst(expected.written.size());
    t->XForm(src.data(), dst.data());
    EXPECT_EQ(dst.Contents(), expected.written) << in.cx << "x" << in.cy << " to " << out.cx << "x" << out.cy;
    EXPECT_TRUE(dst.GuardsIntact());
    return {src.Contents(), dst.Contents()};
}

// The centred picture of one plane, independent of strips: a pixel of the
// output shows the source pixel at the same place relative to the centre,
// or 0 outside the source.  Valid where both differences are even.
std::vector<uint8_t> CentredPlane(const uint8_t* plane, int32_t inW, int32_t inH, int32_t outW, int32_t outH) {
    std::vector<uint8_t> r(Bytes(outW * outH), 0);
    const int32_t dx = (inW - outW) / 2, dy = (inH - outH) / 2;
    for (int32_t y = 0; y < outH; ++y)
        for (int32_t x = 0; x < outW; ++x) {
            const int32_t sx = x + dx, sy = y + dy;
            if (sx >= 0 && sx < inW && sy >= 0 && sy < inH) r[Bytes(y * outW + x)] = plane[sy * inW + sx];
        }
    return r;
}

}  // namespace

TEST(I420CropPadInit, ScaleTypeIsRefusedAndChangesNothing) {
    Transform t = Make(FCC_I420, 12);
    EXPECT_FALSE(t->Init(AbsSIZE(176, 144), AbsSIZE(352, 288), XFormScale, InterpDefault));
    const auto& crop = dynamic_cast<const CSizeXFormI420CropPad&>(*t);
    for (int p = 0; p < 3; ++p) ExpectStrip(crop.Strip(p), Strip{}, p);
    EXPECT_EQ(X::Routine(*t), nullptr);
    EXPECT_EQ(t->DestBufferSize(), 0);
    EXPECT_FALSE(X::Initialised(*t));
}

TEST(I420CropPadInit, EveryOtherTypeIsCropAndPad) {
    for (int32_t type : {0, 2, -1, 1000}) {
        Transform t = Make(FCC_I420, 12);
        EXPECT_TRUE(t->Init(AbsSIZE(16, 16), AbsSIZE(8, 8), static_cast<XFormType>(type), InterpDefault));
        EXPECT_EQ(X::Routine(*t), &CSizeXFormI420CropPad::CropPadI420);
    }
}

TEST(I420CropPad, HeightDoubledPadsChromaWithHalfTheLumaBytes) {
    // 176x144 to 176x288: luma top pad 12672; chroma rows 72, line 88, top
    // pad 6336 (not the 3168 of 36 half-width lines).
    const AbsSIZE in(176, 144), out(176, 288);
    Transform t = InitWithStrips(in, out, Strip{144, 176, 12672, 0, 0, 0}, Strip{72, 88, 6336, 0, 0, 0});
    EXPECT_EQ(t->DestBufferSize(), 76032);

    // Luma writes 50688 bytes and each chroma plane 19008: 88704 in all,
    // past DestBufferSize, and not one byte further.
    const FrameRun run = CheckFrame(FCC_I420, in, out, 11);
    ASSERT_EQ(run.dst.size(), 88704u);
    const std::vector<uint8_t>& d = run.dst;
    for (size_t i = 0; i < 12672; ++i) ASSERT_EQ(d[i], 0);
    EXPECT_TRUE(std::equal(d.begin() + 12672, d.begin() + 12672 + 25344, run.src.begin()));
    for (size_t i = 38016; i < 50688; ++i) ASSERT_EQ(d[i], 0);
    for (size_t plane = 0; plane < 2; ++plane) {
        const size_t base = 50688 + plane * 19008;
        const size_t srcBase = 25344 + plane * 6336;
        for (size_t i = 0; i < 6336; ++i) ASSERT_EQ(d[base + i], 0);  // zero, not a neutral 128
        EXPECT_TRUE(std::equal(d.begin() + base + 6336, d.begin() + base + 12672, run.src.begin() + srcBase));
        for (size_t i = 12672; i < 19008; ++i) ASSERT_EQ(d[base + i], 0);
    }
}

TEST(I420CropPad, HeightHalvedSkipsPastTheEndOfTheSource) {
    // 176x288 to 176x144: chroma skip 6336 at both ends of each plane, so
    // the second chroma plane is read 6336 bytes past the frame's 76032.
    const AbsSIZE in(176, 288), out(176, 144);
    Transform t = InitWithStrips(in, out, Strip{144, 176, 0, 12672, 0, 0}, Strip{72, 88, 0, 6336, 0, 0});
    ASSERT_EQ(t->DestBufferSize(), 38016);

    const FrameRun run = CheckFrame(FCC_I420, in, out, 12);
    ASSERT_EQ(run.dst.size(), 38016u);  // exactly DestBufferSize written
    ASSERT_EQ(run.src.size(), 88704u);  // read up to here
    const std::vector<uint8_t>& d = run.dst;
    const std::vector<uint8_t>& s = run.src;
    EXPECT_TRUE(std::equal(d.begin(), d.begin() + 25344, s.begin() + 12672));
    // First chroma: the lower half of the source's first chroma plane.
    EXPECT_TRUE(std::equal(d.begin() + 25344, d.begin() + 31680, s.begin() + 50688 + 6336));
    // Second chroma: beyond the end of the source frame.
    EXPECT_TRUE(std::equal(d.begin() + 31680, d.begin() + 38016, s.begin() + 76032));
}

TEST(I420CropPad, WidthDoubledWritesExactlyDestBufferSize) {
    const AbsSIZE in(176, 144), out(352, 144);
    Transform t = InitWithStrips(in, out, Strip{144, 176, 0, 0, 88, 0}, Strip{72, 88, 0, 0, 44, 0});
    const FrameRun run = CheckFrame(FCC_I420, in, out, 13);
    EXPECT_EQ(run.dst.size(), Bytes(t->DestBufferSize()));
    // The clean geometry holds for every plane here.
    EXPECT_EQ(std::vector<uint8_t>(run.dst.begin(), run.dst.begin() + 352 * 144),
              CentredPlane(run.src.data(), 176, 144, 352, 144));
    for (size_t plane = 0; plane < 2; ++plane) {
        const size_t srcBase = 176 * 144 + plane * 88 * 72, dstBase = 352 * 144 + plane * 176 * 72;
        EXPECT_EQ(std::vector<uint8_t>(run.dst.begin() + dstBase, run.dst.begin() + dstBase + 176 * 72),
                  CentredPlane(run.src.data() + srcBase, 88, 72, 176, 72));
    }
}

TEST(I420CropPad, OddWidthDifferenceLetsTheChromaReadDrift) {
    // 178 to 176: luma skips 1 byte each side of a line, chroma skips 0 and
    // copies 88 of the source's 89 bytes, so its read drifts by one byte a
    // line instead of following the source's chroma lines.
    const AbsSIZE in(178, 144), out(176, 144);
    Transform t = InitWithStrips(in, out, Strip{144, 176, 0, 0, 0, 1}, Strip{72, 88, 0, 0, 0, 0});
    const FrameRun run = CheckFrame(FCC_I420, in, out, 14);
    ASSERT_EQ(run.dst.size(), Bytes(t->DestBufferSize()));
    const size_t lumaIn = 178 * 144, lumaOut = 176 * 144;
    for (size_t line = 0; line < 144; ++line)
        ASSERT_TRUE(std::equal(run.dst.begin() + line * 176, run.dst.begin() + line * 176 + 176,
                               run.src.begin() + line * 178 + 1));
    // Chroma line k comes from source offset k * 88, not k * 89: it runs on
    // into the next plane with the same drift.
    for (size_t k = 0; k < 144; ++k)
        ASSERT_TRUE(std::equal(run.dst.begin() + lumaOut + k * 88, run.dst.begin() + lumaOut + k * 88 + 88,
                               run.src.begin() + lumaIn + k * 88));
}

TEST(I420CropPad, OddDifferencesKeepTheSmallerHalfAsMargin) {
    // 5 more lines and 3 more columns: 2 lines and 1 column of margin on each
    // side; the extra ones are neither copied nor padded.
    const AbsSIZE in(20, 16), out(23, 21);
    Transform t = InitWithStrips(in, out, Strip{16, 20, 46, 0, 1, 0}, Strip{8, 10, 23, 0, 0, 0});
    EXPECT_EQ(t->DestBufferSize(), 724);  // 483 * 1.5 = 724.5
    CheckFrame(FCC_I420, in, out, 15);
    // And the other way.
    CheckFrame(FCC_I420, out, in, 16);
}

TEST(I420CropPad, DestBufferSizeTruncatesHalfBytes) {
    const struct {
        int32_t w, h, bytes;
    } cases[] = {{3, 3, 13}, {5, 7, 52}, {1, 1, 1}, {2, 1, 3}, {176, 144, 38016}, {0, 9, 0}};
    for (const auto& c : cases) {
        Transform t = Make(FCC_I420, 12);
        ASSERT_TRUE(t->Init(AbsSIZE(8, 8), AbsSIZE(c.w, c.h), XFormCropPad, InterpDefault));
        EXPECT_EQ(t->DestBufferSize(), c.bytes) << c.w << "x" << c.h;
    }
}

TEST(I420CropPad, YV12FramesGoThroughTheSameWalk) {
    const AbsSIZE in(40, 30), out(24, 44);
    EXPECT_EQ(CheckFrame(FCC_YV12, in, out, 17).dst, CheckFrame(FCC_I420, in, out, 17).dst);
}

TEST(I420CropPad, RandomSizesMatchTheModel) {
    pixmoor_test::ForEachIsaLevel([&] {
        std::mt19937 rng(20240);
        std::uniform_int_distribution<int32_t> len(1, 70);
        for (int i = 0; i < 400; ++i) {
            const AbsSIZE in(len(rng), len(rng)), out(len(rng), len(rng));
            if (in == out) continue;
            const Strips strips = ExpectedStrips(in, out);
            for (const Strip& s : strips) {
                EXPECT_TRUE(s.topPadBytes == 0 || s.topSkipBytes == 0);
                EXPECT_TRUE(s.leftPadBytes == 0 || s.leftSkipBytes == 0);
            }
            const FrameRun run = CheckFrame(FCC_I420, in, out, static_cast<uint32_t>(i));
            // Where both differences are even the luma plane is the centred picture.
            if ((in.cx - out.cx) % 2 == 0 && (in.cy - out.cy) % 2 == 0) {
                const std::vector<uint8_t> luma(run.dst.begin(), run.dst.begin() + out.cx * out.cy);
                EXPECT_EQ(luma, CentredPlane(run.src.data(), in.cx, in.cy, out.cx, out.cy));
            }
        }
    });
}
