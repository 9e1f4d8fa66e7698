// Watches the array allocations that the transforms make at Init (they use
// the non-throwing form), and can make them fail.
#ifndef PIXMOOR_TESTS_COLOUR_ALLOCATION_PROBE_H
#define PIXMOOR_TESTS_COLOUR_ALLOCATION_PROBE_H

namespace colour_test {

struct AllocationProbe {
    int allocations = 0;  // non-throwing array allocations that succeeded
    int releases = 0;     // array releases of non-null blocks
    bool fail = false;    // make non-throwing array allocations return null
};

// Starts watching with fresh counts; stops when the guard goes out of scope.
class ProbeScope {
public:
    explicit ProbeScope(bool fail = false);
    ~ProbeScope();
    const AllocationProbe& counts() const;
};

}  // namespace colour_test

#endif
