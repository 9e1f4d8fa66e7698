// Replaces the global array allocation operators of this test program so the
// tests can count what Init allocates and releases, and make it fail.
#include "allocation_probe.h"

#include <cstdlib>
#include <new>

namespace {
colour_test::AllocationProbe g_probe;
bool g_watching = false;
}  // namespace

namespace colour_test {
ProbeScope::ProbeScope(bool fail) {
    g_probe = AllocationProbe{};
    g_probe.fail = fail;
    g_watching = true;
}
ProbeScope::~ProbeScope() { g_watching = false; }
const AllocationProbe& ProbeScope::counts() const { return g_probe; }
}  // namespace colour_test

void* operator new[](std::size_t n, const std::nothrow_t&) noexcept {
    if (g_watching && g_probe.fail) return nullptr;
    void* p = std::malloc(n == 0 ? 1 : n);
    if (g_watching && p != nullptr) ++g_probe.allocations;
    return p;
}

void* operator new[](std::size_t n) {
    void* p = std::malloc(n == 0 ? 1 : n);
    if (p == nullptr) throw std::bad_alloc();
    return p;
}

void operator delete[](void* p) noexcept {
    if (g_watching && p != nullptr) ++g_probe.releases;
    std::free(p);
}

void operator delete[](void* p, std::size_t) noexcept { operator delete[](p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { operator delete[](p); }
