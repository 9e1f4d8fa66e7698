// The tier whose column last filled the dispatch slots.
#include <pixmoor/runtime.h>

extern "C" {
int32_t PrimCurrentTier = 0;

int32_t PrimGetTier(void) { return PrimCurrentTier; }
}
