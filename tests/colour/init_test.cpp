// The three stages of Init: fields of every leaf and destination class, the
// size test, orientations, and the owned buffers.
#include <tuple>

#include "allocation_probe.h"
#include "colour/packed_to_rgb.h"
#include "colour/planar_to_rgb.h"
#include "colour/rgb24_to_i420.h"
#include "colour/rgb_to_rgb.h"
#include "colour/to_i420.h"
#include "colour_test_util.h"

using namespace colour_test;

namespace {

template <class T>
T& As(const XFormPtr& x) {
    return dynamic_cast<T&>(*x);
}

struct Road {
    uint32_t src, dest;
    int32_t naturalSrc, naturalDest;
};

// Every road with the natural orientations of its two formats.
const std::vector<Road> kRoads = {
    {FCC_YV12, FCC_I420, 1, 1}, {FCC_RG24, FCC_I420, 2, 1}, {FCC_YUY2, FCC_I420, 1, 1},
    {FCC_UYVY, FCC_I420, 1, 1}, {FCC_I420, FCC_I420, 1, 1}, {FCC_I420, FCC_RG24, 1, 2},
    {FCC_YV12, FCC_RG24, 1, 2}, {FCC_YUY2, FCC_RG24, 1, 2}, {FCC_UYVY, FCC_RG24, 1, 2},
    {FCC_RG24, FCC_RG24, 2, 2}, {FCC_I420, FCC_RG55, 1, 2}, {FCC_YV12, FCC_RG55, 1, 2},
    {FCC_YUY2, FCC_RG55, 1, 2}, {FCC_UYVY, FCC_RG55, 1, 2}, {FCC_RG24, FCC_RG55, 2, 2},
    {FCC_RG55, FCC_RG55, 2, 2}, {FCC_I420, FCC_RG56, 1, 2}, {FCC_YV12, FCC_RG56, 1, 2},
    {FCC_YUY2, FCC_RG56, 1, 2}, {FCC_UYVY, FCC_RG56, 1, 2}, {FCC_RG24, FCC_RG56, 2, 2},
    {FCC_RG56, FCC_RG56, 2, 2}, {FCC_I420, FCC_RG32, 1, 2}, {FCC_YV12, FCC_RG32, 1, 2},
    {FCC_YUY2, FCC_RG32, 1, 2}, {FCC_UYVY, FCC_RG32, 1, 2}, {FCC_RG24, FCC_RG32, 2, 2},
    {FCC_RG32, FCC_RG32, 2, 2},
};

int32_t ExpectedBufferSize(uint32_t dest, int32_t w, int32_t h) {
    if (dest == FCC_I420) return static_cast<int32_t>(static_cast<double>(w * h) * 1.5);
    const int32_t bytes = dest == FCC_RG24 ? 3 : dest == FCC_RG32 ? 4 : 2;
    return (bytes * w + 3) / 4 * 4 * h;
}

}  // namespace

TEST(ColourInit, EveryRoadResolvesDefaultsAndDestinationGeometry) {
    for (const Road& r : kRoads) {
        XFormPtr x = Ready(r.src, r.dest, 176, 144);
        ASSERT_NE(x, nullptr);
        const auto& f = As<CColorXFormFields>(x);
        EXPECT_TRUE(f.initialised);
        EXPECT_EQ(f.size, AbsSIZE(176, 144));
        EXPECT_EQ(f.srcOrientation, r.naturalSrc) << std::hex << r.src << " " << r.dest;
        EXPECT_EQ(f.destOrientation, r.naturalDest);
        EXPECT_EQ(x->DestBufferSize(), ExpectedBufferSize(r.dest, 176, 144));
        // Every road but "I420" to "I420" installs a routine.
        EXPECT_EQ(f.xformRoutine == nullptr, r.src == FCC_I420 && r.dest == FCC_I420);
        if (r.dest == FCC_I420) {
            const auto& d = As<CColorXFormToI420>(x);
            EXPECT_EQ(d.destYSize, 25344);
            EXPECT_EQ(d.destChromaSize, 6336);
            EXPECT_EQ(d.destUOffset, 25344);
            EXPECT_EQ(d.destVOffset, 25344 + 6336);
        }
    }
}

TEST(ColourInit, WorkedBufferSizes) {
    EXPECT_EQ(Ready(FCC_YUY2, FCC_I420, 176, 144)->DestBufferSize(), 38016);
    EXPECT_EQ(Ready(FCC_I420, FCC_RG24, 320, 240)->DestBufferSize(), 230400);
    EXPECT_EQ(Ready(FCC_I420, FCC_RG32, 320, 240)->DestBufferSize(), 307200);
    EXPECT_EQ(Ready(FCC_I420, FCC_RG55, 320, 240)->DestBufferSize(), 153600);
    EXPECT_EQ(Ready(FCC_I420, FCC_RG56, 320, 240)->DestBufferSize(), 153600);
    EXPECT_EQ(As<CColorXFormToRG24>(Ready(FCC_RG24, FCC_RG24, 320, 240)).destLineSize, 960);
    EXPECT_EQ(As<CColorXFormToRG32>(Ready(FCC_YUY2, FCC_RG32, 320, 240)).destLineSize, 1280);
    EXPECT_EQ(As<CColorXFormToRG55>(Ready(FCC_RG24, FCC_RG55, 320, 240)).destLineSize, 640);
    EXPECT_EQ(As<CColorXFormToRG56>(Ready(FCC_UYVY, FCC_RG56, 320, 240)).destLineSize, 640);
}

TEST(ColourInit, DestBufferSizeIsZeroBeforeInit) {
    for (const Road& r : kRoads) EXPECT_EQ(Create(r.src, r.dest)->DestBufferSize(), 0);
}

// Each Init on a fresh object: a repeated Init on RG24 to I420 would lose a
// flip buffer, a leak that only its own test is to show.
TEST(ColourInit, SizesMustBeMultiplesOfFour) {
    for (const Road& r : kRoads) {
        for (AbsSIZE bad : {AbsSIZE(322, 240), AbsSIZE(320, 242)}) {
            XFormPtr x = Create(r.src, r.dest);
            EXPECT_FALSE(x->Init(bad, kDefault, kDefault));
            EXPECT_FALSE(As<CColorXFormFields>(x).initialised);
            EXPECT_EQ(As<CColorXFormFields>(x).size, AbsSIZE(0, 0));
        }
        XFormPtr x = Create(r.src, r.dest);
        EXPECT_TRUE(x->Init(AbsSIZE(0, 0), kDefault, kDefault));
        EXPECT_EQ(x->DestBufferSize(), 0);
        EXPECT_TRUE(As<CColorXFormFields>(x).initialised);
    }
}

TEST(ColourInit, FailedSizeTestLeavesTheEarlierStagesWork) {
    XFormPtr x = Create(FCC_RG24, FCC_RG24);
    EXPECT_FALSE(x->Init(AbsSIZE(322, 240), kDefault, kDefault));
    EXPECT_EQ(x->DestBufferSize(), 232320);  // 322*3 rounded up to 968, times 240
    const auto& f = As<CColorXFormToRG24>(x);
    EXPECT_EQ(f.destLineSize, 968);
    EXPECT_NE(f.xformRoutine, nullptr);
    EXPECT_EQ(f.size, AbsSIZE(0, 0));

    // A failed second Init keeps the old size beside the new line sizes.
    ASSERT_TRUE(x->Init(AbsSIZE(8, 4), kDefault, kDefault));
    EXPECT_FALSE(x->Init(AbsSIZE(6, 4), kTopDown, kDefault));
    EXPECT_EQ(f.size, AbsSIZE(8, 4));
    EXPECT_EQ(f.destLineSize, 20);
    EXPECT_EQ(f.srcOrientation, kTopDown);
    EXPECT_TRUE(f.initialised);
}

TEST(ColourInit, NegativeSizeThroughTagSizeIsStoredPositive) {
    XFormPtr x = Create(FCC_YUY2, FCC_RG24);
    ASSERT_TRUE(x->Init(tagSIZE{-320, -240}, kDefault, kDefault));
    const auto& f = As<CColorXFormFields>(x);
    EXPECT_EQ(f.size, AbsSIZE(320, 240));
    EXPECT_EQ(f.srcOrientation, kTopDown);
    EXPECT_EQ(f.destOrientation, kBottomUp);
    EXPECT_EQ(x->DestBufferSize(), 230400);
}

// Each Init on a fresh object, for the reason given above.
TEST(ColourInit, OrientationsAreStoredAsGiven) {
    for (const Road& r : kRoads) {
        XFormPtr x = Create(r.src, r.dest);
        ASSERT_TRUE(x->Init(AbsSIZE(8, 8), AsOrient(3), AsOrient(-7)));
        EXPECT_EQ(As<CColorXFormFields>(x).srcOrientation, 3);
        EXPECT_EQ(As<CColorXFormFields>(x).destOrientation, -7);
        x = Create(r.src, r.dest);
        ASSERT_TRUE(x->Init(AbsSIZE(8, 8), kBottomUp, kDefault));
        EXPECT_EQ(As<CColorXFormFields>(x).srcOrientation, kBottomUp);
        EXPECT_EQ(As<CColorXFormFields>(x).destOrientation, r.naturalDest);
        x = Create(r.src, r.dest);
        ASSERT_TRUE(x->Init(AbsSIZE(8, 8), kDefault, kTopDown));
        EXPECT_EQ(As<CColorXFormFields>(x).srcOrientation, r.naturalSrc);
        EXPECT_EQ(As<CColorXFormFields>(x).destOrientation, kTopDown);
    }
}

TEST(ColourInit, LeafFieldsToI420) {
    XFormPtr sameOwner = Ready(FCC_I420, FCC_I420, 176, 144);
    const auto& same = As<CColorXFormI420ToI420>(sameOwner);
    EXPECT_EQ(same.yLineSize, 176);
    EXPECT_EQ(same.chromaLineSize, 88);

    XFormPtr yv12Owner = Ready(FCC_YV12, FCC_I420, 176, 144);
    const auto& yv12 = As<CColorXFormYV12ToI420>(yv12Owner);
    EXPECT_EQ(yv12.srcYSize, 25344);
    EXPECT_EQ(yv12.srcChromaSize, 6336);

    EXPECT_EQ(As<CColorXFormYUY2ToI420>(Ready(FCC_YUY2, FCC_I420, 176, 144)).srcLineSize, 352);
    EXPECT_EQ(As<CColorXFormUYVYToI420>(Ready(FCC_UYVY, FCC_I420, 176, 144)).srcLineSize, 352);

    XFormPtr rgb = Ready(FCC_RG24, FCC_I420, 176, 144);
    EXPECT_EQ(As<CColorXFormRG24ToI420>(rgb).srcLineSize, 528);
    EXPECT_NE(As<CColorXFormRG24ToI420>(rgb).flipBuffer, nullptr);
}

TEST(ColourInit, LeafFieldsPlanarToRGB) {
    for (uint32_t dest : {FCC_RG24, FCC_RG32, FCC_RG55, FCC_RG56}) {
        for (uint32_t src : {FCC_I420, FCC_YV12}) {
            XFormPtr x = Ready(src, dest, 176, 144);
            const bool i420 = src == FCC_I420;
            auto check = [&](const auto& p) {
                EXPECT_EQ(p.srcYSize, 25344);
                EXPECT_EQ(p.srcChromaSize, 6336);
                EXPECT_EQ(p.srcUOffset, i420 ? 25344 : 25344 + 6336);
                EXPECT_EQ(p.srcVOffset, i420 ? 25344 + 6336 : 25344);
            };
            if (dest == FCC_RG24) {
                check(As<CColorXFormPlanarToRG24>(x));
                EXPECT_EQ(As<CColorXFormPlanarToRG24>(x).rgbLineSize, 528);
            } else if (dest == FCC_RG32) {
                check(As<CColorXFormPlanarToRG32>(x));
                EXPECT_NE(As<CColorXFormPlanarToRG32>(x).rgbBuffer, nullptr);
            } else if (dest == FCC_RG55) {
                check(As<CColorXFormPlanarToRG55>(x));
                EXPECT_NE(As<CColorXFormPlanarToRG55>(x).rgbBuffer, nullptr);
            } else {
                check(As<CColorXFormPlanarToRG56>(x));
                EXPECT_NE(As<CColorXFormPlanarToRG56>(x).rgbBuffer, nullptr);
            }
        }
    }
}

TEST(ColourInitBuffers, PlanarBufferSizesAndReplacement) {
    for (uint32_t dest : {FCC_RG32, FCC_RG55, FCC_RG56}) {
        XFormPtr x = Create(FCC_I420, dest);
        {
            ProbeScope probe;
            ASSERT_TRUE(x->Init(AbsSIZE(8, 4), kDefault, kDefault));
            EXPECT_EQ(probe.counts().allocations, 1);
            EXPECT_EQ(probe.counts().releases, 0);
        }
        {
            // A second Init releases the earlier buffer before allocating.
            ProbeScope probe;
            ASSERT_TRUE(x->Init(AbsSIZE(16, 8), kDefault, kDefault));
            EXPECT_EQ(probe.counts().allocations, 1);
            EXPECT_EQ(probe.counts().releases, 1);
        }
        // Deleting the transform releases the buffer.
        ProbeScope probe;
        x.reset();
        EXPECT_EQ(probe.counts().releases, 1);
    }
}

TEST(ColourInitBuffers, PlanarBufferFailureStopsInitBeforeOrientation) {
    for (uint32_t dest : {FCC_RG32, FCC_RG55, FCC_RG56}) {
        XFormPtr x = Create(FCC_YV12, dest);
        ASSERT_TRUE(x->Init(AbsSIZE(8, 4), kBottomUp, kTopDown));
        ProbeScope probe(/*fail=*/true);
        EXPECT_FALSE(x->Init(AbsSIZE(16, 8), kDefault, kDefault));
        EXPECT_EQ(probe.counts().releases, 1);
        const auto& f = As<CColorXFormFields>(x);
        EXPECT_EQ(f.srcOrientation, kBottomUp);   // not resolved again
        EXPECT_EQ(f.destOrientation, kTopDown);   // stage 2 did not run
        EXPECT_EQ(f.size, AbsSIZE(8, 4));
        EXPECT_EQ(x->DestBufferSize(), ExpectedBufferSize(dest, 8, 4));
        if (dest == FCC_RG32) {
            EXPECT_EQ(As<CColorXFormPlanarToRG32>(x).rgbBuffer, nullptr);
        }
        if (dest == FCC_RG55) {
            EXPECT_EQ(As<CColorXFormPlanarToRG55>(x).rgbBuffer, nullptr);
        }
        if (dest == FCC_RG56) {
            EXPECT_EQ(As<CColorXFormPlanarToRG56>(x).rgbBuffer, nullptr);
        }
        // The plane fields were set before the allocation.
        if (dest == FCC_RG32) {
            EXPECT_EQ(As<CColorXFormPlanarToRG32>(x).srcYSize, 128);
        }
    }
}

TEST(ColourInitBuffers, FlipBufferIsOverwrittenAndNeverTested) {
    XFormPtr x = Create(FCC_RG24, FCC_I420);
    {
        ProbeScope probe;
        ASSERT_TRUE(x->Init(AbsSIZE(8, 4), kBottomUp, kBottomUp));  // allocated although no flip will run
        EXPECT_EQ(probe.counts().allocations, 1);
    }
    {
        // The earlier buffer is not released by a second Init.
        ProbeScope probe;
        ASSERT_TRUE(x->Init(AbsSIZE(8, 4), kDefault, kDefault));
        EXPECT_EQ(probe.counts().allocations, 1);
        EXPECT_EQ(probe.counts().releases, 0);
    }
    {
        // A failed allocation goes unnoticed.
        ProbeScope probe(/*fail=*/true);
        EXPECT_TRUE(x->Init(AbsSIZE(8, 4), kDefault, kDefault));
        EXPECT_EQ(As<CColorXFormRG24ToI420>(x).flipBuffer, nullptr);
    }
}

TEST(ColourInitBuffers, OtherRoadsAllocateNothing) {
    for (const Road& r : kRoads) {
        const bool owns = (r.dest != FCC_RG24 && (r.src == FCC_I420 || r.src == FCC_YV12) && r.dest != FCC_I420) ||
                          (r.src == FCC_RG24 && r.dest == FCC_I420);
        XFormPtr x = Create(r.src, r.dest);
        ProbeScope probe;
        ASSERT_TRUE(x->Init(AbsSIZE(8, 4), kDefault, kDefault));
        EXPECT_EQ(probe.counts().allocations, owns ? 1 : 0) << std::hex << r.src << " " << r.dest;
    }
}

TEST(ColourInitBuffers, IsSupportedMakesAndReleasesTheRealBuffers) {
    ProbeScope probe;
    EXPECT_TRUE(CColorXForm::IsSupported(FCC_I420, FCC_RG32, AbsSIZE(8, 4), kDefault, kDefault));
    EXPECT_EQ(probe.counts().allocations, 1);
    EXPECT_EQ(probe.counts().releases, 1);
}

TEST(ColourXForm, ChangesNoField) {
    XFormPtr x = Ready(FCC_YUY2, FCC_RG24, 8, 4);
    const auto& f = As<CColorXFormToRG24>(x);
    const auto before = std::make_tuple(f.initialised, f.srcFCC, f.destFCC, f.size.cx, f.size.cy, f.destBufferSize,
                                        f.xformRoutine, f.srcOrientation, f.destOrientation, f.destLineSize);
    std::vector<uint8_t> frame(64, 100), out(x->DestBufferSize());
    x->XForm(frame.data(), out.data(), 0);
    EXPECT_EQ(before, std::make_tuple(f.initialised, f.srcFCC, f.destFCC, f.size.cx, f.size.cy, f.destBufferSize,
                                      f.xformRoutine, f.srcOrientation, f.destOrientation, f.destLineSize));
}
