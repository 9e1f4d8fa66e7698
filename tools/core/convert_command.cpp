// pixmoor convert: frames through one CColorXForm.
#include <memory>

#include <pixmoor/colour.h>

#include "core/colour_transform.h"
#include "core/commands.h"
#include "core/convert_plan.h"
#include "core/errors.h"
#include "core/stream_job.h"

namespace pixmoor_tool {
int RunConvert(const ConvertOptions& options) {
    // Options that need no input come first, so that a typing mistake is
    // reported as such even when the input is missing too.
    if (!options.from.empty()) ParseFormatOption(options.from, "--from");
    ParseFormatOption(options.to, "--to");
    if (!options.size.empty()) ParseFrameSize(options.size);

    OpenedInput input = OpenInput(options.input);
    const FrameSize size = ResolveInputSize(input, options.size);

    std::unique_ptr<CColorXForm> xform;
    const ConvertPlan plan = PlanConversion(options, size, input.y4m.has_value(), [&](uint32_t src, uint32_t dst) {
        xform.reset(CColorXForm::CreateInstance(src, dst));
        return xform != nullptr;
    });

    OutputPlan out;
    out.path = options.output;
    out.kind = OutputKindFor(options.output, options.y4mStdout);
    out.format = plan.dst.info;
    out.size = size;
    out.frameBytes = plan.outputFrameBytes;
    out.pitch = int32_t(plan.destPitch);
    out.layout = plan.layout;
    out.bottomUp = plan.destBottomUp;
    out.y4m = OutputY4mHeader(input, options.rate, size);
    CheckOutputKind(out);

    if (!xform->Init(AbsSIZE(size.width, size.height), CColorXForm::EOrientation(plan.srcOrientation),
                     CColorXForm::EOrientation(plan.destOrientation)))
        Fail("the library could not set up " + PairText(plan) + " at " + FrameSizeText(size));
    input.UseRawFrames(plan.inputFrameBytes);

    ColourTransform transform(std::move(xform), plan);
    return RunStream(input, transform, out, "converted", PairText(plan) + " " + FrameSizeText(size), options.quiet);
}

}  // namespace pixmoor_tool
