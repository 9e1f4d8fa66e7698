// What convert and resize share: opening the input (raw or Y4M), choosing
// the kind of output from its name, and running the frame loop with the
// progress line, the summary and the truncation report.
#ifndef PIXMOOR_TOOL_STREAM_JOB_H
#define PIXMOOR_TOOL_STREAM_JOB_H

#include <memory>
#include <optional>
#include <string>

#include "core/frame_codec.h"
#include "core/frame_loop.h"
#include "core/input_stream.h"
#include "core/text_parse.h"
#include "core/y4m_header.h"

namespace pixmoor_tool {

// An opened input.  A Y4M input has its header read and its source made at
// once; a raw input gets its source from UseRawFrames once the frame size
// is known.
struct OpenedInput {
    std::unique_ptr<InputStream> stream;
    std::unique_ptr<FrameSource> source;
    std::optional<Y4mHeader> y4m;

    void UseRawFrames(int64_t frameBytes);
};

// Y4M when the name ends in ".y4m" (then the header must be good) or, for
// standard input, when the stream starts with "YUV4MPEG2".
OpenedInput OpenInput(const std::string& path);

// The frame size: the Y4M header's, which a --size given beside it must
// match, or the --size text, which is then required.
FrameSize ResolveInputSize(const OpenedInput& input, const std::string& sizeText);

enum class OutputKind { Raw, Y4m, Png };
// .y4m (or "-" with --y4m) is Y4M, .png is PNG, anything else raw.
OutputKind OutputKindFor(const std::string& path, bool y4mStdout);

// How the output frames look.
struct OutputPlan {
    std::string path;
    OutputKind kind = OutputKind::Raw;
    const FormatInfo* format = nullptr;
    FrameSize size;
    int64_t frameBytes = 0;   // bytes of one output frame in the file
    int32_t pitch = 0;        // RGB row distance for PNG decoding (0: tight)
    Rgb555Layout layout = Rgb555Layout::Standard;
    bool bottomUp = false;    // rows stored bottom first: PNG turns them upright
    Y4mHeader y4m;            // used for Y4M output
};

// The Y4M header of the output: the input's tags if it was Y4M, else the
// --rate text (or 25:1), with the output's size.
Y4mHeader OutputY4mHeader(const OpenedInput& input, const std::string& rateText, FrameSize size);

// Checks the output kind against the output format: PNG needs RGB frames
// (and a good file name pattern), Y4M needs I420 frames.  Throws a usage
// error.
void CheckOutputKind(const OutputPlan& plan);

// Opens the output, runs every frame, commits the output, prints the
// summary (unless quiet) and reports a truncated last frame.  Returns the
// exit status.
int RunStream(OpenedInput& input, FrameTransform& transform, const OutputPlan& plan, const std::string& verb,
              const std::string& what, bool quiet);

}  // namespace pixmoor_tool

#endif
