// Everything convert decides before it asks the library for a transform:
// formats, size checks, orientations, pitch and the shape of the output.
#ifndef PIXMOOR_TOOL_CONVERT_PLAN_H
#define PIXMOOR_TOOL_CONVERT_PLAN_H

#include <cstdint>
#include <functional>

#include "core/command_line.h"
#include "core/formats.h"
#include "core/frame_codec.h"
#include "core/text_parse.h"

namespace pixmoor_tool {

struct ConvertPlan {
    ParsedFormat src;
    ParsedFormat dst;
    FrameSize size;
    int32_t srcOrientation = 1;
    int32_t destOrientation = 1;
    uint32_t destPitch = 0;       // passed to the library; never 0 for RGB
    int64_t inputFrameBytes = 0;
    int64_t outputFrameBytes = 0;  // destPitch * height for RGB
    Rgb555Layout layout = Rgb555Layout::Standard;
    bool destBottomUp = false;     // the destination's rows run bottom first
};

// Parses a format option; a usage error names the text and the spellings.
ParsedFormat ParseFormatOption(const std::string& text, const char* option, CodeSet set = CodeSet::Colour);

// The source format: --from, or I420 for a Y4M input (where --from must
// name I420 if it is given).
ParsedFormat SourceFormat(const std::string& fromText, bool y4mInput);

// Asks whether the library has a road for the two codes as typed.
using PairCheck = std::function<bool(uint32_t src, uint32_t dst)>;

// Checks formats, pair, size and options, in that order, and fills the
// plan.  `y4mInput` tells that the frames come from a Y4M stream.
ConvertPlan PlanConversion(const ConvertOptions& options, FrameSize size, bool y4mInput, const PairCheck& pairExists);

// "I420 -> RG24"
std::string PairText(const ConvertPlan& plan);

}  // namespace pixmoor_tool

#endif
