// Frame memory for the benchmarks: aligned blocks with room to spare, the
// one shared source of random bytes, and the check that a destination was
// written.
#ifndef PIXMOOR_BENCH_FRAME_BUFFER_H
#define PIXMOOR_BENCH_FRAME_BUFFER_H

#include <cstddef>
#include <cstdint>
#include <memory>

namespace bench {

// Byte value a destination holds before its first frame.
constexpr uint8_t kUnwritten = 0xA5;

// A 64-byte aligned block of `bytes` plus a margin behind it: some routines
// read or write a little past the picture they are given (SIMD tails, the
// chroma borders of crop and pad), and the margin takes that.
class FrameBuffer {
public:
    explicit FrameBuffer(size_t bytes);
    uint8_t* data() { return block_.get(); }
    const uint8_t* data() const { return block_.get(); }
    size_t size() const { return bytes_; }
    // True if any of the first `bytes` bytes differs from kUnwritten.
    bool Written(size_t bytes) const;

private:
    struct Free {
        void operator()(uint8_t* p) const;
    };
    size_t bytes_;
    std::unique_ptr<uint8_t, Free> block_;
};

// A destination of `bytes` bytes filled with kUnwritten.
std::unique_ptr<FrameBuffer> MakeDestination(size_t bytes);

// The source of every job: seeded random bytes, large enough for the
// largest frame of the run (a 16-byte pixel picture at 1920 by 1080) and
// shared read-only by all jobs.
const uint8_t* SharedSource();
size_t SharedSourceBytes();

// A private copy of the shared source, for routines that work in place.
std::unique_ptr<FrameBuffer> CopyOfSource(size_t bytes);

}  // namespace bench

#endif
