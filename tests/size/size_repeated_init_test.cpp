// Repeated Init on both size transforms, through every path that builds,
// keeps or frees the scaler's run lists.  In the sanitizer build
// LeakSanitizer checks at exit that nothing was lost; in every build the
// frames after many Inits must equal those of a fresh object.
#include <gtest/gtest.h>
#include <pixmoor/pixmoor.h>

#include <memory>
#include <vector>

#include "size/run_list.h"

namespace {

constexpr uint32_t Code(const char* s) {
    return static_cast<uint32_t>(s[0]) | static_cast<uint32_t>(s[1]) << 8 | static_cast<uint32_t>(s[2]) << 16 |
           static_cast<uint32_t>(s[3]) << 24;
}

struct Sizes {
    AbsSIZE in, out;
};

std::vector<uint8_t> Frame(CSizeXForm& x, size_t room) {
    std::vector<uint8_t> source(room), frame(room, 0x11);
    for (size_t i = 0; i < room; ++i) source[i] = static_cast<uint8_t>(i * 7 + (i >> 8));
    x.XForm(source.data(), frame.data());
    return frame;
}

std::vector<uint8_t> FreshFrame(uint32_t fourcc, uint32_t bits, const Sizes& s, XFormType type, size_t room) {
    std::unique_ptr<CSizeXForm> x(CSizeXForm::CreateInstance(fourcc, bits));
    EXPECT_TRUE(x->Init(s.in, s.out, type, InterpDefault));
    return Frame(*x, room);
}

// Generic to generic, generic to a fixed routine (the lists stay until the
// destructor), back to generic (they are freed and rebuilt), and failures on
// the way: a wrong type changes nothing, and after an odd size the base
// refuses while the scaler has already rebuilt its lists.
TEST(SizeRepeatedInit, ScalerListsAcrossEveryPath) {
    const Sizes sequence[] = {
        {AbsSIZE(100, 60), AbsSIZE(150, 90)},  {AbsSIZE(64, 48), AbsSIZE(32, 100)},
        {AbsSIZE(176, 144), AbsSIZE(352, 288)}, {AbsSIZE(352, 288), AbsSIZE(176, 144)},
        {AbsSIZE(160, 120), AbsSIZE(176, 144)},
        {AbsSIZE(98, 76), AbsSIZE(22, 10)},
    };
    const size_t room = 704 * 576 * 4;
    for (int round = 0; round < 20; ++round) {
        std::unique_ptr<CSizeXForm> x(CSizeXForm::CreateInstance(Code("RG24"), 24));
        ASSERT_TRUE(x);
        for (const Sizes& s : sequence) {
            EXPECT_FALSE(x->Init(s.in, s.out, XFormCropPad, InterpDefault));
            EXPECT_TRUE(x->Init(s.in, s.out, XFormScale, InterpDefault));
        }
        // No Init had equal sizes, so the object still scales: a fresh one
        // agrees.
        EXPECT_EQ(Frame(*x, room), FreshFrame(Code("RG24"), 24, sequence[5], XFormScale, room));

        // An odd size, then Inits that the base refuses: each one still
        // rebuilds the lists.
        EXPECT_TRUE(x->Init(AbsSIZE(33, 17), AbsSIZE(65, 9), XFormScale, InterpDefault));
        for (const Sizes& s : sequence) EXPECT_FALSE(x->Init(s.in, s.out, XFormScale, InterpDefault));
    }
}

TEST(SizeRepeatedInit, GenericScalerAtEveryDepth) {
    for (uint32_t bits : {8u, 16u, 24u, 32u}) {
        std::unique_ptr<CSizeXForm> x(CSizeXForm::CreateInstance(0, bits));
        ASSERT_TRUE(x);
        for (int32_t w = 2; w < 60; w += 6)
            EXPECT_TRUE(x->Init(AbsSIZE(w, w + 2), AbsSIZE(90 - w, w + 4), XFormScale, InterpDefault));
        const Sizes last{AbsSIZE(56, 58), AbsSIZE(34, 60)};
        const size_t room = 64 * 64 * 4 * 2;
        EXPECT_EQ(Frame(*x, room), FreshFrame(0, bits, last, XFormScale, room)) << bits << " bits";
    }
}

TEST(SizeRepeatedInit, CropAndPad) {
    const Sizes sequence[] = {
        {AbsSIZE(176, 144), AbsSIZE(176, 288)}, {AbsSIZE(176, 288), AbsSIZE(176, 144)},
        {AbsSIZE(178, 144), AbsSIZE(176, 144)}, {AbsSIZE(64, 48), AbsSIZE(96, 32)},
    };
    const size_t room = 176 * 288 * 4;
    for (const char* code : {"I420", "YV12", "iyuv"}) {
        const uint32_t fourcc = Code(code);
        std::unique_ptr<CSizeXForm> x(CSizeXForm::CreateInstance(fourcc, 12));
        ASSERT_TRUE(x);
        for (int round = 0; round < 10; ++round)
            for (const Sizes& s : sequence) {
                EXPECT_FALSE(x->Init(s.in, s.out, XFormScale, InterpDefault));
                EXPECT_TRUE(x->Init(s.in, s.out, XFormCropPad, InterpDefault));
            }
        EXPECT_EQ(Frame(*x, room), FreshFrame(fourcc, 12, sequence[3], XFormCropPad, room)) << code;
    }
}

TEST(SizeRepeatedInit, IsSupportedMakesAndEndsAnObjectEachTime) {
    for (int i = 0; i < 200; ++i) {
        EXPECT_TRUE(CSizeXForm::IsSupported(0, 32, AbsSIZE(10 + i, 20), AbsSIZE(30, 5 + i), XFormScale));
        EXPECT_TRUE(CSizeXForm::IsSupported(Code("I420"), 12, AbsSIZE(10 + i, 20), AbsSIZE(30, 4), XFormCropPad));
        EXPECT_FALSE(CSizeXForm::IsSupported(Code("RG24"), 24, AbsSIZE(10, 20), AbsSIZE(30, 4), XFormCropPad));
    }
}

TEST(SizeRepeatedInit, RunListsBuiltAndFreedForAnyLengths) {
    const int32_t lengths[] = {-5, 0, 1, 2, 3, 7, 160, 176, 1000};
    for (int32_t inLen : lengths)
        for (int32_t outLen : lengths) {
            const int32_t step = inLen > 0 && outLen > 0 ? static_cast<int32_t>(2000.0 * inLen / outLen) : 2000;
            ScaleRun* list = nullptr;
            int32_t unconsumed = -1;
            BuildRunList(inLen, outLen, step, &list, &unconsumed);
            ASSERT_NE(list, nullptr);
            FreeRunList(list);
        }
}

}  // namespace
