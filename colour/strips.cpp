#include "colour/strips.h"

#include <algorithm>

namespace pixmoor {
namespace {

// About this many bytes of the buffer a strip: the buffer's strip, the
// source rows and the destination rows then stay in the second-level cache
// together, and the strip is written and read back from there.
constexpr int64_t kStripBufferBytes = 48 * 1024;
constexpr int32_t kMinRows = 2;
constexpr int32_t kMaxRows = 64;

}  // namespace

int32_t StripRows(int32_t lineBytes) {
    const int64_t rows = lineBytes > 0 ? kStripBufferBytes / lineBytes : kMaxRows;
    return static_cast<int32_t>(std::clamp<int64_t>(rows, kMinRows, kMaxRows)) & ~1;
}

ByteSpan ByteSpan::OfRows(const void* start, int64_t step, int32_t rows, int32_t lineBytes) {
    const auto first = reinterpret_cast<uintptr_t>(start);
    const uintptr_t last = first + static_cast<uintptr_t>(step * (rows > 0 ? rows - 1 : 0));
    const uintptr_t low = std::min(first, last);
    const uintptr_t high = std::max(first, last);
    return ByteSpan{low, high + static_cast<uintptr_t>(lineBytes > 0 ? lineBytes : 0)};
}

ByteSpan ByteSpan::Join(const ByteSpan& other) const {
    return ByteSpan{std::min(first, other.first), std::max(end, other.end)};
}

}  // namespace pixmoor
