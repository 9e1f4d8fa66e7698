// pixmoor resize: frames through one CSizeXForm.
#include <memory>

#include <pixmoor/size.h>

#include "core/commands.h"
#include "core/convert_plan.h"
#include "core/errors.h"
#include "core/resize_plan.h"
#include "core/size_transforms.h"
#include "core/stream_job.h"

namespace pixmoor_tool {

int RunResize(const ResizeOptions& options) {
    if (!options.format.empty() && options.format != "0rgb") ParseFormatOption(options.format, "--format", CodeSet::Size);
    ParseFrameSize(options.outSize);
    if (!options.size.empty()) ParseFrameSize(options.size);

    OpenedInput input = OpenInput(options.input);
    const FrameSize in = ResolveInputSize(input, options.size);

    std::unique_ptr<CSizeXForm> xform;
    const ResizePlan plan = PlanResize(options, in, input.y4m.has_value(), [&](uint32_t code, uint32_t bits) {
        xform.reset(CSizeXForm::CreateInstance(code, bits));
        return xform != nullptr;
    });

    OutputPlan out;
    out.path = options.output;
    out.kind = OutputKindFor(options.output, options.y4mStdout);
    out.format = plan.format;
    out.size = plan.out;
    out.frameBytes = plan.outputFrameBytes;
    out.y4m = OutputY4mHeader(input, options.rate, plan.out);
    CheckOutputKind(out);

    if (!xform->Init(AbsSIZE(plan.in.width, plan.in.height), AbsSIZE(plan.out.width, plan.out.height),
                     plan.cropPad ? XFormCropPad : XFormScale, InterpDefault))
        Fail("the library could not set up " + ResizeText(plan));
    input.UseRawFrames(plan.inputFrameBytes);

    const std::unique_ptr<FrameTransform> transform = MakeSizeTransform(std::move(xform), plan);
    return RunStream(input, *transform, out, "resized", ResizeText(plan), options.quiet);
}

}  // namespace pixmoor_tool
