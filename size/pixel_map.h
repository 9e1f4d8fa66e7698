// A line of the generic RGB scaler as a map: for each output pixel, the
// offset of the source pixel it shows from the start of the source line.
// The map is made from the pixel run list by the same walk that scales a
// line, so a line copied through it has exactly the bytes of the walk; it
// only spares the per-run dispatch and the short copies of each run.
#ifndef PIXMOOR_SIZE_PIXEL_MAP_H
#define PIXMOOR_SIZE_PIXEL_MAP_H

#include <cstdint>

#include "size/run_list.h"

class PixelMap {
public:
    PixelMap() = default;
    ~PixelMap();
    PixelMap(const PixelMap&) = delete;
    PixelMap& operator=(const PixelMap&) = delete;

    // Room for `pixels` offsets; false (and no room) if it can't be had.
    bool Reserve(int32_t pixels);

    // Walks `runs` for pixels of `bytesPerPixel` bytes in source lines of
    // `srcLineSize` bytes.  False if the map can't stand for the walk here
    // (a depth it has no copy for, more pixels than reserved, offsets beyond
    // 32 bits): the caller walks the runs then.
    bool Build(const ScaleRun* runs, int32_t bytesPerPixel, int32_t srcLineSize);

    // One output line from the source line at `src`; returns the output's end.
    uint8_t* CopyLine(const uint8_t* src, uint8_t* dst) const;

    // Bytes of source the runs pass over in a line (copies and drops).
    int64_t SourceBytes() const { return sourceBytes_; }

private:
    int32_t* offsets_ = nullptr;
    int32_t capacity_ = 0;
    int32_t pixels_ = 0;
    int32_t bytesPerPixel_ = 0;
    // Leading pixels that may be moved in 4-byte units: a byte beyond the
    // source pixel still lies in its line, and the byte beyond the output
    // pixel is the next pixel's.
    int32_t wholeWords_ = 0;
    int64_t sourceBytes_ = 0;
    int32_t srcLineSize_ = 0;
};

#endif
