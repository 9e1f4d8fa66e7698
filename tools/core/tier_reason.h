// Why tier detection picks the tier it picks, told from what the processor
// seam reports, so that `pixmoor info` can explain the library's choice.
#ifndef PIXMOOR_TOOL_TIER_REASON_H
#define PIXMOOR_TOOL_TIER_REASON_H

#include <cstdint>
#include <string>

#include <pixmoor/runtime.h>

namespace pixmoor_tool {

struct TierVerdict {
    int32_t tier;
    std::string reason;
};

// The detection rules: no CPUID or another vendor give px; family 15 gives
// w7 with SSE2 and px without; family 6 takes the best of w7, a6, m6 by its
// SSE2, SSE and MMX bits; every other family gives px.
TierVerdict ExplainTier(bool hasCpuid, bool referenceVendor, const CpuInfo& info);

// "px", "m6", "a6", "w7", or "tier N" for anything else.
std::string TierName(int32_t tier);
// The number of a tier name ("px" 0 to "w7" 3), -1 for anything else.
int32_t TierNumber(const std::string& name);
// What the code of a tier may use: "plain code", "MMX", "SSE", "SSE2".
const char* TierInstructions(int32_t tier);

}  // namespace pixmoor_tool

#endif
