// The per-frame loop shared by convert and resize: read a frame, transform
// it, write it, until the input ends.
#ifndef PIXMOOR_TOOL_FRAME_LOOP_H
#define PIXMOOR_TOOL_FRAME_LOOP_H

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "core/frame_sink.h"
#include "core/frame_source.h"
#include "core/progress.h"

namespace pixmoor_tool {

// Room left past the end of every frame buffer, against library routines
// that read or write a little beyond the frame they are given.
constexpr size_t kBufferSlack = 64;

// Turns one input frame (file layout, in a buffer of the capacity asked
// for) into one output frame and returns where it is.
class FrameTransform {
public:
    virtual ~FrameTransform() = default;
    // Bytes the input buffer must hold: at least a file frame, more where
    // the library reads beyond the frame it is given.
    virtual size_t inputCapacity() const = 0;
    virtual const uint8_t* Apply(uint8_t* input) = 0;
};

// A checked plan and the transform made for it, ready for frames.
template <typename Plan, typename Transform = FrameTransform>
struct PreparedJob {
    Plan plan;
    std::unique_ptr<Transform> transform;
};

struct LoopResult {
    int64_t frames = 0;
    bool truncated = false;
    int64_t truncatedBytes = 0;  // bytes of the frame that was cut short
};

// Runs until the source ends.  Complete frames are written as they come;
// a truncated last frame is left out and told in the result.
LoopResult RunFrameLoop(FrameSource& source, FrameTransform& transform, FrameSink& sink, ProgressMeter& meter);

// After the sink is committed: throws the truncation error (exit status 3)
// that names the frame, its byte count and the frames kept, if there was one.
void ReportTruncation(const LoopResult& result, int64_t frameBytes, const std::string& inputDescription);

}  // namespace pixmoor_tool

#endif
