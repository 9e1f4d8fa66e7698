// pixmoor info: the processor as the runtime sees it, the tier it selects
// and why, the version records and the tables of supported transforms.
#include <cstdio>
#include <string>

#include <pixmoor/runtime.h>

#include "core/commands.h"
#include "core/library_tables.h"
#include "core/tier_reason.h"

namespace pixmoor_tool {
namespace {

const char* YesNo(bool value) { return value ? "yes" : "no"; }

void PrintVersion(const char* side, const PrimVersion* v) {
    if (!v) {
        std::printf("  %-7s (none)\n", side);
        return;
    }
    std::printf("  %-7s %-8s %d.%d.%d.%d  target %.2s  \"%s\"  \"%s\"\n", side, v->name, v->versionMajor,
                v->versionMinor, v->versionMajorBuild, v->versionBuild, v->targetCpu, v->version, v->buildDate);
}

void PrintProcessor() {
    const bool hasCpuid = CpuHasCpuid() != 0;
    const bool reference = hasCpuid && CpuIsReferenceVendor() != 0;
    CpuInfo info = {};
    if (hasCpuid) CpuReadInfo(&info);

    std::printf("Processor, as the runtime's processor seam reports it\n");
    std::printf("  CPUID instruction      %s\n", YesNo(hasCpuid));
    if (hasCpuid) {
        std::printf("  reference vendor       %s\n", YesNo(reference));
        std::printf("  family, model, stepping  %u, %u, %u (base fields only)\n", info.family, info.model,
                    info.stepping);
        std::printf("  feature word           0x%08x: MMX %s, SSE %s, SSE2 %s\n", info.featureWord,
                    YesNo(info.hasMmx), YesNo(info.hasSse), YesNo(info.hasSse2));
        std::printf("  leaf 2 words           0x%08x 0x%08x\n", info.cacheInfoLow, info.cacheInfoHigh);
    }

    const TierVerdict verdict = ExplainTier(hasCpuid, reference, info);
    const int32_t detected = PrimDetectTier();
    std::printf("\nTier selection\n");
    std::printf("  detection picks       %s (%s): %s\n", TierName(detected).c_str(), TierInstructions(detected),
                verdict.reason.c_str());
    if (verdict.tier != detected)
        std::printf("  note                  the rules above give %s; the runtime answered %s\n",
                    TierName(verdict.tier).c_str(), TierName(detected).c_str());
    const int32_t before = PrimGetTier();
    const int32_t selected = PrimSelectBestTier();
    std::printf("  before selection      slots at %s\n", TierName(before).c_str());
    std::printf("  selection             %s; the slots now run %s\n", selected ? "succeeded" : "failed",
                TierName(PrimGetTier()).c_str());
}

void PrintVersions() {
    std::printf("\nVersion records of the tier in the slots\n");
    PrintVersion("image", ImgGetLibVersion());
    PrintVersion("signal", SigGetLibVersion());
    std::printf("\nVersion records of every tier\n");
    const PrimVersion* (*const image[4])(void) = {px_ImgGetLibVersion, m6_ImgGetLibVersion, a6_ImgGetLibVersion,
                                                  w7_ImgGetLibVersion};
    const PrimVersion* (*const signal[4])(void) = {px_SigGetLibVersion, m6_SigGetLibVersion, a6_SigGetLibVersion,
                                                   w7_SigGetLibVersion};
    for (int tier = 0; tier < 4; ++tier) {
        PrintVersion("image", image[tier]());
        PrintVersion("signal", signal[tier]());
    }
}

void PrintColourPairs() {
    const std::vector<ColourPair> pairs = ColourPairs();
    std::printf("\nColour conversions (CColorXForm): rows are sources, columns destinations\n        ");
    for (const FormatInfo& dst : AllFormats()) std::printf("%-6s", dst.name);
    std::printf("\n");
    for (const FormatInfo& src : AllFormats()) {
        std::printf("  %-6s", src.name);
        for (const FormatInfo& dst : AllFormats()) {
            const char* mark = "-";
            for (const ColourPair& p : pairs)
                if (p.src == &src && p.dst == &dst) mark = p.hasRoutine ? "yes" : "yes*";
            std::printf("%-6s", mark);
        }
        std::printf("\n");
    }
    std::printf("  %zu pairs.  * accepted and initialised, but the library has no routine for it: convert\n"
                "  passes its frames unchanged.  Aliases: %s.\n",
                pairs.size(), SpellingList().c_str());
}

void PrintSizeFactory() {
    std::printf("\nSize transforms (CSizeXForm)\n");
    for (const SizeFactoryEntry& e : SizeFactoryEntries()) {
        const char* what = !e.made ? "not accepted" : e.cropPad ? "crop and pad (centred)" : "scale (nearest neighbour)";
        std::printf("  %-5s %2u bits  %s\n", e.code.c_str(), e.bits, what);
    }
    std::printf("  resize sends RG32, RG55 and RG56 frames as plain RGB (0rgb) with their depth.\n");
}

}  // namespace

int RunInfo() {
    PrintProcessor();
    PrintVersions();
    PrintColourPairs();
    PrintSizeFactory();
    return 0;
}

}  // namespace pixmoor_tool
