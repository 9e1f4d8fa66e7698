// Fuzzes the RGB to and from planar YUV 4:2:0 members, compact and step
// forms, in every tier and through their plain names: null plane and step
// arrays and null plane pointers, sizes and steps below 1, odd sizes, steps shorter than a
// line, any alignment.  Planes hold exactly the lines the arguments describe
// (packed RGB sources two bytes more, which the vector tails may read).  A
// rejected call must return the status of the first failing check and write
// nothing; an accepted one must give the frame of the colour test suite's
// scalar model for its tier.
#include <pixmoor/pixmoor.h>

#include "image_planes.h"
#include "tests/primitives/colour/yuv420_model.h"

using namespace pixmoor_fuzz;
namespace model = yuv420_model;

namespace {

enum class Direction { Forward, Inverse };
enum class RgbForm { Packed, Planes };

using Entry = PrimStatus (*)(const ImageCall&);

struct Member {
    const char* name;
    Direction direction;
    RgbForm rgb;
    bool compact;
    Entry entries[5];  // plain, px, m6, a6, w7
};


const Member kMembers[] = {
    {"ImgRGBToYUV420", Direction::Forward, RgbForm::Packed, true, TIERS(PACKED_TO_PLANES_COMPACT, ImgRGBToYUV420)},
    {"ImgRGBToYUV420_Step", Direction::Forward, RgbForm::Packed, false,
     TIERS(PACKED_TO_PLANES_STEPS, ImgRGBToYUV420_Step)},
    {"ImgRGBPlanesToYUV420", Direction::Forward, RgbForm::Planes, true, TIERS(PLANES_TO_PLANES_COMPACT, ImgRGBPlanesToYUV420)},
    {"ImgRGBPlanesToYUV420_Step", Direction::Forward, RgbForm::Planes, false,
     TIERS(PLANES_ONE_TO_PLANES_STEPS, ImgRGBPlanesToYUV420_Step)},
    {"ImgYUV420ToRGB", Direction::Inverse, RgbForm::Packed, true, TIERS(PLANES_TO_PACKED_COMPACT, ImgYUV420ToRGB)},
    {"ImgYUV420ToRGB_Step", Direction::Inverse, RgbForm::Packed, false,
     TIERS(PLANES_STEPS_TO_PACKED, ImgYUV420ToRGB_Step)},
    {"ImgYUV420ToRGBPlanes", Direction::Inverse, RgbForm::Planes, true, TIERS(PLANES_TO_PLANES_COMPACT, ImgYUV420ToRGBPlanes)},
    {"ImgYUV420ToRGBPlanes_Step", Direction::Inverse, RgbForm::Planes, false,
     TIERS(PLANES_STEPS_TO_PLANES_ONE, ImgYUV420ToRGBPlanes_Step)},
};
constexpr uint32_t kMemberCount = sizeof(kMembers) / sizeof(kMembers[0]);
const char* const kEntryNames[5] = {"plain", "px", "m6", "a6", "w7"};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const IsaCeiling isa(data, size);
    FuzzInput in(data, size);
    const Member& m = kMembers[in.Below(kMemberCount)];
    const uint32_t entry = in.Below(5);
    const int32_t width = ReadImageLength(in, 70), height = ReadImageLength(in, 24);
    const uint8_t nulls = in.Byte();
    // Outer pointers: the packed buffer or the plane arrays; inner: one plane.
    const bool nullSrcOuter = nulls == 0xF0, nullDstOuter = nulls == 0xF1;
    int nullSrcPlane = nulls >= 0xF2 && nulls <= 0xF4 ? nulls - 0xF2 : -1;
    int nullDstPlane = nulls >= 0xF5 && nulls <= 0xF7 ? nulls - 0xF5 : -1;

    const bool sized = width >= 1 && height >= 1;
    const int32_t w = sized ? width : 1, h = sized ? height : 1;
    const int32_t cw = w / 2 + (w & 1), ch = h / 2 + (h & 1);
    const bool forward = m.direction == Direction::Forward;
    // A step array is checked with the outer pointers, before the size.
    const bool nullSrcSteps = nulls == 0xF8 && !m.compact && !forward;
    const bool nullDstSteps = nulls == 0xF9 && !m.compact && forward;

    // The two sides: RGB (one packed plane or three full planes with one
    // step) and YUV (three planes with their own steps).
    const int rgbCount = m.rgb == RgbForm::Packed ? 1 : 3;
    Plane rgb[3], yuv[3];
    const int32_t rgbLine = m.rgb == RgbForm::Packed ? 3 * w : w;
    const int32_t rgbStep = m.compact ? rgbLine : ReadStep(in, rgbLine);
    for (int p = 0; p < rgbCount; ++p) rgb[p].lineBytes = rgbLine, rgb[p].lines = h, rgb[p].step = rgbStep;
    for (int p = 0; p < 3; ++p) {
        yuv[p].lineBytes = p == 0 ? w : cw;
        yuv[p].lines = p == 0 ? h : ch;
        yuv[p].step = m.compact ? yuv[p].lineBytes : ReadStep(in, yuv[p].lineBytes);
    }

    // The first failing check decides.
    const bool nullOuter = nullSrcOuter || nullDstOuter || nullSrcSteps || nullDstSteps;
    if (nullSrcPlane >= (forward ? rgbCount : 3)) nullSrcPlane = -1;
    if (nullDstPlane >= (forward ? 3 : rgbCount)) nullDstPlane = -1;
    bool badStep = rgbStep < 1;
    for (const Plane& p : yuv) badStep |= p.step < 1;
    // A null plane in a packed member's only buffer is an outer null.
    const bool srcHasArray = !forward || m.rgb == RgbForm::Planes, dstHasArray = forward || m.rgb == RgbForm::Planes;
    const bool innerNull = (nullSrcPlane >= 0 && srcHasArray) || (nullDstPlane >= 0 && dstHasArray);
    const bool outerNull = nullOuter || (nullSrcPlane >= 0 && !srcHasArray) || (nullDstPlane >= 0 && !dstHasArray);
    PrimStatus expected = PrimStatusOk;
    if (outerNull)
        expected = PrimStatusNullPointer;
    else if (!sized)
        expected = PrimStatusSizeError;
    else if (innerNull)
        expected = PrimStatusNullPointer;
    else if (badStep)
        expected = PrimStatusStepError;
    const bool accepted = expected == PrimStatusOk;

    Plane* source = forward ? rgb : yuv;
    Plane* dest = forward ? yuv : rgb;
    const int sourceCount = forward ? rgbCount : 3, destCount = forward ? 3 : rgbCount;
    const size_t rgbSlack = forward && m.rgb == RgbForm::Packed ? 2 : 0;  // tails read 2 bytes on
    for (int p = 0; p < sourceCount; ++p) {
        source[p].Make(accepted, forward ? rgbSlack : 0, in.Byte() % 16);
        in.Fill(source[p].bytes->data(), source[p].bytes->size());
        source[p].before = source[p].bytes->Contents();
    }
    for (int p = 0; p < destCount; ++p) {
        dest[p].Make(accepted, 0, in.Byte() % 16);
        for (size_t i = 0; i < dest[p].bytes->size(); ++i) dest[p].bytes->data()[i] = static_cast<uint8_t>(i * 11 + p);
        dest[p].before = dest[p].bytes->Contents();
    }

    const uint8_t* srcPlanePtrs[3] = {};
    uint8_t* dstPlanePtrs[3] = {};
    for (int p = 0; p < sourceCount; ++p) srcPlanePtrs[p] = p == nullSrcPlane ? nullptr : source[p].bytes->data();
    for (int p = 0; p < destCount; ++p) dstPlanePtrs[p] = p == nullDstPlane ? nullptr : dest[p].bytes->data();
    const int32_t yuvSteps[3] = {yuv[0].step, yuv[1].step, yuv[2].step};

    ImageCall call{};
    call.width = width, call.height = height;
    if (forward) {
        call.srcPacked = nullSrcOuter ? nullptr : srcPlanePtrs[0];
        call.srcPlanes = nullSrcOuter ? nullptr : srcPlanePtrs;
        call.srcStep = rgbStep;
        call.dstPlanes = nullDstOuter ? nullptr : dstPlanePtrs;
        call.dstSteps = nullDstSteps ? nullptr : yuvSteps;
    } else {
        call.srcPlanes = nullSrcOuter ? nullptr : srcPlanePtrs;
        call.srcSteps = nullSrcSteps ? nullptr : yuvSteps;
        call.dstPacked = nullDstOuter ? nullptr : dstPlanePtrs[0];
        call.dstPlanes = nullDstOuter ? nullptr : dstPlanePtrs;
        call.dstStep = rgbStep;
    }
    const PrimStatus status = m.entries[entry](call);
    FUZZ_CHECK(status == expected, "%s %s %dx%d: status %d, expected %d", m.name, kEntryNames[entry], width, height,
               status, expected);
    for (int p = 0; p < sourceCount; ++p)
        FUZZ_CHECK(source[p].bytes->Equals(source[p].before), "%s %s changed source plane %d", m.name,
                   kEntryNames[entry], p);
    if (!accepted) {
        for (int p = 0; p < destCount; ++p)
            FUZZ_CHECK(dest[p].bytes->Equals(dest[p].before), "%s %s wrote plane %d after a failed check", m.name,
                       kEntryNames[entry], p);
        return 0;
    }
    // Destination lines that overlap make the bytes depend on the order of
    // the writes: bounds only.
    for (int p = 0; p < destCount; ++p)
        if (dest[p].Overlaps()) return 0;

    // The plain names run px here: nothing in this program selects a tier.
    const model::Tier tier = entry == 0 ? model::kPx : static_cast<model::Tier>(entry - 1);
    const bool planes = m.rgb == RgbForm::Planes;
    std::vector<std::vector<uint8_t>> expectedPlanes;
    for (int p = 0; p < destCount; ++p) expectedPlanes.push_back(dest[p].before);
    auto put = [&](int p, int32_t offset, uint8_t v) {
        expectedPlanes[p][static_cast<size_t>(offset)] = v;
    };
    if (forward) {
        model::RgbFrame frame = model::RgbFrame::Make(w, h);
        for (int32_t y = 0; y < h; ++y)
            for (int32_t x = 0; x < w; ++x) {
                model::Pixel px;
                if (planes)
                    px = {rgb[0].At(x, y), rgb[1].At(x, y), rgb[2].At(x, y)};
                else
                    px = {rgb[0].At(3 * x, y), rgb[0].At(3 * x + 1, y), rgb[0].At(3 * x + 2, y)};
                frame.Set(x, y, px);
            }
        const model::YuvFrame out = model::Forward(frame, tier, planes);
        for (int32_t y = 0; y < h; ++y)
            for (int32_t x = 0; x < w; ++x) put(0, y * yuv[0].step + x, static_cast<uint8_t>(out.Y(x, y)));
        for (int32_t y = 0; y < ch; ++y)
            for (int32_t x = 0; x < cw; ++x) {
                put(1, y * yuv[1].step + x, static_cast<uint8_t>(out.U(x, y)));
                put(2, y * yuv[2].step + x, static_cast<uint8_t>(out.V(x, y)));
            }
    } else {
        model::YuvFrame frame = model::YuvFrame::Make(w, h);
        for (int32_t y = 0; y < h; ++y)
            for (int32_t x = 0; x < w; ++x) frame.Y(x, y) = yuv[0].At(x, y);
        for (int32_t y = 0; y < ch; ++y)
            for (int32_t x = 0; x < cw; ++x) frame.U(x, y) = yuv[1].At(x, y), frame.V(x, y) = yuv[2].At(x, y);
        const model::RgbFrame out = model::Inverse(frame, tier, planes);
        for (int32_t y = 0; y < h; ++y)
            for (int32_t x = 0; x < w; ++x) {
                const model::Pixel px = out.At(x, y);
                const int32_t at = y * rgbStep + (planes ? x : 3 * x);
                const int32_t stride = planes ? 0 : 1;
                put(0, at, static_cast<uint8_t>(px.r));
                put(planes ? 1 : 0, at + stride, static_cast<uint8_t>(px.g));
                put(planes ? 2 : 0, at + 2 * stride, static_cast<uint8_t>(px.b));
            }
    }
    for (int p = 0; p < destCount; ++p) {
        const long at = FirstDifference(expectedPlanes[p].data(), dest[p].bytes->data(), expectedPlanes[p].size());
        FUZZ_CHECK(at < 0, "%s %s %dx%d plane %d: byte %ld is %d, model %d", m.name, kEntryNames[entry], width,
                   height, p, at, dest[p].bytes->data()[at], expectedPlanes[p][at]);
    }
    return 0;
}
