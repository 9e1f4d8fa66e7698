// Address arithmetic of the colour routines.  Pitches, gaps and offsets are
// signed 32-bit numbers whose products wrap in 32 bits; they are widened with
// their sign only when added to a pointer, so a negative gap moves backwards
// and a pitch of 0 lays rows over one another, on 32- and 64-bit builds alike.
#ifndef PIXMOOR_COLOUR_POINTER_STEPS_H
#define PIXMOOR_COLOUR_POINTER_STEPS_H

#include <cstddef>
#include <cstdint>

namespace pixmoor {

inline int32_t WrapMul(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b));
}

inline int32_t WrapAdd(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

inline int32_t WrapSub(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b));
}

template <typename T>
inline T* Step(T* p, int32_t bytes) {
    return p + static_cast<std::ptrdiff_t>(bytes);
}

}  // namespace pixmoor

#endif
