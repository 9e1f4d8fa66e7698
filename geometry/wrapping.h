// 32-bit arithmetic that wraps like the machine's registers, and pointer
// steps by a signed 32-bit distance.  Sizes, pitches and offsets come
// straight from the caller, so their products may leave the 32-bit range:
// they wrap instead of being undefined, and are widened with their sign only
// when added to a pointer, so that a negative gap moves backwards and a pitch
// of 0 lays rows over one another on 32- and 64-bit builds alike.
#ifndef PIXMOOR_GEOMETRY_WRAPPING_H
#define PIXMOOR_GEOMETRY_WRAPPING_H

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

// Truncates toward zero like the processor's conversion: a value outside the
// 32-bit range, infinity or NaN gives the "integer indefinite" 0x80000000.
inline int32_t TruncateToInt32(double v) {
    if (!(v > -2147483649.0 && v < 2147483648.0)) return INT32_MIN;
    return static_cast<int32_t>(v);
}

// Moves a pointer by a signed 32-bit distance, sign-extended.
template <typename T>
inline T* Step(T* p, int32_t bytes) {
    return p + static_cast<std::ptrdiff_t>(bytes);
}

}  // namespace pixmoor

#endif
