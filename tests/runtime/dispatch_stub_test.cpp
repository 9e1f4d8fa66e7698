// The plain names of the dispatch rows go through their slots.
#include <gtest/gtest.h>
#include <pixmoor/pixmoor.h>

#include <atomic>
#include <thread>
#include <vector>

#include "played_processor.h"

using namespace pixmoor_test;

namespace {

PrimStatus g_seenStatus;
const char* PlayedStatusText(PrimStatus status) {
    g_seenStatus = status;
    return "played";
}

struct SeenMirror {
    const void* src;
    int32_t srcStep;
    void* dst;
    int32_t dstStep, width, height;
    int32_t axis;
};
SeenMirror g_seen;

PrimStatus PlayedInPlace(uint8_t* p, int32_t step, int32_t w, int32_t h, MirrorAxis axis) {
    g_seen = {nullptr, 0, p, step, w, h, axis};
    return 77;
}
PrimStatus PlayedToDestination(const uint8_t* s, int32_t ss, uint8_t* d, int32_t ds, int32_t w, int32_t h,
                               MirrorAxis axis) {
    g_seen = {s, ss, d, ds, w, h, axis};
    return -77;
}

float g_block[4];
int32_t g_askedCount;
float* PlayedMalloc(int32_t count) {
    g_askedCount = count;
    return g_block;
}
void* g_freed;
void PlayedFree(void* block) { g_freed = block; }

template <typename Fn>
PrimEntry Entry(Fn fn) {
    return reinterpret_cast<PrimEntry>(fn);
}

}  // namespace

TEST(DispatchStubs, PassArgumentsAndResultsThroughTheSlot) {
    RuntimeStateGuard guard;
    *PrimDispatchTable[5].slot = Entry(PlayedStatusText);
    EXPECT_STREQ(SigGetStatusString(-21), "played");
    EXPECT_EQ(g_seenStatus, -21);

    *PrimDispatchTable[1].slot = Entry(PlayedMalloc);
    EXPECT_EQ(SigMalloc32f(12345), g_block);
    EXPECT_EQ(g_askedCount, 12345);
    *PrimDispatchTable[2].slot = Entry(PlayedFree);
    SigFree(g_block + 1);
    EXPECT_EQ(g_freed, g_block + 1);

    uint8_t a[4], b[4];
    *PrimDispatchTable[16].slot = Entry(PlayedInPlace);
    EXPECT_EQ(ImgMirror8uC3I(a, 11, 22, 33, MirrorBothAxes), 77);
    EXPECT_EQ(g_seen.dst, a);
    EXPECT_EQ(g_seen.dstStep, 11);
    EXPECT_EQ(g_seen.width, 22);
    EXPECT_EQ(g_seen.height, 33);
    EXPECT_EQ(g_seen.axis, 2);
    *PrimDispatchTable[18].slot = Entry(PlayedInPlace);
    EXPECT_EQ(ImgMirror8uAC4I(b, -5, 6, 7, MirrorVerticalAxis), 77);
    EXPECT_EQ(g_seen.dst, b);
    EXPECT_EQ(g_seen.dstStep, -5);
    *PrimDispatchTable[17].slot = Entry(PlayedToDestination);
    EXPECT_EQ(ImgMirror8uC3(a, 1, b, 2, 3, 4, MirrorHorizontalAxis), -77);
    EXPECT_EQ(g_seen.src, a);
    EXPECT_EQ(g_seen.srcStep, 1);
    EXPECT_EQ(g_seen.dst, b);
    EXPECT_EQ(g_seen.dstStep, 2);
    EXPECT_EQ(g_seen.width, 3);
    EXPECT_EQ(g_seen.height, 4);
    EXPECT_EQ(g_seen.axis, 0);
}

TEST(DispatchStubs, RunThePxEntriesBeforeSelection) {
    EXPECT_EQ(SigGetLibVersion(), px_SigGetLibVersion());
    EXPECT_EQ(ImgGetLibVersion(), px_ImgGetLibVersion());
    EXPECT_STREQ(SigGetStatusString(-8), "Null pointer error");
    float* block = SigMalloc32f(3);
    ASSERT_NE(block, nullptr);
    block[2] = 1.0f;
    SigFree(block);
}

TEST(DispatchStubs, PlainNamesOutsideTheTableFollowTheCurrentTier) {
    RuntimeStateGuard guard;
    uint8_t image[6] = {1, 2, 3, 4, 5, 6};
    for (int32_t tier = 0; tier < 4; ++tier) {
        PrimCurrentTier = tier;
        EXPECT_EQ(ImgMirror8uC1I(image, 6, 6, 1, MirrorVerticalAxis), 0);
    }
    EXPECT_EQ(image[0], 1);  // four reversals
    EXPECT_EQ(ImgMirror8uC1I(nullptr, 6, 6, 1, MirrorVerticalAxis), PrimStatusNullPointer);
}

// Selection rewrites the slots while other threads call through them: every
// call lands on a complete entry of some tier, and the results stay right.
TEST(DispatchStubs, SelectionWhileOtherThreadsCallThrough) {
    RuntimeStateGuard guard;
    PlayedPlatform platform(PlayedProcessor::Reference(6, kMmx | kSse | kSse2));
    std::atomic<int> finished{0};
    std::atomic<int> failures{0};
    std::atomic<int> selections{0};

    auto caller = [&](uint32_t seed) {
        const int32_t width = 37, height = 9, step = width * 3 + 5;
        std::vector<uint8_t> image(step * height), original, mirrored(step * height);
        for (size_t i = 0; i < image.size(); ++i) image[i] = static_cast<uint8_t>(i * 7 + seed);
        original = image;
        for (int round = 0; round < 3000; ++round) {
            if (ImgMirror8uC3I(image.data(), step, width, height, MirrorBothAxes) != 0) ++failures;
            if (ImgMirror8uC3(image.data(), step, mirrored.data(), step, width, height, MirrorBothAxes) != 0) ++failures;
            for (int32_t y = 0; y < height; ++y)
                for (int32_t x = 0; x < width * 3; ++x) {
                    // image is the point mirror of the original, mirrored the original again
                    const int32_t mx = (width - 1 - x / 3) * 3 + x % 3;
                    if (image[y * step + x] != original[(height - 1 - y) * step + mx]) ++failures;
                    if (mirrored[y * step + x] != original[y * step + x]) ++failures;
                }
            if (ImgMirror8uC3I(image.data(), step, width, height, MirrorBothAxes) != 0) ++failures;
            // A plain name outside the table runs whatever tier is current.
            if (ImgMirror8uC1I(image.data(), step, step, height, MirrorHorizontalAxis) != 0) ++failures;
            if (ImgMirror8uC1I(image.data(), step, step, height, MirrorHorizontalAxis) != 0) ++failures;
            if (std::string(SigGetStatusString(-14)) != "Step value is less or equal zero") ++failures;
            const std::string name = SigGetLibVersion()->name;
            if (name.rfind("prims", 0) != 0) ++failures;
        }
        if (image != original) ++failures;
        ++finished;
    };

    std::vector<std::thread> callers;
    for (uint32_t t = 0; t < 2; ++t) callers.emplace_back(caller, t);
    for (int i = 0; finished.load() < 2; ++i) {
        if (PrimSelectBestTier() != 1) ++failures;
        if (PrimSelectTier(i % 4) != 1) ++failures;
        ++selections;
    }
    for (auto& t : callers) t.join();
    EXPECT_EQ(failures.load(), 0);
    EXPECT_GT(selections.load(), 0);
    EXPECT_TRUE(platform.messages().empty());
}
