// Wrappers of the 4:4:4 members: argument checks in the fixed order, then
// the shared line driver with the row kernels of the caller's tier.  Every
// member has one step per side, a packed buffer or a set of three planes,
// so one check chain and one wrapper serve all eight.
#include <pixmoor/primitives/colour/yuv444.h>

#include "primitives/colour/tier_entries.h"
#include "primitives/colour/wrapper_checks.h"
#include "primitives/colour/yuv444_driver.h"
#include "runtime/tier_call.h"

namespace pixmoor::colour {
namespace {

// Step 3 of the checks applies to plane arrays only.
ArgChecks& PlanePointers(ArgChecks& c, const uint8_t*) { return c; }
ArgChecks& PlanePointers(ArgChecks& c, uint8_t*) { return c; }
ArgChecks& PlanePointers(ArgChecks& c, const uint8_t* const* planes) { return c.Planes(planes); }
ArgChecks& PlanePointers(ArgChecks& c, uint8_t* const* planes) { return c.Planes(planes); }

// src, srcStep, dst, dstStep, width, height, where src and dst are each a
// buffer or an array of three planes.
template <class Src, class Dst>
PrimStatus CheckOneStepEach(Src src, int32_t srcStep, Dst dst, int32_t dstStep, int32_t width,
                            int32_t height) {
    ArgChecks c;
    c.Pointers({src, dst}).Size(width, height);
    PlanePointers(PlanePointers(c, src), dst);
    return c.Step(srcStep).Step(dstStep).Status();
}

// The wrapper of a member reading layout In and writing layout Out.
template <class In, class Out>
struct Shape {
    template <class Src, class Dst>
    static PrimStatus Convert(Yuv444Row<In, Out> row, TierFinish finish, Src src, int32_t srcStep,
                              Dst dst, int32_t dstStep, int32_t width, int32_t height) {
        const PrimStatus status = CheckOneStepEach(src, srcStep, dst, dstStep, width, height);
        if (status == PrimStatusOk)
            DriveYuv444(In::From(src, srcStep), Out::From(dst, dstStep), width, height, row, finish);
        return status;
    }
};

using Packed3ToPacked3 = Shape<Packed3In, Packed3Out>;
using Packed4ToPacked4 = Shape<Packed4In, Packed4Out>;
using PlanesToPlanes = Shape<PlanesIn, PlanesOut>;
using Packed3ToPlanes = Shape<Packed3In, PlanesOut>;
using PlanesToPacked3 = Shape<PlanesIn, Packed3Out>;

}  // namespace
}  // namespace pixmoor::colour

using namespace pixmoor::colour;

// Parameters from the declarations of src and dst.
#define PIXMOOR_YUV444_PARAMS(srcDecl, dstDecl) \
    (srcDecl, int32_t srcStep, dstDecl, int32_t dstStep, int32_t width, int32_t height)
#define PIXMOOR_YUV444_PACKED PIXMOOR_YUV444_PARAMS(const uint8_t* src, uint8_t* dst)
#define PIXMOOR_YUV444_PLANES PIXMOOR_YUV444_PARAMS(const uint8_t* const src[3], uint8_t* const dst[3])
#define PIXMOOR_YUV444_ARGS (src, srcStep, dst, dstStep, width, height)
#define PIXMOOR_YUV444_TIER_ARGS(rowName) \
    (tierRows.rowName, tierRows.finish, src, srcStep, dst, dstStep, width, height)

// The four tier entries of a member: (name, wrapper shape, row kernel,
// parameters).
#define PIXMOOR_YUV444_MEMBER(name, shape, rowName, params) \
    PIXMOOR_COLOUR_TIER_ENTRIES(name, shape::Convert, kYuv444Rows, params, PIXMOOR_YUV444_TIER_ARGS(rowName))

PIXMOOR_YUV444_MEMBER(ImgRGBToYUV, Packed3ToPacked3, rgbToYuv, PIXMOOR_YUV444_PACKED)
PIXMOOR_YUV444_MEMBER(ImgRGBAToYUVA, Packed4ToPacked4, rgbaToYuva, PIXMOOR_YUV444_PACKED)
PIXMOOR_YUV444_MEMBER(ImgRGBPlanesToYUVPlanes, PlanesToPlanes, rgbPlanesToYuvPlanes, PIXMOOR_YUV444_PLANES)
PIXMOOR_YUV444_MEMBER(ImgRGBToYUVPlanes, Packed3ToPlanes, rgbToYuvPlanes,
                      PIXMOOR_YUV444_PARAMS(const uint8_t* src, uint8_t* const dst[3]))
PIXMOOR_YUV444_MEMBER(ImgYUVToRGB, Packed3ToPacked3, yuvToRgb, PIXMOOR_YUV444_PACKED)
PIXMOOR_YUV444_MEMBER(ImgYUVAToRGBA, Packed4ToPacked4, yuvaToRgba, PIXMOOR_YUV444_PACKED)
PIXMOOR_YUV444_MEMBER(ImgYUVPlanesToRGBPlanes, PlanesToPlanes, yuvPlanesToRgbPlanes, PIXMOOR_YUV444_PLANES)
PIXMOOR_YUV444_MEMBER(ImgYUVPlanesToRGB, PlanesToPacked3, yuvPlanesToRgb,
                      PIXMOOR_YUV444_PARAMS(const uint8_t* const src[3], uint8_t* dst))

// Plain names of the members that stand in no dispatch row.  ImgYUVAToRGBA
// is the dispatch stub of the runtime.
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgRGBToYUV, PIXMOOR_YUV444_PACKED, PIXMOOR_YUV444_ARGS)
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgRGBAToYUVA, PIXMOOR_YUV444_PACKED, PIXMOOR_YUV444_ARGS)
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgRGBPlanesToYUVPlanes, PIXMOOR_YUV444_PLANES, PIXMOOR_YUV444_ARGS)
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgRGBToYUVPlanes, PIXMOOR_YUV444_PARAMS(const uint8_t* src, uint8_t* const dst[3]),
                       PIXMOOR_YUV444_ARGS)
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgYUVToRGB, PIXMOOR_YUV444_PACKED, PIXMOOR_YUV444_ARGS)
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgYUVPlanesToRGBPlanes, PIXMOOR_YUV444_PLANES, PIXMOOR_YUV444_ARGS)
PIXMOOR_DEFINE_BY_TIER(PrimStatus, ImgYUVPlanesToRGB, PIXMOOR_YUV444_PARAMS(const uint8_t* const src[3], uint8_t* dst),
                       PIXMOOR_YUV444_ARGS)
