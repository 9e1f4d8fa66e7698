// Element loads and stores that do not assume the natural alignment of the
// element type: float and integer vectors may start on any byte.
#ifndef PIXMOOR_PRIMITIVES_SIGNAL_ELEMENT_ACCESS_H
#define PIXMOOR_PRIMITIVES_SIGNAL_ELEMENT_ACCESS_H

#include <cstdint>
#include <cstring>

namespace pixmoor {
namespace signal {

template <typename T>
inline T LoadAt(const void* base, std::ptrdiff_t index) {
    T value;
    std::memcpy(&value, static_cast<const uint8_t*>(base) + index * static_cast<std::ptrdiff_t>(sizeof(T)),
                sizeof(T));
    return value;
}

template <typename T>
inline void StoreAt(void* base, std::ptrdiff_t index, T value) {
    std::memcpy(static_cast<uint8_t*>(base) + index * static_cast<std::ptrdiff_t>(sizeof(T)), &value,
                sizeof(T));
}

// Offset of element `index` of `width` values each, in values.
inline std::ptrdiff_t ElementOffset(int32_t index, int32_t width) {
    return static_cast<std::ptrdiff_t>(index) * width;
}

inline bool IsAligned(const void* p, uintptr_t bytes) {
    return (reinterpret_cast<uintptr_t>(p) & (bytes - 1)) == 0;
}

}  // namespace signal
}  // namespace pixmoor

#endif
