#include "colour/byte_span.h"

#include <algorithm>

namespace pixmoor {

ByteSpan ByteSpan::OfRows(const void* start, int64_t step, int32_t rows, int32_t lineBytes) {
    const auto first = reinterpret_cast<uintptr_t>(start);
    const uintptr_t last = first + static_cast<uintptr_t>(step * (rows > 0 ? rows - 1 : 0));
    const uintptr_t end = std::max(first, last) + static_cast<uintptr_t>(lineBytes > 0 ? lineBytes : 0);
    return ByteSpan{std::min(first, last), end};
}

ByteSpan ByteSpan::Join(const ByteSpan& other) const {
    return ByteSpan{std::min(first, other.first), std::max(end, other.end)};
}

}  // namespace pixmoor
