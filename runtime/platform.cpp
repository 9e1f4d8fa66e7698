// The native platform record and its replacement through PrimSetPlatform.
//
// On x86 the native record toggles the ID flag and runs the real CPUID; on
// any other processor it reports no CPUID, so detection ends at px.  The
// native message box writes one line to standard error; the beep is silent.
#include "runtime/platform.h"

#include <cstdio>

#if defined(__i386__) || defined(__x86_64__)
#include <cpuid.h>
#define PIXMOOR_NATIVE_CPUID 1
#endif

namespace {

#if PIXMOOR_NATIVE_CPUID
// Toggles the ID flag (bit 21) of the flags word, writes it back and reads it
// again: a processor with CPUID lets the bit change.  The flag is left as
// toggled, which nothing depends on.
int32_t NativeHasCpuid(void) {
    uintptr_t before;
    uintptr_t after;
    __asm__ volatile(
#if defined(__x86_64__)
        "sub $128, %%rsp\n\t"  // step over the red zone before pushing
#endif
        "pushf\n\t"
        "pop %0\n\t"
        "mov %0, %1\n\t"
        "xor %2, %1\n\t"
        "push %1\n\t"
        "popf\n\t"
        "pushf\n\t"
        "pop %1\n\t"
#if defined(__x86_64__)
        "add $128, %%rsp\n\t"
#endif
        : "=&r"(before), "=&r"(after)
        : "r"(static_cast<uintptr_t>(0x200000))
        : "cc");
    return before != after ? 1 : 0;
}

void NativeCpuid(uint32_t leaf, PrimCpuidRegs* out) {
    __cpuid_count(leaf, 0, out->eax, out->ebx, out->ecx, out->edx);
}
#else
int32_t NativeHasCpuid(void) { return 0; }

void NativeCpuid(uint32_t, PrimCpuidRegs* out) { *out = PrimCpuidRegs{0, 0, 0, 0}; }
#endif

void NativeMessageBeep(uint32_t) {}

void NativeMessageBox(const char* text, const char* caption, uint32_t) {
    std::fprintf(stderr, "%s: %s\n", caption != nullptr ? caption : "", text != nullptr ? text : "");
}

constexpr PrimPlatform kNative = {NativeHasCpuid, NativeCpuid, NativeMessageBeep, NativeMessageBox};

// The installed record is a copy, so the caller's record need not outlive
// the call; a null field keeps the native function.
PrimPlatform g_platform = kNative;

}  // namespace

namespace pixmoor::platform {
const PrimPlatform& Current() { return g_platform; }
}  // namespace pixmoor::platform

extern "C" void PrimSetPlatform(const PrimPlatform* platform) {
    if (platform == nullptr) {
        g_platform = kNative;
        return;
    }
    g_platform.hasCpuid = platform->hasCpuid != nullptr ? platform->hasCpuid : kNative.hasCpuid;
    g_platform.cpuid = platform->cpuid != nullptr ? platform->cpuid : kNative.cpuid;
    g_platform.messageBeep = platform->messageBeep != nullptr ? platform->messageBeep : kNative.messageBeep;
    g_platform.messageBox = platform->messageBox != nullptr ? platform->messageBox : kNative.messageBox;
}
