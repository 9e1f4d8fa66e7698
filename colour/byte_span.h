// The bytes a routine reads or writes, as one span of addresses, so that a
// fast path that interleaves reading and writing can tell whether the
// caller's source and destination share bytes.
#ifndef PIXMOOR_COLOUR_BYTE_SPAN_H
#define PIXMOOR_COLOUR_BYTE_SPAN_H

#include <cstdint>

namespace pixmoor {

// The bytes from `first` up to (not including) `end`, as addresses.
struct ByteSpan {
    uintptr_t first;
    uintptr_t end;

    // The span of `rows` rows of `lineBytes` bytes, the first at `start` and
    // each next one `step` bytes after the one before (the step may be
    // negative or 0).
    static ByteSpan OfRows(const void* start, int64_t step, int32_t rows, int32_t lineBytes);

    // The span of `bytes` bytes from `start`.
    static ByteSpan Of(const void* start, uint64_t bytes) {
        const auto first = reinterpret_cast<uintptr_t>(start);
        return ByteSpan{first, first + static_cast<uintptr_t>(bytes)};
    }
    // The smallest span that holds both.
    ByteSpan Join(const ByteSpan& other) const;

    bool Overlaps(const ByteSpan& other) const { return first < other.end && other.first < end; }
};

}  // namespace pixmoor

#endif
