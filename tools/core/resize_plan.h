// Everything resize decides before it asks the library for a transform.
#ifndef PIXMOOR_TOOL_RESIZE_PLAN_H
#define PIXMOOR_TOOL_RESIZE_PLAN_H

#include <cstdint>
#include <functional>

#include "core/command_line.h"
#include "core/formats.h"
#include "core/text_parse.h"

namespace pixmoor_tool {

struct ResizePlan {
    const FormatInfo* format = nullptr;  // layout of the frames in the files
    uint32_t factoryCode = 0;            // code and depth handed to the factory
    uint32_t factoryBits = 0;
    bool cropPad = false;                // planar crop and pad, else RGB scaling
    FrameSize in, out;
    int64_t inputFrameBytes = 0;         // file frames, tight rows
    int64_t outputFrameBytes = 0;
};

// Asks whether the size factory makes a transform for a code and depth.
using SizeFactoryCheck = std::function<bool(uint32_t code, uint32_t bits)>;

// Checks format, factory, sizes, in that order, and fills the plan.  RGB
// codes that the size factory doesn't name itself ("RG32", "RG55", "RG56")
// go to it as plain RGB (code 0) with their depth; "0rgb" needs --bits.
ResizePlan PlanResize(const ResizeOptions& options, FrameSize in, bool y4mInput, const SizeFactoryCheck& exists);

// "I420 352x288 -> 176x144 (crop and pad)"
std::string ResizeText(const ResizePlan& plan);

}  // namespace pixmoor_tool

#endif
