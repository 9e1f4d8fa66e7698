// Uses the public surface through the umbrella header only.
#include <pixmoor/pixmoor.h>

#include <cstdio>

int main() {
    AbsSIZE size(-320, 240);
    if (size.cx != 320 || RGBLineSize(5, 24) != 16) {
        std::puts("unexpected geometry");
        return 1;
    }
    uint8_t* block = px_SigMalloc8u(100);
    if (block == nullptr || (reinterpret_cast<uintptr_t>(block) & 31u) != 0) return 1;
    px_SigFree(block);
    std::puts("ok");
    return 0;
}
