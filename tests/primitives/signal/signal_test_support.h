// Helpers shared by the signal tests: vectors placed at any byte offset, so
// that kernels meet every alignment, and seeded sample generators.
#ifndef PIXMOOR_TESTS_SIGNAL_SUPPORT_H
#define PIXMOOR_TESTS_SIGNAL_SUPPORT_H

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include "guarded_buffer.h"

namespace signal_test {

// Bytes of a vector starting `offset` bytes past a 64-byte boundary, inside
// a guarded buffer whose unused bytes keep their canary value too.
class PlacedVector {
public:
    // Test vectors stay far below 2^30 bytes; the bound tells the compiler so.
    PlacedVector(std::size_t bytes, std::size_t offset)
        : bytes_(bytes & kMaxBytes), buffer_((bytes & kMaxBytes) + 64 + (offset & 63)) {
        const uintptr_t raw = reinterpret_cast<uintptr_t>(buffer_.data());
        start_ = static_cast<std::size_t>(((raw + 63) & ~uintptr_t{63}) - raw) + (offset & 63);
    }

    uint8_t* data() { return buffer_.data() + start_; }
    const uint8_t* data() const { return buffer_.data() + start_; }
    std::size_t size() const { return bytes_; }

    template <typename T>
    T* as() { return reinterpret_cast<T*>(data()); }

    template <typename T>
    T Get(std::size_t i) const {
        T v;
        std::memcpy(&v, data() + i * sizeof(T), sizeof(T));
        return v;
    }

    template <typename T>
    void Fill(const std::vector<T>& values) { std::memcpy(data(), values.data(), values.size() * sizeof(T)); }

    bool GuardsIntact() const {
        if (!buffer_.GuardsIntact()) return false;
        for (std::size_t i = 0; i < start_; ++i)
            if (buffer_[i] != pixmoor_test::GuardedBuffer::kCanary) return false;
        for (std::size_t i = start_ + bytes_; i < buffer_.size(); ++i)
            if (buffer_[i] != pixmoor_test::GuardedBuffer::kCanary) return false;
        return true;
    }
    std::vector<uint8_t> Contents() const { return std::vector<uint8_t>(data(), data() + bytes_); }

private:
    static constexpr std::size_t kMaxBytes = (std::size_t{1} << 30) - 1;
    std::size_t bytes_;
    pixmoor_test::GuardedBuffer buffer_;
    std::size_t start_;
};

// Floats of mixed sign and magnitude, so that the order of additions shows
// in the last bits.  With `cancelling`, one value in sixteen is a huge one of
// either sign, so that even double accumulators round and the running sums
// cancel: every plan then gives its own bits.
template <typename T>
std::vector<T> MixedFloats(std::size_t n, uint32_t seed, bool cancelling = true) {
    std::mt19937 rng(seed);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    std::uniform_int_distribution<int> exponent(-12, 12);
    std::vector<T> v(n);
    for (auto& x : v) {
        if (cancelling && rng() % 16 == 0) x = static_cast<T>(std::ldexp(rng() % 2 ? 1.0 : -1.0, 60 + rng() % 4));
        else x = static_cast<T>(std::ldexp(unit(rng), exponent(rng)));
    }
    return v;
}

inline std::vector<int16_t> RandomShorts(std::size_t n, uint32_t seed) {
    std::mt19937 rng(seed);
    std::vector<int16_t> v(n);
    for (auto& x : v) x = static_cast<int16_t>(rng());
    return v;
}

template <typename T>
bool SameBits(T a, T b) { return std::memcmp(&a, &b, sizeof(T)) == 0; }

}  // namespace signal_test

#endif
