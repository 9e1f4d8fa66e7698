// Flattening the pixel run list of the RGB scaler, and lines through it.
#include "size/pixel_map.h"

#include <cstring>
#include <new>

#include "geometry/wrapping.h"
#include "size/pixel_map_avx2.h"

using pixmoor::WrapMul;

namespace {

// Pixels of N bytes, each from its offset.  For three-byte pixels the first
// `wholeWords` go as 4-byte moves, each fourth byte overwritten by the next
// pixel.
template <int N>
uint8_t* CopyMapped(const int32_t* offsets, int32_t pixels, int32_t wholeWords, const uint8_t* src, uint8_t* dst) {
    int32_t i = 0;
    if (N == 3) {
        for (; i < wholeWords; ++i, dst += 3) std::memcpy(dst, src + offsets[i], 4);
    }
    for (; i < pixels; ++i, dst += N) std::memcpy(dst, src + offsets[i], N);
    return dst;
}

}  // namespace

PixelMap::~PixelMap() { delete[] offsets_; }

bool PixelMap::Reserve(int32_t pixels) {
    delete[] offsets_;
    offsets_ = nullptr;
    capacity_ = 0;
    if (pixels < 1) return false;
    offsets_ = new (std::nothrow) int32_t[static_cast<size_t>(pixels)];
    if (offsets_ == nullptr) return false;
    capacity_ = pixels;
    return true;
}

bool PixelMap::Build(const ScaleRun* runs, int32_t bytesPerPixel, int32_t srcLineSize) {
    if (offsets_ == nullptr || bytesPerPixel < 1 || bytesPerPixel > 4) return false;
    // The walk's source position, as it moves: run by run, each step a
    // signed 32-bit distance.
    int64_t at = 0;
    int32_t n = 0;
    auto fits = [](int64_t offset) { return offset >= 0 && offset <= INT32_MAX - 4; };
    for (const ScaleRun* run = runs; run != nullptr; run = run->next) {
        // A negative count would walk backwards: offsets that fall, which
        // the copies below assume they never do.
        if (run->count < 0) return false;
        const int32_t bytes = WrapMul(run->count, bytesPerPixel);
        switch (run->kind) {
            case RunCopy:
                if (run->count > capacity_ - n || !fits(at + bytes)) return false;
                for (int32_t i = 0; i < run->count; ++i)
                    offsets_[n++] = static_cast<int32_t>(at + int64_t{i} * bytesPerPixel);
                at += bytes;
                break;
            case RunDuplicate:
                // The last source pixel taken lies just before the position.
                if (run->count > capacity_ - n || !fits(at - bytesPerPixel)) return false;
                for (int32_t i = 0; i < run->count; ++i) offsets_[n++] = static_cast<int32_t>(at - bytesPerPixel);
                break;
            case RunDrop:
                at += bytes;
                break;
            default:
                break;
        }
    }
    pixels_ = n;
    bytesPerPixel_ = bytesPerPixel;
    sourceBytes_ = at;
    srcLineSize_ = srcLineSize;
    int32_t whole = 0;
    while (whole < n - 1 && int64_t{offsets_[whole]} + 4 <= srcLineSize) ++whole;
    wholeWords_ = whole;
    return true;
}

uint8_t* PixelMap::CopyLine(const uint8_t* src, uint8_t* dst) const {
    switch (bytesPerPixel_) {
        case 1: return CopyMapped<1>(offsets_, pixels_, 0, src, dst);
        case 2: return CopyMapped<2>(offsets_, pixels_, 0, src, dst);
        case 3: return CopyMapped<3>(offsets_, pixels_, wholeWords_, src, dst);
        default:
#if PIXMOOR_HAVE_X86_TARGETS
            if (pixmoor::isa::Has(pixmoor::isa::kAvx2))
                return CopyMappedWordsAvx2(offsets_, pixels_, srcLineSize_, src, dst);
#endif
            return CopyMapped<4>(offsets_, pixels_, 0, src, dst);
    }
}
