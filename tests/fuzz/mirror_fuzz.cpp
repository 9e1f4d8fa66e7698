// Fuzzes every mirror member in every tier and through its plain name, with
// any arguments: null pointers, steps and sizes below 1, steps that are no
// multiple of the element size or shorter than a line, odd sizes, any axis,
// and every alignment.  The buffers hold exactly the lines the arguments
// describe.  A rejected call must return the status of the first failing
// check and leave every byte as it was; an accepted one must return 0 and
// give what a scalar model of the mirror gives.
#include <pixmoor/pixmoor.h>

#include "fuzz_support.h"

using namespace pixmoor_fuzz;

namespace {

// One call shape for every member: bytes in and out, whatever the element.
using ToDestinationCall = PrimStatus (*)(const uint8_t*, int32_t, uint8_t*, int32_t, int32_t, int32_t, MirrorAxis);
using InPlaceCall = PrimStatus (*)(uint8_t*, int32_t, int32_t, int32_t, MirrorAxis);

struct Member {
    const char* name;
    int32_t elementBytes;
    int32_t channels;  // 4 for AC4 members, whose fourth channel is kept
    ToDestinationCall toDestination[5];
    InPlaceCall inPlace[5];
};

#define TO_DESTINATION(fn, T)                                                                          \
    [](const uint8_t* s, int32_t ss, uint8_t* d, int32_t ds, int32_t w, int32_t h, MirrorAxis a) {   \
        return fn(reinterpret_cast<const T*>(s), ss, reinterpret_cast<T*>(d), ds, w, h, a);          \
    }
#define IN_PLACE(fn, T) \
    [](uint8_t* p, int32_t s, int32_t w, int32_t h, MirrorAxis a) { return fn(reinterpret_cast<T*>(p), s, w, h, a); }
#define ENTRIES(WRAP, name, T) \
    { WRAP(name, T), WRAP(px_##name, T), WRAP(m6_##name, T), WRAP(a6_##name, T), WRAP(w7_##name, T) }
#define MEMBER_PAIR(name, T, channels)                                                     \
    Member{#name, sizeof(T), channels, ENTRIES(TO_DESTINATION, name, T), {}},              \
        Member {                                                                           \
        #name "I", sizeof(T), channels, {}, ENTRIES(IN_PLACE, name##I, T)                  \
    }

const Member kMembers[] = {
    MEMBER_PAIR(ImgMirror8uC1, uint8_t, 1),   MEMBER_PAIR(ImgMirror8uC3, uint8_t, 3),
    MEMBER_PAIR(ImgMirror8uAC4, uint8_t, 4),  MEMBER_PAIR(ImgMirror16uC1, uint16_t, 1),
    MEMBER_PAIR(ImgMirror16uC3, uint16_t, 3), MEMBER_PAIR(ImgMirror16uAC4, uint16_t, 4),
    MEMBER_PAIR(ImgMirror32sC1, int32_t, 1),  MEMBER_PAIR(ImgMirror32sC3, int32_t, 3),
    MEMBER_PAIR(ImgMirror32sAC4, int32_t, 4),
};
constexpr uint32_t kMemberCount = sizeof(kMembers) / sizeof(kMembers[0]);
const char* const kEntryNames[5] = {"plain", "px", "m6", "a6", "w7"};

// The first check that fails decides the status.
PrimStatus ExpectedStatus(bool nullPointer, int32_t srcStep, int32_t dstStep, int32_t width, int32_t height,
                          int32_t axis) {
    if (nullPointer) return PrimStatusNullPointer;
    if (srcStep < 1 || dstStep < 1) return PrimStatusStepError;
    if (width < 1 || height < 1) return PrimStatusSizeError;
    if (axis < 0 || axis > 2) return PrimStatusBadFlipMode;
    return PrimStatusOk;
}

// Bytes spanned by `height` lines of `lineBytes` bytes, `walk` bytes apart.
size_t Span(int32_t walk, int32_t lineBytes, int32_t height) {
    return static_cast<size_t>(height - 1) * static_cast<size_t>(walk) + static_cast<size_t>(lineBytes);
}

// Where pixel (x, y) of the source lands: (x', y').
void Target(int32_t axis, int32_t width, int32_t height, int32_t x, int32_t y, int32_t* tx, int32_t* ty) {
    *tx = axis == MirrorHorizontalAxis ? x : width - 1 - x;
    *ty = axis == MirrorVerticalAxis ? y : height - 1 - y;
}

// Moves every pixel of `from` (lines `fromWalk` apart) to its mirror place
// in `to` (lines `toWalk` apart), the kept channels only.
void ModelMirror(const Member& m, const uint8_t* from, int32_t fromWalk, uint8_t* to, int32_t toWalk, int32_t width,
                 int32_t height, int32_t axis) {
    const int32_t pixelBytes = m.elementBytes * m.channels;
    const int32_t keptBytes = m.elementBytes * (m.channels == 4 ? 3 : m.channels);
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x) {
            int32_t tx, ty;
            Target(axis, width, height, x, y, &tx, &ty);
            std::memcpy(to + static_cast<size_t>(ty) * toWalk + static_cast<size_t>(tx) * pixelBytes,
                        from + static_cast<size_t>(y) * fromWalk + static_cast<size_t>(x) * pixelBytes, keptBytes);
        }
}

// Arguments of one call, read from the input.  Accepted calls get sizes that
// keep the buffers small; rejected ones may carry any value.
struct Arguments {
    int32_t srcStep, dstStep, width, height, axis;
    bool nullSrc, nullDst;
    size_t srcMisalign, dstMisalign;
};

int32_t ReadStep(FuzzInput& in, int32_t lineBytes) {
    const uint8_t how = in.Byte();
    if (how < 170) return lineBytes + in.Byte() % 40;            // a line and a gap
    if (how < 200) return 1 + in.Below(static_cast<uint32_t>(lineBytes) + 1);  // lines overlap
    if (how < 215) return 0;
    if (how < 235) return -static_cast<int32_t>(in.Byte());
    return in.I32();
}

Arguments ReadArguments(FuzzInput& in, const Member& m) {
    Arguments a{};
    a.width = in.Length(97);
    a.height = in.Length(41);
    const uint8_t axisHow = in.Byte();
    a.axis = axisHow < 240 ? axisHow % 3 : (axisHow < 250 ? axisHow % 8 : in.I32());
    const uint8_t nulls = in.Byte();
    a.nullSrc = nulls == 0xFE || nulls == 0xFF;
    a.nullDst = nulls == 0xFD || nulls == 0xFF;
    const int32_t pixelBytes = m.elementBytes * m.channels;
    const int32_t lineBytes = (a.width >= 1 && a.width <= 4096 ? a.width : 1) * pixelBytes;
    a.srcStep = ReadStep(in, lineBytes);
    a.dstStep = ReadStep(in, lineBytes);
    a.srcMisalign = in.Byte() % 16;
    a.dstMisalign = in.Byte() % 16;
    // Keep an accepted call's buffers to a few megabytes at most.
    if (a.width > 4096) a.width = 1 + a.width % 4096;
    if (a.height > 4096) a.height = 1 + a.height % 4096;
    if (a.srcStep > 1 << 16) a.srcStep = 1 + a.srcStep % (1 << 16);
    if (a.dstStep > 1 << 16) a.dstStep = 1 + a.dstStep % (1 << 16);
    int64_t widest = a.width * static_cast<int64_t>(pixelBytes);
    if (a.srcStep > widest) widest = a.srcStep;
    if (a.dstStep > widest) widest = a.dstStep;
    if (a.height > 1 && a.height * widest > (1 << 20)) a.height = static_cast<int32_t>((1 << 20) / widest) + 1;
    return a;
}

void CheckToDestination(FuzzInput& in, const Member& m, uint32_t entry) {
    Arguments a = ReadArguments(in, m);
    const PrimStatus expected = ExpectedStatus(a.nullSrc || a.nullDst, a.srcStep, a.dstStep, a.width, a.height, a.axis);
    const int32_t pixelBytes = m.elementBytes * m.channels;
    const int32_t mask = -m.elementBytes;  // steps are walked rounded down to whole elements
    const int32_t srcWalk = a.srcStep & mask, dstWalk = a.dstStep & mask;
    const bool accepted = expected == PrimStatusOk;
    const int32_t lineBytes = accepted ? a.width * pixelBytes : 0;
    // A rejected call gets small buffers: it must touch none of their bytes.
    ExactBuffer src(accepted ? Span(srcWalk, lineBytes, a.height) : 8, a.srcMisalign);
    ExactBuffer dst(accepted ? Span(dstWalk, lineBytes, a.height) : 8, a.dstMisalign);
    in.Fill(src.data(), src.size());
    for (size_t i = 0; i < dst.size(); ++i) dst.data()[i] = static_cast<uint8_t>(i * 13 + 5);
    const std::vector<uint8_t> srcBefore = src.Contents(), dstBefore = dst.Contents();

    const PrimStatus status = m.toDestination[entry](a.nullSrc ? nullptr : src.data(), a.srcStep,
                                                     a.nullDst ? nullptr : dst.data(), a.dstStep, a.width, a.height,
                                                     static_cast<MirrorAxis>(a.axis));
    FUZZ_CHECK(status == expected, "%s %s: status %d, expected %d", m.name, kEntryNames[entry], status, expected);
    FUZZ_CHECK(src.Equals(srcBefore), "%s %s changed its source", m.name, kEntryNames[entry]);
    if (!accepted) {
        FUZZ_CHECK(dst.Equals(dstBefore), "%s %s wrote after a failed check", m.name, kEntryNames[entry]);
        return;
    }
    // Lines that overlap in the destination make the result depend on the
    // order of the writes; there only the bounds are checked.
    if (dstWalk < lineBytes && a.height > 1) return;
    std::vector<uint8_t> model = dstBefore;
    ModelMirror(m, srcBefore.data(), srcWalk, model.data(), dstWalk, a.width, a.height, a.axis);
    const long at = FirstDifference(model.data(), dst.data(), model.size());
    FUZZ_CHECK(at < 0, "%s %s %dx%d steps %d,%d axis %d: byte %ld is %d, model %d", m.name, kEntryNames[entry],
               a.width, a.height, a.srcStep, a.dstStep, a.axis, at, dst.data()[at], model[at]);
}

void CheckInPlace(FuzzInput& in, const Member& m, uint32_t entry) {
    Arguments a = ReadArguments(in, m);
    const PrimStatus expected = ExpectedStatus(a.nullSrc, a.srcStep, a.srcStep, a.width, a.height, a.axis);
    const int32_t pixelBytes = m.elementBytes * m.channels;
    const int32_t walk = a.srcStep & -m.elementBytes;
    const bool accepted = expected == PrimStatusOk;
    const int32_t lineBytes = accepted ? a.width * pixelBytes : 0;
    ExactBuffer image(accepted ? Span(walk, lineBytes, a.height) : 8, a.srcMisalign);
    in.Fill(image.data(), image.size());
    const std::vector<uint8_t> before = image.Contents();

    const PrimStatus status = m.inPlace[entry](a.nullSrc ? nullptr : image.data(), a.srcStep, a.width, a.height,
                                               static_cast<MirrorAxis>(a.axis));
    FUZZ_CHECK(status == expected, "%s %s: status %d, expected %d", m.name, kEntryNames[entry], status, expected);
    if (!accepted) {
        FUZZ_CHECK(image.Equals(before), "%s %s wrote after a failed check", m.name, kEntryNames[entry]);
        return;
    }
    if (walk < lineBytes && a.height > 1) return;  // overlapping lines: bounds only
    std::vector<uint8_t> model = before;
    ModelMirror(m, before.data(), walk, model.data(), walk, a.width, a.height, a.axis);
    const long at = FirstDifference(model.data(), image.data(), model.size());
    FUZZ_CHECK(at < 0, "%s %s %dx%d step %d axis %d: byte %ld is %d, model %d", m.name, kEntryNames[entry], a.width,
               a.height, a.srcStep, a.axis, at, image.data()[at], model[at]);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const IsaCeiling isa(data, size);
    FuzzInput in(data, size);
    const Member& m = kMembers[in.Below(kMemberCount)];
    const uint32_t entry = in.Below(5);
    if (m.toDestination[0] != nullptr)
        CheckToDestination(in, m, entry);
    else
        CheckInPlace(in, m, entry);
    return 0;
}
