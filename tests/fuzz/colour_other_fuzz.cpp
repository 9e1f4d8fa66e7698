// Fuzzes the video-range YCbCr members and the gray and analogue 4:2:2
// members, in every tier and under their plain names, with the arguments of
// the other colour harnesses: null pointers, arrays and planes, sizes and
// steps below 1, odd sizes, short steps and any alignment (whole elements
// for the 16-bit and float members).  Every call must return the status of
// the first failing check, in the member's own order, and a rejected call
// writes nothing.  An accepted call leaves its source alone, gives under the
// plain name exactly what px gives (nothing in this program selects a
// tier), and for the weighted gray members a null weights pointer gives
// exactly the default weights' member.
#include <pixmoor/pixmoor.h>

#include "image_planes.h"

using namespace pixmoor_fuzz;

namespace {

using Entry = PrimStatus (*)(const ImageCall&, const float* weights);

struct Member {
    const char* name;
    Layout src, dst;
    Steps srcSteps, dstSteps;
    bool stepsBeforePlanes;
    int32_t element;         // bytes of one sample
    int defaultsOf;          // for a weighted gray member: index of its default-weights member, else -1
    Entry entries[5];
};

// Every shape adapts to one entry type; the weights are used by the gray
// members that take them.
#define BYTES(fn) [](const ImageCall& c, const float*) { return PACKED_TO_PACKED(fn)(c); }
#define WORDS(fn)                                                                                         \
    [](const ImageCall& c, const float*) {                                                               \
        return fn(c.srcPacked, c.srcStep, reinterpret_cast<uint16_t*>(c.dstPacked), c.dstStep, c.width, c.height); \
    }
#define PLANES_ONE(fn) [](const ImageCall& c, const float*) { return PLANES_TO_PLANES_ONE(fn)(c); }
#define PLANES_TO_C2(fn) [](const ImageCall& c, const float*) { return PLANES_ONE_TO_PACKED(fn)(c); }
#define C2_TO_PLANES(fn) [](const ImageCall& c, const float*) { return PACKED_TO_PLANES_ONE(fn)(c); }
#define TO_420(fn) [](const ImageCall& c, const float*) { return PACKED_TO_PLANES_STEPS(fn)(c); }
#define FROM_420(fn) [](const ImageCall& c, const float*) { return PLANES_STEPS_TO_PACKED(fn)(c); }
#define GRAY(fn, T)                                                                                     \
    [](const ImageCall& c, const float*) {                                                             \
        return fn(reinterpret_cast<const T*>(c.srcPacked), c.srcStep, reinterpret_cast<T*>(c.dstPacked), c.dstStep, \
                  c.width, c.height);                                                                   \
    }
#define WEIGHTED(fn, T)                                                                                 \
    [](const ImageCall& c, const float* weights) {                                                     \
        return fn(reinterpret_cast<const T*>(c.srcPacked), c.srcStep, reinterpret_cast<T*>(c.dstPacked), c.dstStep, \
                  c.width, c.height, weights);                                                          \
    }
#define ALL5(SHAPE, name) {SHAPE(name), SHAPE(px_##name), SHAPE(m6_##name), SHAPE(a6_##name), SHAPE(w7_##name)}
#define ALL5T(SHAPE, name, T) \
    {SHAPE(name, T), SHAPE(px_##name, T), SHAPE(m6_##name, T), SHAPE(a6_##name, T), SHAPE(w7_##name, T)}

constexpr Layout C3 = Packed(3), C4 = Packed(4), C2 = Packed(2), W = Packed(2);
constexpr Steps One = Steps::One, Three = Steps::Three;

const Member kMembers[] = {
    {"ImgRGBToYCbCr422C3C2", C3, C2, One, One, false, 1, -1, ALL5(BYTES, ImgRGBToYCbCr422C3C2)},
    {"ImgYCbCr422ToRGBC2C3", C2, C3, One, One, false, 1, -1, ALL5(BYTES, ImgYCbCr422ToRGBC2C3)},
    {"ImgRGBToYCbCr422P3C2", kPlanesFull, C2, One, One, false, 1, -1, ALL5(PLANES_TO_C2, ImgRGBToYCbCr422P3C2)},
    {"ImgYCbCr422ToRGBC2P3", C2, kPlanesFull, One, One, true, 1, -1, ALL5(C2_TO_PLANES, ImgYCbCr422ToRGBC2P3)},
    {"ImgYCbCr422ToBGR565", C2, W, One, One, false, 2, -1, ALL5(WORDS, ImgYCbCr422ToBGR565)},
    {"ImgYCbCr422ToRGB565", C2, W, One, One, false, 2, -1, ALL5(WORDS, ImgYCbCr422ToRGB565)},
    {"ImgYCbCr422ToBGR555", C2, W, One, One, false, 2, -1, ALL5(WORDS, ImgYCbCr422ToBGR555)},
    {"ImgYCbCr422ToRGB555", C2, W, One, One, false, 2, -1, ALL5(WORDS, ImgYCbCr422ToRGB555)},
    {"ImgYCbCr422ToBGR444", C2, W, One, One, false, 2, -1, ALL5(WORDS, ImgYCbCr422ToBGR444)},
    {"ImgYCbCr422ToRGB444", C2, W, One, One, false, 2, -1, ALL5(WORDS, ImgYCbCr422ToRGB444)},
    {"ImgRGBToYCbCr420C3P3", C3, kPlanes420, One, Three, false, 1, -1, ALL5(TO_420, ImgRGBToYCbCr420C3P3)},
    {"ImgYCbCr420ToRGBP3C3", kPlanes420, C3, Three, One, false, 1, -1, ALL5(FROM_420, ImgYCbCr420ToRGBP3C3)},
    {"ImgRGBToYCbCrP3", kPlanesFull, kPlanesFull, One, One, false, 1, -1, ALL5(PLANES_ONE, ImgRGBToYCbCrP3)},
    {"ImgYCbCrToRGBP3", kPlanesFull, kPlanesFull, One, One, false, 1, -1, ALL5(PLANES_ONE, ImgYCbCrToRGBP3)},
    {"ImgRGBToYCbCrC3", C3, C3, One, One, false, 1, -1, ALL5(BYTES, ImgRGBToYCbCrC3)},
    {"ImgYCbCrToRGBC3", C3, C3, One, One, false, 1, -1, ALL5(BYTES, ImgYCbCrToRGBC3)},
    {"ImgRGBToYCbCrAC4", C4, C4, One, One, false, 1, -1, ALL5(BYTES, ImgRGBToYCbCrAC4)},
    {"ImgYCbCrToRGBAC4", C4, C4, One, One, false, 1, -1, ALL5(BYTES, ImgYCbCrToRGBAC4)},
    {"ImgYCbCrToRGB444", C3, W, One, One, false, 2, -1, ALL5(WORDS, ImgYCbCrToRGB444)},
    {"ImgYCbCrToBGR444", C3, W, One, One, false, 2, -1, ALL5(WORDS, ImgYCbCrToBGR444)},
    {"ImgYCbCrToRGB555", C3, W, One, One, false, 2, -1, ALL5(WORDS, ImgYCbCrToRGB555)},
    {"ImgYCbCrToBGR555", C3, W, One, One, false, 2, -1, ALL5(WORDS, ImgYCbCrToBGR555)},
    {"ImgYCbCrToRGB565", C3, W, One, One, false, 2, -1, ALL5(WORDS, ImgYCbCrToRGB565)},
    {"ImgYCbCrToBGR565", C3, W, One, One, false, 2, -1, ALL5(WORDS, ImgYCbCrToBGR565)},
    // Gray: index 24 on.
    {"ImgRGBToGray8uC3", C3, Packed(1), One, One, false, 1, -1, ALL5T(GRAY, ImgRGBToGray8uC3, uint8_t)},
    {"ImgRGBToGray16uC3", Packed(6), Packed(2), One, One, false, 2, -1, ALL5T(GRAY, ImgRGBToGray16uC3, uint16_t)},
    {"ImgRGBToGray16sC3", Packed(6), Packed(2), One, One, false, 2, -1, ALL5T(GRAY, ImgRGBToGray16sC3, int16_t)},
    {"ImgRGBToGray32fC3", Packed(12), Packed(4), One, One, false, 4, -1, ALL5T(GRAY, ImgRGBToGray32fC3, float)},
    {"ImgRGBToGray8uAC4", C4, Packed(1), One, One, false, 1, -1, ALL5T(GRAY, ImgRGBToGray8uAC4, uint8_t)},
    {"ImgRGBToGray16uAC4", Packed(8), Packed(2), One, One, false, 2, -1, ALL5T(GRAY, ImgRGBToGray16uAC4, uint16_t)},
    {"ImgRGBToGray16sAC4", Packed(8), Packed(2), One, One, false, 2, -1, ALL5T(GRAY, ImgRGBToGray16sAC4, int16_t)},
    {"ImgRGBToGray32fAC4", Packed(16), Packed(4), One, One, false, 4, -1, ALL5T(GRAY, ImgRGBToGray32fAC4, float)},
    {"ImgColorToGray8uC3", C3, Packed(1), One, One, false, 1, 24, ALL5T(WEIGHTED, ImgColorToGray8uC3, uint8_t)},
    {"ImgColorToGray16uC3", Packed(6), Packed(2), One, One, false, 2, 25,
     ALL5T(WEIGHTED, ImgColorToGray16uC3, uint16_t)},
    {"ImgColorToGray16sC3", Packed(6), Packed(2), One, One, false, 2, 26,
     ALL5T(WEIGHTED, ImgColorToGray16sC3, int16_t)},
    {"ImgColorToGray32fC3", Packed(12), Packed(4), One, One, false, 4, 27, ALL5T(WEIGHTED, ImgColorToGray32fC3, float)},
    {"ImgColorToGray8uAC4", C4, Packed(1), One, One, false, 1, 28, ALL5T(WEIGHTED, ImgColorToGray8uAC4, uint8_t)},
    {"ImgColorToGray16uAC4", Packed(8), Packed(2), One, One, false, 2, 29,
     ALL5T(WEIGHTED, ImgColorToGray16uAC4, uint16_t)},
    {"ImgColorToGray16sAC4", Packed(8), Packed(2), One, One, false, 2, 30,
     ALL5T(WEIGHTED, ImgColorToGray16sAC4, int16_t)},
    {"ImgColorToGray32fAC4", Packed(16), Packed(4), One, One, false, 4, 31,
     ALL5T(WEIGHTED, ImgColorToGray32fAC4, float)},
    {"ImgRGBToYUV422C3C2", C3, C2, One, One, false, 1, -1, ALL5T(GRAY, ImgRGBToYUV422C3C2, uint8_t)},
};
constexpr uint32_t kMemberCount = sizeof(kMembers) / sizeof(kMembers[0]);
const char* const kEntryNames[5] = {"plain", "px", "m6", "a6", "w7"};

// Room behind each destination plane: the 4:2:2 members may finish an odd
// line's pair past its last pixel.
constexpr size_t kSlack = 4;

// Runs `entry` again on copies of the destination as it was, and returns
// the bytes it leaves there.
std::vector<std::vector<uint8_t>> RunOnCopies(const CheckedCall& c, Entry entry, const float* weights) {
    std::vector<std::unique_ptr<ExactBuffer>> copies;
    uint8_t* ptrs[3] = {};
    for (int p = 0; p < c.dst.count; ++p) {
        copies.push_back(std::make_unique<ExactBuffer>(c.dst.planes[p].before.size(), 0));
        std::memcpy(copies.back()->data(), c.dst.planes[p].before.data(), c.dst.planes[p].before.size());
        ptrs[p] = copies.back()->data();
    }
    ImageCall again = c.call;
    again.dstPacked = ptrs[0];
    again.dstPlanes = ptrs;
    FUZZ_CHECK(entry(again, weights) == PrimStatusOk, "a second run failed");
    std::vector<std::vector<uint8_t>> out;
    for (auto& copy : copies) out.push_back(copy->Contents());
    return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const IsaCeiling isa(data, size);
    FuzzInput in(data, size);
    const Member& m = kMembers[in.Below(kMemberCount)];
    const uint32_t entry = in.Below(5);
    // Weights: null (the defaults), the default values, or any three.
    const uint8_t weightsHow = in.Byte();
    float weights[3] = {0.299f, 0.587f, 0.114f};
    if (weightsHow >= 170)
        for (float& w : weights) w = static_cast<float>(static_cast<int32_t>(in.U16()) - 16384) / 32768.0f;
    const float* weightsArg = weightsHow < 85 ? nullptr : weights;

    CheckedCall c;
    PrepareCall(in, c, m.src, m.srcSteps, m.dst, m.dstSteps, m.stepsBeforePlanes, kSlack, 1, m.element);
    const PrimStatus status = m.entries[entry](c.call, weightsArg);
    FUZZ_CHECK(status == c.expected, "%s %s %dx%d: status %d, expected %d", m.name, kEntryNames[entry], c.call.width,
               c.call.height, status, c.expected);
    FUZZ_CHECK(SourceUnchanged(c), "%s %s changed its source", m.name, kEntryNames[entry]);
    if (!c.accepted) {
        FUZZ_CHECK(DestinationUnchanged(c), "%s %s wrote after a failed check", m.name, kEntryNames[entry]);
        return 0;
    }
    if (DestinationOverlaps(c)) return 0;  // bounds only

    std::vector<std::vector<uint8_t>> got;
    for (int p = 0; p < c.dst.count; ++p) got.push_back(c.dst.planes[p].bytes->Contents());
    const uint32_t tierEntry = entry == 0 ? 1 : entry;
    if (entry == 0)
        FUZZ_CHECK(RunOnCopies(c, m.entries[1], weightsArg) == got, "%s: the plain name differs from px", m.name);
    if (m.defaultsOf >= 0 && weightsArg == nullptr)
        FUZZ_CHECK(RunOnCopies(c, kMembers[m.defaultsOf].entries[tierEntry], nullptr) == got,
                   "%s %s: null weights differ from %s", m.name, kEntryNames[entry], kMembers[m.defaultsOf].name);
    return 0;
}
