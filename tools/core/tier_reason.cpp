#include "core/tier_reason.h"

namespace pixmoor_tool {

namespace {

const char* const kTierNames[] = {"px", "m6", "a6", "w7"};

}  // namespace

std::string TierName(int32_t tier) {
    if (tier >= 0 && tier < 4) return kTierNames[tier];
    return "tier " + std::to_string(tier);
}

int32_t TierNumber(const std::string& name) {
    for (int32_t tier = 0; tier < 4; ++tier)
        if (name == kTierNames[tier]) return tier;
    return -1;
}

const char* TierInstructions(int32_t tier) {
    static const char* const kWhat[] = {"plain code", "MMX", "SSE", "SSE2"};
    return tier >= 0 && tier < 4 ? kWhat[tier] : "no code";
}

TierVerdict ExplainTier(bool hasCpuid, bool referenceVendor, const CpuInfo& info) {
    if (!hasCpuid) return {PrimTierPx, "the processor reports no CPUID instruction"};
    if (!referenceVendor) return {PrimTierPx, "the processor is not of the reference vendor; its features are not looked at"};
    const std::string family = "family " + std::to_string(info.family);
    if (info.family == 15) {
        if (info.hasSse2) return {PrimTierW7, family + " with SSE2"};
        return {PrimTierPx, family + " without SSE2 (family 15 has no fallback to a6 or m6)"};
    }
    if (info.family == 6) {
        if (info.hasSse2) return {PrimTierW7, family + " with SSE2"};
        if (info.hasSse) return {PrimTierA6, family + " with SSE but no SSE2"};
        if (info.hasMmx) return {PrimTierM6, family + " with MMX but no SSE"};
        return {PrimTierPx, family + " without MMX"};
    }
    return {PrimTierPx, family + ": only families 6 and 15 get vector tiers"};
}

}  // namespace pixmoor_tool
