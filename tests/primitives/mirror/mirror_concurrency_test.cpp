// Mirror calls on many threads while the tier changes under them: one
// thread keeps selecting tiers and rewriting the mirror rows' slots, the
// others mirror images of their own through the dispatch stubs and through
// plain names that follow the current tier.  Every tier gives the same bytes,
// so each caller's results must stay exactly those of a quiet run.
#include <gtest/gtest.h>
#include <pixmoor/pixmoor.h>

#include <atomic>
#include <thread>
#include <vector>

#include "selection_sandbox.h"

namespace {

using pixmoor_test::SelectionSandbox;

// The rows whose stubs the colour transforms call: 16 (C3 in place),
// 17 (C3 to a destination) and 18 (AC4 in place).
constexpr int kMirrorRows[] = {16, 17, 18};

struct Image {
    int32_t width, height, step;
    std::vector<uint8_t> bytes;
};

Image MakeImage(int32_t width, int32_t height, int32_t pixelBytes, int seed) {
    Image image{width, height, width * pixelBytes + 7, {}};
    image.bytes.resize(static_cast<size_t>(image.step) * height);
    for (size_t i = 0; i < image.bytes.size(); ++i) image.bytes[i] = static_cast<uint8_t>(i * 131 + seed);
    return image;
}

// One caller's round: every call returns 0, twice in place is the identity,
// and the copy to a destination matches the one made before the race.
bool Round(Image& c3, Image& ac4, Image& wide, std::vector<uint8_t>& flipped, const std::vector<uint8_t>& reference) {
    const std::vector<uint8_t> c3Before = c3.bytes, ac4Before = ac4.bytes, wideBefore = wide.bytes;
    bool ok = true;
    for (int32_t axis = 0; axis < 3; ++axis) {
        const auto a = static_cast<MirrorAxis>(axis);
        ok &= ImgMirror8uC3I(c3.bytes.data(), c3.step, c3.width, c3.height, a) == 0;
        ok &= ImgMirror8uC3I(c3.bytes.data(), c3.step, c3.width, c3.height, a) == 0;
        ok &= ImgMirror8uAC4I(ac4.bytes.data(), ac4.step, ac4.width, ac4.height, a) == 0;
        ok &= ImgMirror8uAC4I(ac4.bytes.data(), ac4.step, ac4.width, ac4.height, a) == 0;
        // A member outside the table runs the tier PrimGetTier reports.
        auto* words = reinterpret_cast<uint16_t*>(wide.bytes.data());
        ok &= ImgMirror16uC3I(words, wide.step, wide.width, wide.height, a) == 0;
        ok &= ImgMirror16uC3I(words, wide.step, wide.width, wide.height, a) == 0;
    }
    ok &= ImgMirror8uC3(c3.bytes.data(), c3.step, flipped.data(), c3.step, c3.width, c3.height, MirrorBothAxes) == 0;
    return ok && c3.bytes == c3Before && ac4.bytes == ac4Before && wide.bytes == wideBefore && flipped == reference;
}

TEST(MirrorConcurrency, CallersStayRightWhileSelectionRewritesTheSlots) {
    SelectionSandbox sandbox;
    constexpr int kCallers = 6;
    constexpr int kRounds = 200;

    std::vector<Image> c3s, ac4s, wides;
    std::vector<std::vector<uint8_t>> references;
    for (int t = 0; t < kCallers; ++t) {
        c3s.push_back(MakeImage(37 + t * 5, 9 + t, 3, t));
        ac4s.push_back(MakeImage(29 + t * 3, 7 + t, 4, t + 50));
        wides.push_back(MakeImage(23 + t, 5 + t, 6, t + 100));
        std::vector<uint8_t> reference(c3s[t].bytes.size(), 0);
        ASSERT_EQ(px_ImgMirror8uC3(c3s[t].bytes.data(), c3s[t].step, reference.data(), c3s[t].step, c3s[t].width,
                                   c3s[t].height, MirrorBothAxes),
                  0);
        references.push_back(reference);
    }

    std::atomic<int> running{kCallers};
    std::atomic<int> failures{0};
    auto caller = [&](int t) {
        std::vector<uint8_t> flipped(references[t].size(), 0);
        for (int round = 0; round < kRounds; ++round)
            if (!Round(c3s[t], ac4s[t], wides[t], flipped, references[t])) ++failures;
        --running;
    };
    std::vector<std::thread> callers;
    for (int t = 0; t < kCallers; ++t) callers.emplace_back(caller, t);

    // The selector: full selections, and the mirror rows' slots set to each
    // tier's entry in turn, as a selection does once every row is present.
    int selections = 0;
    for (int i = 0; running.load() > 0; ++i) {
        PrimSelectBestTier();
        PrimSelectTier(i % 4);
        for (const int row : kMirrorRows) {
            const PrimDispatchRow& r = PrimDispatchTable[row];
            if (r.entries[i % 4] != nullptr) __atomic_store_n(r.slot, r.entries[i % 4], __ATOMIC_RELAXED);
        }
        __atomic_store_n(&PrimCurrentTier, i % 4, __ATOMIC_RELAXED);
        ++selections;
        std::this_thread::yield();
    }
    for (auto& thread : callers) thread.join();
    EXPECT_EQ(failures.load(), 0);
    EXPECT_GT(selections, 0);
}

}  // namespace
