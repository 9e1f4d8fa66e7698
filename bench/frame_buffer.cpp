#include "frame_buffer.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace bench {
namespace {

// Room behind every block: a chroma border of a padded 1920 by 1080 frame
// overshoots by far less, and SIMD tails by a few bytes.
constexpr size_t kMargin = 1u << 20;

constexpr size_t kLargestFrame = size_t{1920} * 1080 * 16;

}  // namespace

void FrameBuffer::Free::operator()(uint8_t* p) const { std::free(p); }

FrameBuffer::FrameBuffer(size_t bytes) : bytes_(bytes) {
    size_t total = (bytes + kMargin + 63) & ~size_t{63};
    block_.reset(static_cast<uint8_t*>(std::aligned_alloc(64, total)));
    if (!block_) throw std::bad_alloc();
    std::memset(block_.get(), kUnwritten, total);
}

bool FrameBuffer::Written(size_t bytes) const {
    const uint8_t* p = block_.get();
    for (size_t i = 0; i < bytes; ++i)
        if (p[i] != kUnwritten) return true;
    return false;
}

std::unique_ptr<FrameBuffer> MakeDestination(size_t bytes) {
    return std::make_unique<FrameBuffer>(bytes);
}

const uint8_t* SharedSource() {
    static const FrameBuffer* source = [] {
        auto* buffer = new FrameBuffer(kLargestFrame);
        // xorshift64: the same frame on every run.
        uint64_t state = 0x9E3779B97F4A7C15ull;
        uint8_t* p = buffer->data();
        size_t total = kLargestFrame + kMargin;
        for (size_t i = 0; i + 8 <= total; i += 8) {
            state ^= state << 13;
            state ^= state >> 7;
            state ^= state << 17;
            std::memcpy(p + i, &state, 8);
        }
        return buffer;
    }();
    return source->data();
}

size_t SharedSourceBytes() { return kLargestFrame; }

std::unique_ptr<FrameBuffer> CopyOfSource(size_t bytes) {
    auto copy = std::make_unique<FrameBuffer>(bytes);
    std::memcpy(copy->data(), SharedSource(), bytes);
    return copy;
}

}  // namespace bench
