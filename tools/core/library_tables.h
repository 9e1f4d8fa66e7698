// What the library's factories accept, found by asking them.
#ifndef PIXMOOR_TOOL_LIBRARY_TABLES_H
#define PIXMOOR_TOOL_LIBRARY_TABLES_H

#include <string>
#include <vector>

#include "core/formats.h"

namespace pixmoor_tool {

struct ColourPair {
    const FormatInfo* src;
    const FormatInfo* dst;
    bool hasRoutine;  // false for the pair the library accepts but can't run
};

// Every pair of canonical codes for which CColorXForm::CreateInstance makes
// a transform, by source then destination in the order of AllFormats.
std::vector<ColourPair> ColourPairs();

struct SizeFactoryEntry {
    std::string code;   // as handed to the factory
    uint32_t bits;
    bool made;          // CSizeXForm::CreateInstance gave an object
    bool cropPad;       // it accepts crop and pad (else only scaling)
};

// The size factory's answer for each format code the tool knows, plus
// "IYUV" and plain RGB ("0rgb") at 16, 24 and 32 bits.
std::vector<SizeFactoryEntry> SizeFactoryEntries();

}  // namespace pixmoor_tool

#endif
