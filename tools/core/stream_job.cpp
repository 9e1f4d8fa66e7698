#include "core/stream_job.h"

#include <pixmoor/geometry.h>

#include "core/errors.h"
#include "core/formats.h"
#include "core/frame_sink.h"
#include "core/progress.h"

namespace pixmoor_tool {

void OpenedInput::UseRawFrames(int64_t frameBytes) {
    if (!y4m) source = std::make_unique<RawFrameSource>(*stream, frameBytes);
}

OpenedInput OpenInput(const std::string& path) {
    OpenedInput input;
    input.stream = std::make_unique<InputStream>(path);
    const bool isY4m = EndsWith(path, ".y4m") || (path == "-" && input.stream->StartsWith(kY4mMagic));
    if (isY4m) {
        auto source = std::make_unique<Y4mFrameSource>(*input.stream);
        input.y4m = source->header();
        input.source = std::move(source);
    }
    return input;
}

FrameSize ResolveInputSize(const OpenedInput& input, const std::string& sizeText) {
    if (input.y4m) {
        if (!sizeText.empty() && ParseFrameSize(sizeText) != input.y4m->size)
            FailUsage("--size " + sizeText + " does not match the Y4M header of " + input.stream->description() +
                      ", which says " + FrameSizeText(input.y4m->size));
        return input.y4m->size;
    }
    if (sizeText.empty()) FailUsage("--size is required for raw input (WIDTHxHEIGHT, for example 352x288)");
    return ParseFrameSize(sizeText);
}

OutputKind OutputKindFor(const std::string& path, bool y4mStdout) {
    if (EndsWith(path, ".y4m") || (path == "-" && y4mStdout)) return OutputKind::Y4m;
    if (EndsWith(path, ".png")) return OutputKind::Png;
    return OutputKind::Raw;
}

Y4mHeader OutputY4mHeader(const OpenedInput& input, const std::string& rateText, FrameSize size) {
    Y4mHeader header = input.y4m ? *input.y4m : Y4mHeader();
    if (!input.y4m && !rateText.empty()) header.rate = ParseFrameRate(rateText);
    header.size = size;
    return header;
}

void CheckOutputKind(const OutputPlan& plan) {
    if (plan.kind == OutputKind::Png && plan.format->kind != FormatKind::Rgb)
        FailUsage(std::string("PNG output needs RGB frames; ") + plan.format->name +
                  " is not RGB (write raw or .y4m instead)");
    if (plan.kind == OutputKind::Png) PngPattern(plan.path);  // throws on a bad number field
    if (plan.kind == OutputKind::Y4m && plan.format->code != FCC_I420)
        FailUsage(std::string("Y4M output holds I420 frames; ") + plan.format->name + " can't be written as Y4M");
}

int RunStream(OpenedInput& input, FrameTransform& transform, const OutputPlan& plan, const std::string& verb,
              const std::string& what, bool quiet) {
    std::unique_ptr<OutputFile> file;
    std::unique_ptr<FrameSink> sink;
    switch (plan.kind) {
        case OutputKind::Png:
            sink = std::make_unique<PngSequenceSink>(PngPattern(plan.path), *plan.format, plan.size.width,
                                                     plan.size.height, plan.pitch, plan.layout, plan.bottomUp);
            break;
        case OutputKind::Y4m:
            file = std::make_unique<OutputFile>(plan.path);
            sink = std::make_unique<Y4mSink>(*file, plan.y4m);
            break;
        case OutputKind::Raw:
            file = std::make_unique<OutputFile>(plan.path);
            sink = std::make_unique<RawSink>(*file, plan.frameBytes);
            break;
    }
    ProgressMeter meter(stderr, !quiet && IsTerminal(stderr));
    const LoopResult result = RunFrameLoop(*input.source, transform, *sink, meter);
    sink->Commit();
    if (!quiet) std::fprintf(stderr, "pixmoor: %s\n", SummaryLine(verb, result.frames, what, meter.elapsed()).c_str());
    ReportTruncation(result, input.source->frameBytes(), input.stream->description());
    return kExitOk;
}

}  // namespace pixmoor_tool
