#include "runtime/isa.h"

#include <atomic>

namespace pixmoor::isa {
namespace {

Level Detect() {
#if PIXMOOR_HAVE_X86_TARGETS
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
        __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx2"))
        return kAvx512;
    if (__builtin_cpu_supports("avx2")) return kAvx2;
    if (__builtin_cpu_supports("sse2")) return kSse2;
#endif
    return kPlain;
}

std::atomic<int> g_limit{kAvx512};

}  // namespace

Level Detected() {
    static const Level detected = Detect();
    return detected;
}

Level Limit() { return static_cast<Level>(g_limit.load(std::memory_order_relaxed)); }

Level Current() {
    const Level limit = Limit();
    const Level detected = Detected();
    return limit < detected ? limit : detected;
}

void SetLimit(Level limit) { g_limit.store(limit, std::memory_order_relaxed); }

ScopedLimit::ScopedLimit(Level limit) : previous_(Limit()) { SetLimit(limit); }

ScopedLimit::~ScopedLimit() { SetLimit(previous_); }

}  // namespace pixmoor::isa
