// Many threads converting at once, each with transform objects of its own:
// the objects share nothing, so every thread must get exactly the frames one
// thread alone gets.  Threads also re-initialise their objects between
// frames, so run lists are freed and built while other threads scale.
#include <gtest/gtest.h>
#include <pixmoor/pixmoor.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace {

constexpr uint32_t Code(const char (&s)[5]) {
    return static_cast<uint32_t>(s[0]) | static_cast<uint32_t>(s[1]) << 8 | static_cast<uint32_t>(s[2]) << 16 |
           static_cast<uint32_t>(s[3]) << 24;
}

struct Job {
    uint32_t fourcc;
    uint32_t bits;
    AbsSIZE in, out;
    XFormType type;
};

// Crop and pad both ways, the generic scaler at three depths, and the fixed
// 24-bit routines.
const Job kJobs[] = {
    {Code("I420"), 12, AbsSIZE(176, 144), AbsSIZE(352, 288), XFormCropPad},
    {Code("YV12"), 12, AbsSIZE(178, 150), AbsSIZE(160, 120), XFormCropPad},
    {0, 32, AbsSIZE(100, 60), AbsSIZE(37, 91), XFormScale},
    {0, 16, AbsSIZE(63, 45), AbsSIZE(130, 22), XFormScale},
    {Code("RG24"), 24, AbsSIZE(176, 144), AbsSIZE(352, 288), XFormScale},
    {Code("RG24"), 24, AbsSIZE(352, 288), AbsSIZE(176, 144), XFormScale},
    {Code("RG24"), 24, AbsSIZE(160, 120), AbsSIZE(176, 144), XFormScale},
    {Code("RG24"), 24, AbsSIZE(81, 33), AbsSIZE(52, 70), XFormScale},
};
constexpr int kJobCount = sizeof(kJobs) / sizeof(kJobs[0]);

// Room for a frame on either side: a crop and pad whose height changes reads
// and writes past the frame sizes, by less than one frame.
size_t Room(const Job& job) {
    const size_t in = static_cast<size_t>(job.in.cx) * job.in.cy * 4;
    const size_t out = static_cast<size_t>(job.out.cx) * job.out.cy * 4;
    return 2 * (in + out) + 64;
}

std::vector<uint8_t> Source(const Job& job, int seed) {
    std::vector<uint8_t> bytes(Room(job));
    for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<uint8_t>(i * 29 + seed * 7 + (i >> 9));
    return bytes;
}

std::unique_ptr<CSizeXForm> Ready(const Job& job) {
    std::unique_ptr<CSizeXForm> x(CSizeXForm::CreateInstance(job.fourcc, job.bits));
    if (x && !x->Init(job.in, job.out, job.type, InterpDefault)) x.reset();
    return x;
}

std::vector<uint8_t> Convert(CSizeXForm& x, const Job& job, const std::vector<uint8_t>& source) {
    std::vector<uint8_t> frame(Room(job), 0x5A);
    x.XForm(source.data(), frame.data());
    return frame;
}

TEST(SizeXFormConcurrency, ThreadsWithTheirOwnObjectsGetTheFramesOfOneThread) {
    std::vector<std::vector<uint8_t>> sources, expected;
    for (int j = 0; j < kJobCount; ++j) {
        auto x = Ready(kJobs[j]);
        ASSERT_TRUE(x) << "job " << j;
        sources.push_back(Source(kJobs[j], j));
        expected.push_back(Convert(*x, kJobs[j], sources[j]));
    }

    constexpr int kThreads = 8;
    constexpr int kRounds = 6;
    std::atomic<int> wrong{0}, failedInit{0};
    auto worker = [&](int t) {
        for (int round = 0; round < kRounds; ++round)
            for (int k = 0; k < kJobCount; ++k) {
                const int j = (k + t) % kJobCount;
                auto x = Ready(kJobs[j]);
                if (!x) {
                    ++failedInit;
                    continue;
                }
                if (Convert(*x, kJobs[j], sources[j]) != expected[j]) ++wrong;
                // Another size and back: the lists of the generic path are
                // rebuilt on this thread while others use theirs.  (After a
                // job with an odd size both Inits fail in the base, but the
                // scaler has rebuilt its lists for the job's sizes again.)
                x->Init(AbsSIZE(64, 48), AbsSIZE(96, 30), kJobs[j].type, InterpDefault);
                x->Init(kJobs[j].in, kJobs[j].out, kJobs[j].type, InterpDefault);
                if (Convert(*x, kJobs[j], sources[j]) != expected[j]) ++wrong;
            }
    };
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) threads.emplace_back(worker, t);
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(failedInit.load(), 0);
    EXPECT_EQ(wrong.load(), 0);
}

// One object per thread, many frames: XForm keeps no state between frames.
TEST(SizeXFormConcurrency, RepeatedFramesOnLongLivedObjects) {
    constexpr int kThreads = 6;
    constexpr int kFrames = 20;
    std::atomic<int> wrong{0};
    auto worker = [&](int t) {
        const Job& job = kJobs[(t * 3) % kJobCount];
        auto x = Ready(job);
        if (!x) {
            ++wrong;
            return;
        }
        const std::vector<uint8_t> source = Source(job, t);
        const std::vector<uint8_t> first = Convert(*x, job, source);
        for (int f = 0; f < kFrames; ++f)
            if (Convert(*x, job, source) != first) ++wrong;
    };
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) threads.emplace_back(worker, t);
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(wrong.load(), 0);
}

}  // namespace
