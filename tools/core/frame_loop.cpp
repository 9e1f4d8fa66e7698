#include "core/frame_loop.h"

#include <vector>

#include "core/errors.h"

namespace pixmoor_tool {

LoopResult RunFrameLoop(FrameSource& source, FrameTransform& transform, FrameSink& sink, ProgressMeter& meter) {
    std::vector<uint8_t> input(std::max(transform.inputCapacity(), size_t(source.frameBytes())), 0);
    LoopResult result;
    for (;;) {
        const ReadResult read = source.Read(input.data());
        if (read.outcome == ReadResult::End) break;
        if (read.outcome == ReadResult::Truncated) {
            result.truncated = true;
            result.truncatedBytes = read.bytes;
            break;
        }
        sink.Write(transform.Apply(input.data()));
        ++result.frames;
        meter.CountFrame();
    }
    meter.Finish();
    return result;
}

void ReportTruncation(const LoopResult& result, int64_t frameBytes, const std::string& inputDescription) {
    if (!result.truncated) return;
    const int64_t kept = result.frames;
    throw ToolError(kExitTruncated,
                    "truncated last frame in " + inputDescription + ": frame " + std::to_string(kept + 1) +
                        " has " + std::to_string(result.truncatedBytes) + " of " + std::to_string(frameBytes) +
                        " bytes; the " + std::to_string(kept) + " complete frame" + (kept == 1 ? "" : "s") +
                        " before it were kept");
}

}  // namespace pixmoor_tool
