// Where converted frames go: a raw file, a YUV4MPEG2 stream, or one PNG
// file a frame.
#ifndef PIXMOOR_TOOL_FRAME_SINK_H
#define PIXMOOR_TOOL_FRAME_SINK_H

#include <cstdint>
#include <string>

#include "core/frame_codec.h"
#include "core/output_file.h"
#include "core/y4m_header.h"

namespace pixmoor_tool {

class FrameSink {
public:
    virtual ~FrameSink() = default;
    virtual void Write(const uint8_t* frame) = 0;
    // Makes what was written visible under its real name.
    virtual void Commit() = 0;
};

class RawSink : public FrameSink {
public:
    RawSink(OutputFile& out, int64_t frameBytes) : out_(out), frameBytes_(frameBytes) {}
    void Write(const uint8_t* frame) override { out_.Write(frame, size_t(frameBytes_)); }
    void Commit() override { out_.Commit(); }

private:
    OutputFile& out_;
    int64_t frameBytes_;
};

// Writes the stream header at once, then "FRAME" and the bytes per frame.
class Y4mSink : public FrameSink {
public:
    Y4mSink(OutputFile& out, const Y4mHeader& header);
    void Write(const uint8_t* frame) override;
    void Commit() override { out_.Commit(); }

private:
    OutputFile& out_;
    int64_t frameBytes_;
};

// Decodes each frame to RGB and writes it as its own PNG file, named from
// a pattern (see PngFrameName).  Each file is complete once it appears.
// Frames stored bottom row first are turned upright.
class PngSequenceSink : public FrameSink {
public:
    PngSequenceSink(std::string pattern, const FormatInfo& format, int32_t width, int32_t height, int32_t pitch,
                    Rgb555Layout layout, bool bottomUp = false);
    void Write(const uint8_t* frame) override;
    void Commit() override {}
    int64_t filesWritten() const { return index_; }

private:
    std::string pattern_;
    const FormatInfo& format_;
    int32_t width_, height_, pitch_;
    Rgb555Layout layout_;
    bool bottomUp_;
    int64_t index_ = 0;
};

// Checks a PNG output name and returns the pattern for numbered files: a
// name with one "%d" or "%0Nd" (N from 1 to 9) is used as it is; any other
// name gets "-%06d" before its ".png" ending.  Throws a usage error on a
// name with another '%' conversion.
std::string PngPattern(const std::string& name);
// The file name of frame `number` (counted from 1) under `pattern`.
std::string PngFrameName(const std::string& pattern, int64_t number);

bool EndsWith(const std::string& text, const std::string& ending);

}  // namespace pixmoor_tool

#endif
