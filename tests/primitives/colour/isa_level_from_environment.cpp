// Lets one run of this test program take a lower instruction-set ceiling,
// so that every test in it (the statistics and exhaustive ones included)
// can be run again on each narrower path:
//     PIXMOOR_TEST_ISA_LEVEL=0 build/tests/test_primitives_colour
// (0 plain, 1 SSE2, 2 AVX2, 3 AVX-512).  Without the variable the tests run
// at the level the processor offers; tests that lower it themselves
// (ForEachIsaLevel) restore this ceiling afterwards.
#include <cstdlib>

#include "runtime/isa.h"

namespace {

const bool kLevelApplied = [] {
    if (const char* text = std::getenv("PIXMOOR_TEST_ISA_LEVEL")) {
        const int level = std::atoi(text);
        if (level >= pixmoor::isa::kPlain && level <= pixmoor::isa::kAvx512)
            pixmoor::isa::SetLimit(static_cast<pixmoor::isa::Level>(level));
    }
    return true;
}();

}  // namespace
