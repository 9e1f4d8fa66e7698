// Every mirror member in every tier behind one calling form, so that tests
// can walk them all.
#ifndef PIXMOOR_TESTS_MIRROR_MEMBERS_H
#define PIXMOOR_TESTS_MIRROR_MEMBERS_H

#include <pixmoor/primitives/mirror.h>

#include <string>
#include <vector>

namespace mirror_test {

using ToDestination = PrimStatus (*)(const void* src, int32_t srcStep, void* dst, int32_t dstStep, int32_t width,
                                     int32_t height, int32_t axis);
using InPlace = PrimStatus (*)(void* srcDst, int32_t step, int32_t width, int32_t height, int32_t axis);

template <typename T, PrimStatus (*Fn)(const T*, int32_t, T*, int32_t, int32_t, int32_t, MirrorAxis)>
PrimStatus CallToDestination(const void* s, int32_t ss, void* d, int32_t ds, int32_t w, int32_t h, int32_t axis) {
    return Fn(static_cast<const T*>(s), ss, static_cast<T*>(d), ds, w, h, static_cast<MirrorAxis>(axis));
}

template <typename T, PrimStatus (*Fn)(T*, int32_t, int32_t, int32_t, MirrorAxis)>
PrimStatus CallInPlace(void* p, int32_t step, int32_t w, int32_t h, int32_t axis) {
    return Fn(static_cast<T*>(p), step, w, h, static_cast<MirrorAxis>(axis));
}

constexpr const char* kTierNames[5] = {"px", "m6", "a6", "w7", "plain"};

struct Member {
    const char* name;
    int elementBytes;
    int channels;    // 1, 3, or 4 for AC4
    bool inPlace;
    ToDestination toDestination[5];  // px, m6, a6, w7, plain name
    InPlace inPlaceCall[5];

    int pixelBytes() const { return elementBytes * channels; }
    // Bytes of a pixel that the member moves: all but the alpha of AC4.
    int movedBytes() const { return elementBytes * (channels == 4 ? 3 : channels); }
    int stepMask() const { return ~(elementBytes - 1); }
};

#define MIRROR_TEST_TO(name, T)                                                                            \
    Member{#name, sizeof(T), 0, false,                                                                     \
           {CallToDestination<T, px_##name>, CallToDestination<T, m6_##name>, CallToDestination<T, a6_##name>, \
            CallToDestination<T, w7_##name>, CallToDestination<T, name>},                                   \
           {}}
#define MIRROR_TEST_IN(name, T)                                                                                  \
    Member{#name, sizeof(T), 0, true, {},                                                                       \
           {CallInPlace<T, px_##name>, CallInPlace<T, m6_##name>, CallInPlace<T, a6_##name>,                    \
            CallInPlace<T, w7_##name>, CallInPlace<T, name>}}

inline std::vector<Member> AllMembers() {
    std::vector<Member> all = {
        MIRROR_TEST_TO(ImgMirror8uC1, uint8_t),    MIRROR_TEST_TO(ImgMirror8uC3, uint8_t),
        MIRROR_TEST_TO(ImgMirror8uAC4, uint8_t),   MIRROR_TEST_TO(ImgMirror16uC1, uint16_t),
        MIRROR_TEST_TO(ImgMirror16uC3, uint16_t),  MIRROR_TEST_TO(ImgMirror16uAC4, uint16_t),
        MIRROR_TEST_TO(ImgMirror32sC1, int32_t),   MIRROR_TEST_TO(ImgMirror32sC3, int32_t),
        MIRROR_TEST_TO(ImgMirror32sAC4, int32_t),  MIRROR_TEST_IN(ImgMirror8uC1I, uint8_t),
        MIRROR_TEST_IN(ImgMirror8uC3I, uint8_t),   MIRROR_TEST_IN(ImgMirror8uAC4I, uint8_t),
        MIRROR_TEST_IN(ImgMirror16uC1I, uint16_t), MIRROR_TEST_IN(ImgMirror16uC3I, uint16_t),
        MIRROR_TEST_IN(ImgMirror16uAC4I, uint16_t), MIRROR_TEST_IN(ImgMirror32sC1I, int32_t),
        MIRROR_TEST_IN(ImgMirror32sC3I, int32_t),  MIRROR_TEST_IN(ImgMirror32sAC4I, int32_t),
    };
    // The channel layout is the name's suffix.
    for (Member& m : all) {
        const std::string name = m.name;
        m.channels = name.find("AC4") != std::string::npos ? 4 : name.find("C3") != std::string::npos ? 3 : 1;
    }
    return all;
}

#undef MIRROR_TEST_TO
#undef MIRROR_TEST_IN

}  // namespace mirror_test

#endif
