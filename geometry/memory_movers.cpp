#include <pixmoor/geometry.h>

#include <cstring>

namespace {
constexpr uint32_t kSmallBlockLimit = 512;
}

void MoveMem(void* dst, const void* src, uint32_t count) {
    if (count <= kSmallBlockLimit)
        std::memmove(dst, src, count);
    else
        MMXmemmove(dst, src, count);
}

void SetMem(void* dst, int32_t value, uint32_t count) {
    if (count > kSmallBlockLimit) {
        MMXmemset(dst, value, count);
        return;
    }
    // Words first, then the remaining count & 3 bytes; no alignment needed.
    const uint8_t byte = static_cast<uint8_t>(value);
    const uint32_t word = byte * 0x01010101u;
    uint8_t* p = static_cast<uint8_t*>(dst);
    for (uint32_t i = 0; i < (count >> 2); ++i, p += 4) std::memcpy(p, &word, 4);
    for (uint32_t i = 0; i < (count & 3u); ++i) *p++ = byte;
}

// The large-block mover has always had an empty body, so MoveMem of more than
// 512 bytes moves nothing.  Callers that need a large block moved use memmove.
void MMXmemmove(void*, const void*, uint32_t) {}

// The large-block fill has always been three guarded stages whose guards are
// ANDs with zero: the head and tail never run, and the block stage runs once.
// What remains is one 8-byte store at dst + (dst & 7) of a value read through
// a pointer that nothing set.  The value is therefore unspecified; this build
// stores a fixed word unrelated to `value`.  The rest of the block is left
// untouched.  (There is no multimedia state to leave dirty on this build.)
void MMXmemset(void* dst, int32_t, uint32_t) {
    static const uint8_t kUnsetPattern[8] = {0xDE, 0xAD, 0xBE, 0xEF, 0xDE, 0xAD, 0xBE, 0xEF};
    uint8_t* p = static_cast<uint8_t*>(dst);
    const uintptr_t head = reinterpret_cast<uintptr_t>(p) & 7u;
    std::memcpy(p + head, kUnsetPattern, 8);
}
