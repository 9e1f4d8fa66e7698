// The wrappers' argument checks and the drivers that walk the lines.
#include "primitives/mirror/mirror_driver.h"

#include "primitives/mirror/mirror_fast_kernels.h"

namespace pixmoor::mirror {
namespace {

// Above this many source bytes (height times source step) the w7 wrappers
// ask their kernels for streaming stores.
constexpr int64_t kStreamingThreshold = 131000;

// The checks and their order are the same for every member and tier:
// pointers, steps, size, axis.
PrimStatus CheckArguments(const void* src, int32_t srcStep, const void* dst, int32_t dstStep, int32_t width,
                          int32_t height, MirrorAxis axis) {
    if (src == nullptr || dst == nullptr) return PrimStatusNullPointer;
    if (srcStep < 1 || dstStep < 1) return PrimStatusStepError;
    if (width < 1 || height < 1) return PrimStatusSizeError;
    if (axis != MirrorHorizontalAxis && axis != MirrorVerticalAxis && axis != MirrorBothAxes)
        return PrimStatusBadFlipMode;
    return PrimStatusOk;
}

// Line `i` of an image whose lines lie `step` bytes apart.
template <typename Byte>
inline Byte* Line(Byte* first, int32_t step, int32_t i) {
    return first + static_cast<int64_t>(i) * step;
}

int32_t Flag(const Tier& tier, FlagRule rule, int32_t height, int32_t srcStep) {
    if (!tier.flagsFromSize || rule != kFlagFromSize) return 0;
    return static_cast<int64_t>(height) * srcStep > kStreamingThreshold ? 1 : 0;
}

// The wide kernels stream by the size of the picture they write, in every
// tier alike.
int32_t WideStreamingFlag(const LayoutInfo& info, int32_t width, int32_t height) {
    return static_cast<int64_t>(width) * info.pixelBytes * height > kWideStreamingBytes ? 1 : 0;
}

}  // namespace

PrimStatus MirrorToDestination(const Tier& tier, Layout layout, const void* src, int32_t srcStep, void* dst,
                               int32_t dstStep, int32_t width, int32_t height, MirrorAxis axis) {
    const PrimStatus status = CheckArguments(src, srcStep, dst, dstStep, width, height, axis);
    if (status != PrimStatusOk) return status;

    const LayoutInfo& info = kLayouts[layout];
    const RowKernels* wide = WideKernels(layout);
    const RowKernels& kernels = wide != nullptr ? *wide : tier.kernels[layout];
    const auto* from = static_cast<const uint8_t*>(src);
    auto* to = static_cast<uint8_t*>(dst);
    const int32_t fromStep = srcStep & info.stepMask;
    const int32_t toStep = dstStep & info.stepMask;

    if (axis == MirrorHorizontalAxis) {
        const int32_t flag = wide != nullptr ? WideStreamingFlag(info, width, height)
                                             : Flag(tier, info.copyRowFlag, height, srcStep);
        for (int32_t i = 0; i < height; ++i)
            kernels.copyRow(Line(from, fromStep, i), Line(to, toStep, height - 1 - i), width, flag);
        return PrimStatusOk;
    }
    const int32_t flag = Flag(tier, info.reverseRowFlag, height, srcStep);
    for (int32_t i = 0; i < height; ++i) {
        const int32_t target = axis == MirrorVerticalAxis ? i : height - 1 - i;
        kernels.reverseRow(Line(from, fromStep, i), Line(to, toStep, target), width, flag);
    }
    return PrimStatusOk;
}

PrimStatus MirrorInPlace(const Tier& tier, Layout layout, void* srcDst, int32_t step, int32_t width, int32_t height,
                         MirrorAxis axis) {
    const PrimStatus status = CheckArguments(srcDst, step, srcDst, step, width, height, axis);
    if (status != PrimStatusOk) return status;

    const LayoutInfo& info = kLayouts[layout];
    const RowKernels* wide = WideKernels(layout);
    const RowKernels& kernels = wide != nullptr ? *wide : tier.kernels[layout];
    auto* image = static_cast<uint8_t*>(srcDst);
    const int32_t lineStep = step & info.stepMask;
    const int32_t half = width / 2;
    // The back half of a line starts behind the middle pixel of an odd width.
    const int64_t backHalf = static_cast<int64_t>(width - half) * info.pixelBytes;

    switch (axis) {
        case MirrorHorizontalAxis:
            for (int32_t i = 0; i < height / 2; ++i)
                kernels.swapRows(Line(image, lineStep, i), Line(image, lineStep, height - 1 - i), width);
            break;
        case MirrorVerticalAxis:
            if (half == 0) break;
            for (int32_t i = 0; i < height; ++i) {
                uint8_t* line = Line(image, lineStep, i);
                kernels.reverseSwap(line, line + backHalf, half);
            }
            break;
        default: {
            for (int32_t i = 0; i < height / 2; ++i)
                kernels.reverseSwap(Line(image, lineStep, i), Line(image, lineStep, height - 1 - i), width);
            if (height % 2 != 0 && half != 0) {
                // The middle line of an odd height turns about its own centre,
                // in plain code in every tier.
                uint8_t* middle = image + (static_cast<int64_t>(height - 1) * lineStep) / 2;
                kPlainKernels[layout].reverseSwap(middle, middle + backHalf, half);
            }
            break;
        }
    }
    return PrimStatusOk;
}

}  // namespace pixmoor::mirror
