// Many threads converting at once, each with colour transforms of its own.
// Every Init of a road that uses primitives runs the tier selection, which
// rewrites the process-wide dispatch slots while the other threads convert
// through them: the slots are single atomic words, so every call lands on a
// whole entry.  Roads in plain code must give exactly the frames of a quiet
// run; roads through primitives too once the selection fills every slot
// with one tier (while a family is missing, a selection walks the tiers one
// after another, and a frame may come from any of them).
#include <gtest/gtest.h>
#include <pixmoor/pixmoor.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "selection_sandbox.h"

namespace {

using Orient = CColorXForm::EOrientation;

using pixmoor_test::SelectionSandbox;

struct Job {
    uint32_t src, dest;
    int32_t w, h;
    Orient srcOrientation, destOrientation;
    bool primitives;  // runs the selection at Init and converts through slots
};

const Job kJobs[] = {
    {FCC_YUY2, FCC_RG24, 64, 32, CColorXForm::OrientDefault, CColorXForm::OrientDefault, false},
    {FCC_UYVY, FCC_RG32, 48, 16, CColorXForm::OrientTopDown, CColorXForm::OrientTopDown, false},
    {FCC_YUY2, FCC_RG55, 32, 20, CColorXForm::OrientDefault, CColorXForm::OrientDefault, false},
    {FCC_RG24, FCC_RG56, 40, 12, CColorXForm::OrientDefault, CColorXForm::OrientTopDown, false},
    {FCC_RG32, FCC_RG32, 24, 24, CColorXForm::OrientTopDown, CColorXForm::OrientBottomUp, false},
    {FCC_YUY2, FCC_I420, 64, 24, CColorXForm::OrientDefault, CColorXForm::OrientDefault, false},
    {FCC_YV12, FCC_I420, 48, 32, CColorXForm::OrientDefault, CColorXForm::OrientDefault, false},
    {FCC_I420, FCC_RG24, 64, 32, CColorXForm::OrientDefault, CColorXForm::OrientDefault, true},
    {FCC_YV12, FCC_RG32, 48, 16, CColorXForm::OrientDefault, CColorXForm::OrientDefault, true},
    {FCC_I420, FCC_RG55, 32, 16, CColorXForm::OrientDefault, CColorXForm::OrientDefault, true},
    {FCC_RG24, FCC_I420, 64, 32, CColorXForm::OrientDefault, CColorXForm::OrientDefault, true},
};
constexpr int kJobCount = sizeof(kJobs) / sizeof(kJobs[0]);

// Room for any of the frames, with the extra row bytes of the planar road to
// RG32 and the two bytes a packed RGB row may be read past its end.
constexpr size_t kRoom = 64 * 32 * 4 + 64;

std::vector<uint8_t> Source(int j) {
    std::vector<uint8_t> bytes(kRoom);
    for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<uint8_t>(i * 53 + j * 17 + (i >> 7));
    return bytes;
}

std::vector<uint8_t> Convert(const Job& job, const std::vector<uint8_t>& source) {
    std::unique_ptr<CColorXForm> x(CColorXForm::CreateInstance(job.src, job.dest));
    std::vector<uint8_t> frame(kRoom, 0x77);
    if (x && x->Init(AbsSIZE(job.w, job.h), job.srcOrientation, job.destOrientation))
        x->XForm(source.data(), frame.data(), 0);
    return frame;
}

TEST(ColourXFormConcurrency, ThreadsWithTheirOwnObjectsWhileInitSelectsTiers) {
    SelectionSandbox sandbox;
    const bool oneTier = PrimSelectBestTier() == 1;
    std::vector<std::vector<uint8_t>> sources, expected;
    for (int j = 0; j < kJobCount; ++j) {
        sources.push_back(Source(j));
        expected.push_back(Convert(kJobs[j], sources[j]));
    }

    constexpr int kThreads = 8;
    constexpr int kRounds = 8;
    std::atomic<int> wrong{0};
    auto worker = [&](int t) {
        for (int round = 0; round < kRounds; ++round)
            for (int k = 0; k < kJobCount; ++k) {
                const int j = (k + t) % kJobCount;
                const std::vector<uint8_t> frame = Convert(kJobs[j], sources[j]);
                if ((!kJobs[j].primitives || oneTier) && frame != expected[j]) ++wrong;
            }
    };
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) threads.emplace_back(worker, t);
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(wrong.load(), 0);
}

// One long-lived object per thread and many frames: XForm changes no field,
// so the frames stay the same while other threads re-initialise theirs.
TEST(ColourXFormConcurrency, LongLivedObjectsKeepTheirFrames) {
    SelectionSandbox sandbox;
    const bool oneTier = PrimSelectBestTier() == 1;
    constexpr int kThreads = 6;
    std::atomic<int> wrong{0};
    auto worker = [&](int t) {
        const Job& job = kJobs[(t * 2) % kJobCount];
        const std::vector<uint8_t> source = Source(t);
        std::unique_ptr<CColorXForm> x(CColorXForm::CreateInstance(job.src, job.dest));
        if (!x || !x->Init(AbsSIZE(job.w, job.h), job.srcOrientation, job.destOrientation)) {
            ++wrong;
            return;
        }
        std::vector<uint8_t> first(kRoom, 0x77), frame(kRoom, 0x77);
        x->XForm(source.data(), first.data(), 0);
        for (int f = 0; f < 20; ++f) {
            // Another thread's kind of Init: a selection while frames go on.
            std::unique_ptr<CColorXForm> other(CColorXForm::CreateInstance(FCC_I420, FCC_RG24));
            other->Init(AbsSIZE(16, 16), CColorXForm::OrientDefault, CColorXForm::OrientDefault);
            x->XForm(source.data(), frame.data(), 0);
            if ((!job.primitives || oneTier) && frame != first) ++wrong;
        }
    };
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) threads.emplace_back(worker, t);
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(wrong.load(), 0);
}

}  // namespace
