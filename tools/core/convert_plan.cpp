#include "core/convert_plan.h"

#include <pixmoor/geometry.h>

#include "core/errors.h"

namespace pixmoor_tool {

ParsedFormat ParseFormatOption(const std::string& text, const char* option, CodeSet set) {
    const auto parsed = ParseFormat(text, set);
    if (!parsed)
        FailUsage("unknown format code '" + text + "' for " + option + " (known: " + SpellingList() +
                  (set == CodeSet::Size ? ", IYUV iyuv, 0rgb" : "") + ")");
    return *parsed;
}

ParsedFormat SourceFormat(const std::string& fromText, bool y4mInput) {
    if (!y4mInput) {
        if (fromText.empty()) FailUsage("--from is required for raw input");
        return ParseFormatOption(fromText, "--from");
    }
    if (fromText.empty()) return *ParseFormat("I420");
    const ParsedFormat parsed = ParseFormatOption(fromText, "--from");
    if (parsed.info->code != FCC_I420)
        FailUsage("Y4M input holds I420 frames, not " + fromText + " as --from says");
    return parsed;
}

std::string PairText(const ConvertPlan& plan) {
    return std::string(plan.src.info->name) + " -> " + plan.dst.info->name;
}

ConvertPlan PlanConversion(const ConvertOptions& options, FrameSize size, bool y4mInput, const PairCheck& pairExists) {
    ConvertPlan plan;
    plan.src = SourceFormat(options.from, y4mInput);
    plan.dst = ParseFormatOption(options.to, "--to");
    plan.size = size;
    if (!pairExists(plan.src.typed, plan.dst.typed))
        FailUsage("unsupported format pair " + FourCCText(plan.src.typed) + " -> " + FourCCText(plan.dst.typed) +
                  ": the library has no conversion for it (see pixmoor info)");

    // Every colour transform works on whole 4 by 4 blocks.
    if (size.width % 4 != 0 || size.height % 4 != 0)
        FailUsage("size " + FrameSizeText(size) + " can't be converted " + PairText(plan) +
                  ": width and height must be multiples of 4");

    if (options.native) {
        plan.srcOrientation = plan.destOrientation = 0;
    } else {
        plan.srcOrientation = ParseOrientation(options.srcOrient);
        plan.destOrientation = ParseOrientation(options.destOrient);
    }
    const bool destRgb = plan.dst.info->kind == FormatKind::Rgb;
    plan.destBottomUp = plan.destOrientation == 2 || (plan.destOrientation == 0 && destRgb);

    plan.inputFrameBytes = FileFrameBytes(*plan.src.info, size.width, size.height);
    if (destRgb) {
        // Always an explicit pitch: for some pairs 0 means something other
        // than tight rows.
        const int32_t line = LibraryLineBytes(size.width, plan.dst.info->bitsPerPixel);
        if (options.destPitch != 0 && options.destPitch < line)
            FailUsage("--dest-pitch " + std::to_string(options.destPitch) + " is less than a " + plan.dst.info->name +
                      " row of " + std::to_string(size.width) + " pixels (" + std::to_string(line) + " bytes)");
        plan.destPitch = static_cast<uint32_t>(options.destPitch != 0 ? options.destPitch : line);
        plan.outputFrameBytes = int64_t{plan.destPitch} * size.height;
    } else {
        if (options.destPitch != 0)
            FailUsage(std::string("--dest-pitch applies to RGB destinations only; ") + plan.dst.info->name +
                      " frames are always tight");
        plan.outputFrameBytes = FileFrameBytes(*plan.dst.info, size.width, size.height);
    }
    // The packed 4:2:2 conversions write their own 5-5-5 layout.
    if (plan.src.info->kind == FormatKind::Packed422 && plan.dst.info->code == FCC_RG55)
        plan.layout = Rgb555Layout::HighAligned;
    return plan;
}

}  // namespace pixmoor_tool
