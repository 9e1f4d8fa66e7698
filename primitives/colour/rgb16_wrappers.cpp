// Wrappers of the 16-bit members: the planes-to-packed checks, then the
// 4:2:0 inverse driver with the tier's kernel for the word layout.  The two
// members of a layout differ only in the order flag.  dstStep arrives in
// bytes and goes to the driver in words (its low bit dropped).  A picture
// of one line or one column passes the checks and is left untouched.
#include <pixmoor/primitives/colour/rgb16.h>

#include "primitives/colour/image_layouts.h"
#include "primitives/colour/rgb16_rows.h"
#include "primitives/colour/tier_entries.h"
#include "primitives/colour/wrapper_checks.h"
#include "primitives/colour/yuv420_driver.h"
#include "runtime/tier_call.h"

namespace pixmoor::colour {
namespace {

// Order flags: red at the high end, or at bit 0.
constexpr int32_t kRedHigh = 1;
constexpr int32_t kRedLow = 0;

template <class Word>
void DriveToRgb16(const uint8_t* const src[3], const int32_t srcStep[3], uint16_t* dst,
                  int32_t dstWords, int32_t width, int32_t height, int32_t order,
                  FromYuv420Row<Rgb16Out<Word>> row, TierFinish finish) {
    if (width == 1 || height == 1) return;
    const Yuv420Planes<const uint8_t> in{src[0], src[1], src[2], srcStep[0], srcStep[1], srcStep[2]};
    DriveFromYuv420(in, Rgb16Out<Word>{dst, dstWords, order}, width, height, row, finish);
}

template <class Word>
PrimStatus Yuv420ToRgb16(const uint8_t* const src[3], const int32_t srcStep[3], uint16_t* dst,
                         int32_t dstStep, int32_t width, int32_t height, int32_t order,
                         FromYuv420Row<Rgb16Out<Word>> row, TierFinish finish) {
    const PrimStatus status = CheckPlanesToPacked(src, srcStep, dst, dstStep, width, height);
    if (status == PrimStatusOk)
        DriveToRgb16<Word>(src, srcStep, dst, dstStep >> 1, width, height, order, row, finish);
    return status;
}

#define PIXMOOR_RGB16_IMPL(Impl, Word, rowField, order)                                           \
    PrimStatus Impl(const Rgb16Rows& rows, const uint8_t* const src[3], const int32_t srcStep[3], \
                    uint16_t* dst, int32_t dstStep, int32_t width, int32_t height) {              \
        return Yuv420ToRgb16<Word>(src, srcStep, dst, dstStep, width, height, order,             \
                                   rows.rowField, rows.finish);                                   \
    }

PIXMOOR_RGB16_IMPL(ToRgb565, Word565, to565, kRedHigh)
PIXMOOR_RGB16_IMPL(ToBgr565, Word565, to565, kRedLow)
PIXMOOR_RGB16_IMPL(ToRgb555, Word555, to555, kRedHigh)
PIXMOOR_RGB16_IMPL(ToBgr555, Word555, to555, kRedLow)
PIXMOOR_RGB16_IMPL(ToRgb444, Word444, to444, kRedHigh)
PIXMOOR_RGB16_IMPL(ToBgr444, Word444, to444, kRedLow)

#undef PIXMOOR_RGB16_IMPL

}  // namespace
}  // namespace pixmoor::colour

using namespace pixmoor::colour;

// Tier entries and plain names; no member of this group stands in a
// dispatch row.
#define PIXMOOR_RGB16_MEMBER(name, Impl)                                                          \
    PIXMOOR_COLOUR_TIER_ENTRIES(name, Impl, kRgb16Rows,                                           \
                                (const uint8_t* const src[3], const int32_t srcStep[3],           \
                                 uint16_t* dst, int32_t dstStep, int32_t width, int32_t height),  \
                                (tierRows, src, srcStep, dst, dstStep, width, height))            \
    PIXMOOR_DEFINE_BY_TIER(PrimStatus, name,                                                      \
                           (const uint8_t* const src[3], const int32_t srcStep[3], uint16_t* dst, \
                            int32_t dstStep, int32_t width, int32_t height),                      \
                           (src, srcStep, dst, dstStep, width, height))

PIXMOOR_RGB16_MEMBER(ImgYUV420ToRGB565, ToRgb565)
PIXMOOR_RGB16_MEMBER(ImgYUV420ToBGR565, ToBgr565)
PIXMOOR_RGB16_MEMBER(ImgYUV420ToRGB555, ToRgb555)
PIXMOOR_RGB16_MEMBER(ImgYUV420ToBGR555, ToBgr555)
PIXMOOR_RGB16_MEMBER(ImgYUV420ToRGB444, ToRgb444)
PIXMOOR_RGB16_MEMBER(ImgYUV420ToBGR444, ToBgr444)
