// Strips of a frame for the roads that go through an internal buffer ("RG24"
// to "I420" through flipBuffer, the planar roads through rgbBuffer).  4:2:0
// pictures in either direction depend only on each pair of rows, so such a
// road can take its two passes one strip of rows at a time, calling the
// same primitive entries on each strip: the bytes are those of two passes
// over the whole frame, while a strip of the buffer is still in the cache
// when the second pass reads it.
#ifndef PIXMOOR_COLOUR_STRIPS_H
#define PIXMOOR_COLOUR_STRIPS_H

#include <cstdint>

namespace pixmoor {

// Rows of a strip whose widest picture has rows of `lineBytes` bytes: an
// even count (strips must not split a pair of rows), at least 2, chosen so
// that a strip of the buffer stays within the first levels of the cache.
int32_t StripRows(int32_t lineBytes);

// The bytes from `first` up to (not including) `end`, as addresses.
struct ByteSpan {
    uintptr_t first;
    uintptr_t end;

    // The span of `rows` rows of `lineBytes` bytes, the first at `start` and
    // each next one `step` bytes after the one before (which may be
    // negative or 0).
    static ByteSpan OfRows(const void* start, int64_t step, int32_t rows, int32_t lineBytes);

    // The smallest span that holds both.
    ByteSpan Join(const ByteSpan& other) const;

    bool Overlaps(const ByteSpan& other) const { return first < other.end && other.first < end; }
};

}  // namespace pixmoor

#endif
