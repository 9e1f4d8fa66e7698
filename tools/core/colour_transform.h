// A CColorXForm as a frame transform of the tool's frame loop.
#ifndef PIXMOOR_TOOL_COLOUR_TRANSFORM_H
#define PIXMOOR_TOOL_COLOUR_TRANSFORM_H

#include <memory>
#include <vector>

#include <pixmoor/colour.h>

#include "core/convert_plan.h"
#include "core/frame_loop.h"

namespace pixmoor_tool {

class ColourTransform : public FrameTransform {
public:
    // `xform` has had a successful Init for the plan's size.
    ColourTransform(std::unique_ptr<CColorXForm> xform, const ConvertPlan& plan);

    size_t inputCapacity() const override { return inputBytes_ + kBufferSlack; }
    const uint8_t* Apply(uint8_t* input) override;
    // True for the pair that the library accepts but has no routine for.
    bool copiesOnly() const { return copyOnly_; }

private:
    std::unique_ptr<CColorXForm> xform_;
    uint32_t pitch_;
    size_t inputBytes_;
    std::vector<uint8_t> output_;
    bool copyOnly_;
};

using ColourJob = PreparedJob<ConvertPlan, ColourTransform>;

// Plans the conversion (PlanConversion, with the library's factory as the
// judge of pairs), makes the transform and initialises it.  Throws a
// ToolError on any mistake.
ColourJob PrepareColourJob(const ConvertOptions& options, FrameSize size, bool y4mInput);

}  // namespace pixmoor_tool

#endif
