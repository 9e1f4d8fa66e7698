// Sources of whole frames: raw files of back-to-back frames, and YUV4MPEG2
// streams with a header and a marker line before each frame.
#ifndef PIXMOOR_TOOL_FRAME_SOURCE_H
#define PIXMOOR_TOOL_FRAME_SOURCE_H

#include <cstdint>
#include <string>

#include "core/input_stream.h"
#include "core/y4m_header.h"

namespace pixmoor_tool {

struct ReadResult {
    enum Outcome { Frame, End, Truncated } outcome;
    int64_t bytes;  // bytes of the frame that were there (all of them for Frame)
};

class FrameSource {
public:
    virtual ~FrameSource() = default;
    // Reads the next frame into `frame`, which holds frameBytes() bytes.
    virtual ReadResult Read(uint8_t* frame) = 0;
    int64_t frameBytes() const { return frameBytes_; }

protected:
    explicit FrameSource(int64_t frameBytes) : frameBytes_(frameBytes) {}

private:
    int64_t frameBytes_;
};

class RawFrameSource : public FrameSource {
public:
    RawFrameSource(InputStream& input, int64_t frameBytes) : FrameSource(frameBytes), input_(input) {}
    ReadResult Read(uint8_t* frame) override;

private:
    InputStream& input_;
};

// Reads the header at construction (throws a ToolError when it is malformed
// or not 8-bit 4:2:0); each frame must start with "FRAME" and optional tags.
class Y4mFrameSource : public FrameSource {
public:
    explicit Y4mFrameSource(InputStream& input);
    ReadResult Read(uint8_t* frame) override;
    const Y4mHeader& header() const { return header_; }

private:
    Y4mFrameSource(InputStream& input, const Y4mHeader& header);
    static Y4mHeader ReadHeader(InputStream& input);

    InputStream& input_;
    Y4mHeader header_;
    int64_t framesRead_ = 0;
};

}  // namespace pixmoor_tool

#endif
