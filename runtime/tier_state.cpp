// The tier whose column last filled the dispatch slots.  Selection may
// rewrite it while other threads read it through PrimGetTier, so both sides
// access it as one atomic word.
#include <pixmoor/runtime.h>

#include "runtime/dispatch.h"

extern "C" {
int32_t PrimCurrentTier = 0;

int32_t PrimGetTier(void) { return pixmoor::dispatch::RelaxedLoad(&PrimCurrentTier); }
}
