// pixmoor resize: frames through one CSizeXForm.
#include "core/commands.h"
#include "core/convert_plan.h"
#include "core/size_transforms.h"
#include "core/stream_job.h"

namespace pixmoor_tool {

int RunResize(const ResizeOptions& options) {
    // Options that need no input come first (see RunConvert).
    if (!options.format.empty() && options.format != "0rgb")
        ParseFormatOption(options.format, "--format", CodeSet::Size);
    ParseFrameSize(options.outSize);
    if (!options.size.empty()) ParseFrameSize(options.size);

    OpenedInput input = OpenInput(options.input);
    const SizeJob job = PrepareSizeJob(options, ResolveInputSize(input, options.size), input.y4m.has_value());
    input.UseRawFrames(job.plan.inputFrameBytes);

    OutputPlan out;
    out.path = options.output;
    out.kind = OutputKindFor(options.output, options.y4mStdout);
    out.format = job.plan.format;
    out.size = job.plan.out;
    out.frameBytes = job.plan.outputFrameBytes;
    out.y4m = OutputY4mHeader(input, options.rate, job.plan.out);
    CheckOutputKind(out);
    return RunStream(input, *job.transform, out, "resized", ResizeText(job.plan), options.quiet);
}

}  // namespace pixmoor_tool
