// Processor detection and the tier it earns.
#include <pixmoor/runtime.h>

#include "runtime/platform.h"

namespace {

// The reference vendor's identification string as CPUID leaf 0 returns it,
// in EBX, EDX, ECX order.
constexpr uint32_t kReferenceVendorEbx = 0x756E6547;
constexpr uint32_t kReferenceVendorEdx = 0x49656E69;
constexpr uint32_t kReferenceVendorEcx = 0x6C65746E;

constexpr uint32_t kFeatureMmx = 1u << 23;
constexpr uint32_t kFeatureSse = 1u << 25;
constexpr uint32_t kFeatureSse2 = 1u << 26;

PrimCpuidRegs Cpuid(uint32_t leaf) {
    PrimCpuidRegs regs = {0, 0, 0, 0};
    pixmoor::platform::Current().cpuid(leaf, &regs);
    return regs;
}

uint32_t FeatureFlag(uint32_t featureWord, uint32_t bit) { return (featureWord & bit) != 0 ? 1 : 0; }

}  // namespace

extern "C" {

int32_t CpuHasCpuid(void) { return pixmoor::platform::Current().hasCpuid() != 0 ? 1 : 0; }

int32_t CpuIsReferenceVendor(void) {
    const PrimCpuidRegs id = Cpuid(0);
    return (id.ebx == kReferenceVendorEbx && id.edx == kReferenceVendorEdx && id.ecx == kReferenceVendorEcx) ? 1 : 0;
}

// Leaf 1 gives the signature and the feature word, leaf 2 the cache words.
// reservedFlag is left as the caller had it.  processorType is derived from
// the family value already shifted down, so it is always 0; that is the
// record's long-standing content and callers compare against it.
void CpuReadInfo(CpuInfo* info) {
    const PrimCpuidRegs signature = Cpuid(1);
    info->family = (signature.eax >> 8) & 0xF;
    info->stepping = signature.eax & 0xF;
    info->model = (signature.eax >> 4) & 0xF;
    info->processorType = (info->family >> 11) & 3;
    info->featureWord = signature.edx;
    info->hasMmx = FeatureFlag(signature.edx, kFeatureMmx);
    info->hasSse = FeatureFlag(signature.edx, kFeatureSse);
    info->hasSse2 = FeatureFlag(signature.edx, kFeatureSse2);
    const PrimCpuidRegs cache = Cpuid(2);
    info->cacheInfoLow = cache.eax;
    info->cacheInfoHigh = cache.edx;
}

// Only the reference vendor's families 6 and 15 earn a vector tier, and a
// family 15 part earns w7 or nothing.  The feature bits decide alone; the
// operating system's support for the vector state is not probed.
PrimTier PrimDetectTier(void) {
    if (CpuHasCpuid() == 0) return PrimTierPx;
    if (CpuIsReferenceVendor() == 0) return PrimTierPx;
    CpuInfo info;
    info.reservedFlag = 0;
    CpuReadInfo(&info);
    if (info.family == 15) return info.hasSse2 != 0 ? PrimTierW7 : PrimTierPx;
    if (info.family == 6) {
        if (info.hasSse2 != 0) return PrimTierW7;
        if (info.hasSse != 0) return PrimTierA6;
        if (info.hasMmx != 0) return PrimTierM6;
    }
    return PrimTierPx;
}

}  // extern "C"
