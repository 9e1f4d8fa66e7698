#include <pixmoor/geometry.h>

uint32_t CreateRGBFCC(int32_t bitCount, uint32_t greenMask) {
    switch (bitCount) {
        case 24: return FCC_RG24;
        case 32: return FCC_RG32;
        case 16:
            if (greenMask == 0x3E0u) return FCC_RG55;
            if (greenMask == 0x7E0u) return FCC_RG56;
            return 0;
        default: return 0;
    }
}

uint32_t NormalizeCustFCC(uint32_t code, uint16_t& bitCount) {
    switch (code) {
        case FCC_I420: case FCC_i420:
            bitCount = 12;
            return FCC_I420;
        case FCC_YV12: case FCC_yv12:
            bitCount = 12;
            return FCC_YV12;
        case FCC_YUY2: case FCC_YUNV: case FCC_V422:
        case FCC_yuy2: case FCC_yunv: case FCC_v422:
            bitCount = 16;
            return FCC_YUY2;
        case FCC_UYVY: case FCC_Y422: case FCC_UYNV:
        case FCC_uyvy: case FCC_y422: case FCC_uynv:
            bitCount = 16;
            return FCC_UYVY;
        // Every RGB code folds to 0, the mark of uncompressed RGB; the depth
        // travels in bitCount, and 5-5-5 and 5-6-5 become indistinguishable.
        case FCC_RG24: case FCC_rg24:
            bitCount = 24;
            return 0;
        case FCC_RG55: case FCC_rg55: case FCC_RG56: case FCC_rg56:
            bitCount = 16;
            return 0;
        case FCC_RG32: case FCC_rg32:
            bitCount = 32;
            return 0;
        case 0: case FCC_0rgb:
            return 0;  // depth unstated: the caller's bitCount stands
        default:
            bitCount = 0;
            return 0xFFFFFFFFu;
    }
}
