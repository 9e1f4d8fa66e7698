// pixmoor convert: frames through one CColorXForm.
#include "core/colour_transform.h"
#include "core/commands.h"
#include "core/stream_job.h"
#include "core/tier_reason.h"

namespace pixmoor_tool {

int RunConvert(const ConvertOptions& options) {
    // Options that need no input come first, so that a typing mistake is
    // reported as such even when the input is missing too.
    if (!options.from.empty()) ParseFormatOption(options.from, "--from");
    ParseFormatOption(options.to, "--to");
    if (!options.size.empty()) ParseFrameSize(options.size);

    OpenedInput input = OpenInput(options.input);
    const FrameSize size = ResolveInputSize(input, options.size);
    const ColourJob job = PrepareColourJob(options, size, input.y4m.has_value());
    const ConvertPlan& plan = job.plan;
    input.UseRawFrames(plan.inputFrameBytes);

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
    return RunStream(input, *job.transform, out, "converted",
                     PairText(plan) + " " + FrameSizeText(size) + ", tier " + TierName(PrimGetTier()), options.quiet);
}

}  // namespace pixmoor_tool
