/* The primitive layer's headers compile as C99. */
#include <pixmoor/pixmoor.h>

#include <stdio.h>

int main(void) {
    uint8_t* block = px_SigMalloc8u(10);
    if (block == NULL) return 1;
    px_SigFree(block);
    printf("tier %d\n", (int)PrimGetTier());
    return 0;
}
