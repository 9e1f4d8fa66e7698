#include "core/resize_plan.h"

#include <pixmoor/geometry.h>

#include "core/convert_plan.h"
#include "core/errors.h"

namespace pixmoor_tool {
namespace {

const FormatInfo* RgbFormatOfDepth(int64_t bits) {
    switch (bits) {
        case 24: return FindFormat(FCC_RG24);
        case 32: return FindFormat(FCC_RG32);
        default: return nullptr;
    }
}

}  // namespace

std::string ResizeText(const ResizePlan& plan) {
    return std::string(plan.format->name) + " " + FrameSizeText(plan.in) + " -> " + FrameSizeText(plan.out) +
           (plan.cropPad ? " (crop and pad)" : " (scale)");
}

ResizePlan PlanResize(const ResizeOptions& options, FrameSize in, bool y4mInput, const SizeFactoryCheck& exists) {
    ResizePlan plan;
    plan.in = in;
    plan.out = ParseFrameSize(options.outSize);

    if (options.format == "0rgb") {
        plan.format = RgbFormatOfDepth(options.bits);
        if (!plan.format) FailUsage("0rgb needs --bits 24 or 32 (use RG55 or RG56 for 16-bit frames)");
        plan.factoryCode = FCC_0rgb;
        plan.factoryBits = uint32_t(options.bits);
    } else {
        ParsedFormat parsed;
        if (options.format.empty()) {
            if (!y4mInput) FailUsage("--format is required for raw input");
            parsed = *ParseFormat("I420");
        } else {
            parsed = ParseFormatOption(options.format, "--format", CodeSet::Size);
        }
        plan.format = parsed.info;
        plan.factoryBits = uint32_t(parsed.info->bitsPerPixel);
        if (options.bits != 0 && options.bits != parsed.info->bitsPerPixel)
            FailUsage("--bits " + std::to_string(options.bits) + " does not match " + options.format + ", which has " +
                      std::to_string(parsed.info->bitsPerPixel) + " bits a pixel");
        const bool factoryNamesIt = parsed.info->kind != FormatKind::Rgb || parsed.info->code == FCC_RG24;
        plan.factoryCode = factoryNamesIt ? parsed.typed : 0;
    }
    if (y4mInput && plan.format->code != FCC_I420)
        FailUsage("Y4M input holds I420 frames, not " + options.format + " as --format says");
    if (!exists(plan.factoryCode, plan.factoryBits))
        FailUsage("unsupported format " + (options.format.empty() ? std::string("I420") : options.format) +
                  " for resize: crop and pad takes I420 or YV12, scaling takes RG24, RG32, RG55 or RG56");

    plan.cropPad = plan.format->kind == FormatKind::Planar420;
    if (plan.cropPad)
        for (const FrameSize& s : {plan.in, plan.out})
            if (s.width % 2 != 0 || s.height % 2 != 0)
                FailUsage(std::string(plan.format->name) + " crop and pad needs even sizes; " + FrameSizeText(s) +
                          " has an odd side");
    plan.inputFrameBytes = FileFrameBytes(*plan.format, plan.in.width, plan.in.height);
    plan.outputFrameBytes = FileFrameBytes(*plan.format, plan.out.width, plan.out.height);
    return plan;
}

}  // namespace pixmoor_tool
