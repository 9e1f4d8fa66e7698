// Runs a test body once for every instruction-set level up to the one the
// processor offers, so that each fast path and every narrower fallback is
// compared with the same model.
#ifndef PIXMOOR_TESTS_ISA_LEVELS_H
#define PIXMOOR_TESTS_ISA_LEVELS_H

#include <gtest/gtest.h>

#include "runtime/isa.h"

namespace pixmoor_test {

template <typename Body>
void ForEachIsaLevel(Body body) {
    using namespace pixmoor::isa;
    for (int l = kPlain; l <= Detected(); ++l) {
        ScopedLimit limit(static_cast<Level>(l));
        SCOPED_TRACE(::testing::Message() << "instruction-set level " << l);
        body();
    }
}

}  // namespace pixmoor_test

#endif
