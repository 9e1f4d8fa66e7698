// Frame-sized blocks (4 MiB and more) that lie apart go through the AVX2
// loop where the processor has it: on such blocks it ran about 5 percent
// faster here than the string move, and no faster on smaller ones.
// Otherwise, where the processor reports fast string
// moves, a block goes through the string move instruction, which moved
// whole frames a few percent faster here than the C library's copy (which,
// past a size, turns to stores that bypass the cache the next step of a
// video chain reads from).  Elsewhere the C library copies.
#include "colour/block_copy.h"

#include "colour/byte_span.h"

#include <cstring>

#include "runtime/isa.h"

#if PIXMOOR_HAVE_X86_TARGETS
#include <cpuid.h>
#endif

namespace pixmoor {
namespace {

#if PIXMOOR_HAVE_X86_TARGETS
// Leaf 7, EBX bit 9: enhanced string moves.
bool HasFastStringMoves() {
    unsigned int eax = 0, ebx = 0, ecx = 0, edx = 0;
    if (__get_cpuid_count(7, 0, &eax, &ebx, &ecx, &edx) == 0) return false;
    return (ebx & (1u << 9)) != 0;
}
#endif

}  // namespace

void CopyBlock(uint8_t* dst, const uint8_t* src, uint32_t bytes) {
#if PIXMOOR_HAVE_X86_TARGETS
    constexpr uint32_t kVectorLoopBytes = 4u << 20;
    if (bytes >= kVectorLoopBytes && isa::Has(isa::kAvx2) &&
        !ByteSpan::Of(dst, bytes).Overlaps(ByteSpan::Of(src, bytes))) {
        CopyBlockAvx2(dst, src, bytes);
        return;
    }
    static const bool fastStrings = HasFastStringMoves();
    if (fastStrings) {
        std::size_t count = bytes;
        __asm__ volatile("rep movsb" : "+D"(dst), "+S"(src), "+c"(count) : : "memory");
        return;
    }
#endif
    std::memcpy(dst, src, bytes);
}

}  // namespace pixmoor
