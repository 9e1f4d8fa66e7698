#include "core/library_tables.h"

#include <memory>

#include <pixmoor/colour.h>
#include <pixmoor/size.h>

namespace pixmoor_tool {

std::vector<ColourPair> ColourPairs() {
    std::vector<ColourPair> pairs;
    for (const FormatInfo& src : AllFormats())
        for (const FormatInfo& dst : AllFormats()) {
            const std::unique_ptr<CColorXForm> xform(CColorXForm::CreateInstance(src.code, dst.code));
            if (xform) pairs.push_back({&src, &dst, !(src.code == FCC_I420 && dst.code == FCC_I420)});
        }
    return pairs;
}

std::vector<SizeFactoryEntry> SizeFactoryEntries() {
    std::vector<std::pair<std::string, uint32_t>> asks;
    for (const FormatInfo& f : AllFormats()) asks.emplace_back(f.name, uint32_t(f.bitsPerPixel));
    asks.insert(asks.begin() + 1, {"IYUV", 12});
    for (uint32_t bits : {16u, 24u, 32u}) asks.emplace_back("0rgb", bits);

    std::vector<SizeFactoryEntry> entries;
    for (const auto& [code, bits] : asks) {
        const uint32_t value = *FourCCFromText(code);
        const std::unique_ptr<CSizeXForm> xform(CSizeXForm::CreateInstance(value, bits));
        const bool cropPad = xform && CSizeXForm::IsSupported(value, bits, AbsSIZE(16, 16), AbsSIZE(8, 8), XFormCropPad);
        entries.push_back({code, bits, xform != nullptr, cropPad});
    }
    return entries;
}

}  // namespace pixmoor_tool
