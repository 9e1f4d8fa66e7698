// The px and m6 drivers of the 4:2:0 conversion into 4-byte pixels: the
// shared driver and wide row kernel over the 4-byte layout, with the clamp
// table of the tier.
#include "primitives/colour/yuv420_wide_rgb0.h"

#include "primitives/colour/clamp_table.h"
#include "primitives/colour/image_layouts.h"
#include "primitives/colour/tier_finish.h"
#include "primitives/colour/yuv420_driver.h"
#include "primitives/colour/yuv420_wide_rows.h"

#include <cstring>

#include "primitives/colour/yuv420_fast_rows.h"
#include "runtime/isa.h"

namespace pixmoor::colour {
namespace {

FromYuv420Row<PackedRgb0Out> RowOf(PrimTier tier) {
    return tier == PrimTierM6 ? &wide::FromYuv420Kernel<ImgClampTableM6, PackedRgb0Out>
                              : &wide::FromYuv420Kernel<ImgClampTable, PackedRgb0Out>;
}

}  // namespace

void Yuv420ToRgb0Wide(PrimTier tier, const uint8_t* const planes[3], uint8_t* dst, int32_t dstStep,
                      int32_t width, int32_t height) {
    const int32_t chromaStep = CompactChromaStep(width);
    const Yuv420Planes<const uint8_t> in{planes[0], planes[1], planes[2], CompactPlaneStep(width), chromaStep,
                                         chromaStep};
    DriveFromYuv420(in, PackedRgb0Out{{dst, dstStep}}, width, height, RowOf(tier), &FinishPlain);
}

void Yuv420PairToRgb0WideKeeping(PrimTier tier, const Yuv420Lines<const uint8_t>& in, uint8_t* top,
                                 uint8_t* bottom, int32_t width, const Yuv420Lines<uint8_t>& kept) {
    const int32_t pairs = width >> 1;
    // The vector forms copy the samples of the steps they do; the tier's
    // row kernel does the rest, whose samples are copied after it.
    int32_t done = 0;
#if PIXMOOR_HAVE_X86_TARGETS
    if (isa::Has(isa::kAvx512))
        done = fast::WideFromYuv420Rgb0Avx512(in, top, bottom, pairs, &kept);
    else if (isa::Has(isa::kAvx2))
        done = fast::WideFromYuv420Rgb0Avx2(in, top, bottom, pairs, &kept);
#endif
    const Yuv420Lines<const uint8_t> rest{in.y0 + 2 * done, in.y1 + 2 * done, in.u + done, in.v + done};
    RowOf(tier)(rest, top + 8 * static_cast<intptr_t>(done), bottom + 8 * static_cast<intptr_t>(done), pairs - done);
    const auto restPairs = static_cast<size_t>(pairs - done);
    std::memcpy(kept.y0 + 2 * done, rest.y0, 2 * restPairs);
    std::memcpy(kept.y1 + 2 * done, rest.y1, 2 * restPairs);
    std::memcpy(kept.u + done, rest.u, restPairs);
    std::memcpy(kept.v + done, rest.v, restPairs);
}

}  // namespace pixmoor::colour
