// CSizeXForm transforms as frame transforms of the tool's frame loop.
#ifndef PIXMOOR_TOOL_SIZE_TRANSFORMS_H
#define PIXMOOR_TOOL_SIZE_TRANSFORMS_H

#include <memory>
#include <vector>

#include <pixmoor/size.h>

#include "core/frame_loop.h"
#include "core/resize_plan.h"

namespace pixmoor_tool {

// Crop and pad of a planar frame.  When the height changes the library
// writes (and, cropping, reads) chroma borders counted in luma bytes, past
// the frame's end; both buffers have room for twice a frame.
class CropPadTransform : public FrameTransform {
public:
    CropPadTransform(std::unique_ptr<CSizeXForm> xform, const ResizePlan& plan);
    size_t inputCapacity() const override;
    const uint8_t* Apply(uint8_t* input) override;

private:
    std::unique_ptr<CSizeXForm> xform_;
    size_t inputBytes_;
    std::vector<uint8_t> output_;
};

// Nearest-neighbour scaling of RGB frames.  Files hold tight rows; the
// library works on rows padded to 4 bytes, so frames are repacked on the
// way in and out where the two differ.
class ScaleTransform : public FrameTransform {
public:
    ScaleTransform(std::unique_ptr<CSizeXForm> xform, const ResizePlan& plan);
    size_t inputCapacity() const override { return libraryIn_.size(); }
    const uint8_t* Apply(uint8_t* input) override;

private:
    std::unique_ptr<CSizeXForm> xform_;
    int32_t bits_;
    FrameSize in_, out_;
    std::vector<uint8_t> libraryIn_, libraryOut_, fileOut_;
};

using SizeJob = PreparedJob<ResizePlan>;

// Plans the resize (PlanResize, with the library's factory as the judge of
// formats), makes the transform and initialises it.  Throws a ToolError on
// any mistake.
SizeJob PrepareSizeJob(const ResizeOptions& options, FrameSize in, bool y4mInput);

}  // namespace pixmoor_tool

#endif
