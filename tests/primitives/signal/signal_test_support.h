// Helpers shared by the signal tests: vectors placed at any byte offset, so
// that kernels meet every alignment, and seeded sample generators.
#ifndef PIXMOOR_TESTS_SIGNAL_SUPPORT_H
#define PIXMOOR_TESTS_SIGNAL_SUPPORT_H

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

namespace signal_test {

// Bytes of a vector starting `offset` bytes past a 64-byte boundary, with
// canary bytes before and after it.
class PlacedVector {
public:
    static constexpr std::size_t kGuard = 64;
    static constexpr uint8_t kCanary = 0x5A;

    PlacedVector(std::size_t bytes, std::size_t offset)
        : bytes_(bytes), storage_(bytes + 2 * kGuard + 128, kCanary) {
        const uintptr_t raw = reinterpret_cast<uintptr_t>(storage_.data()) + kGuard;
        start_ = static_cast<std::size_t>(((raw + 63) & ~uintptr_t{63}) - reinterpret_cast<uintptr_t>(storage_.data())) + offset;
    }

    uint8_t* data() { return storage_.data() + start_; }
    const uint8_t* data() const { return storage_.data() + start_; }
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
    void Set(std::size_t i, T v) { std::memcpy(data() + i * sizeof(T), &v, sizeof(T)); }

    template <typename T>
    void Fill(const std::vector<T>& values) { std::memcpy(data(), values.data(), values.size() * sizeof(T)); }

    bool GuardsIntact() const {
        for (std::size_t i = 0; i < start_; ++i)
            if (storage_[i] != kCanary) return false;
        for (std::size_t i = start_ + bytes_; i < storage_.size(); ++i)
            if (storage_[i] != kCanary) return false;
        return true;
    }
    std::vector<uint8_t> Contents() const { return std::vector<uint8_t>(data(), data() + bytes_); }

private:
    std::size_t bytes_;
    std::vector<uint8_t> storage_;
    std::size_t start_;
};

// Floats of mixed sign and magnitude, so that the order of additions shows
// in the last bits.
template <typename T>
std::vector<T> MixedFloats(std::size_t n, uint32_t seed) {
    std::mt19937 rng(seed);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    std::uniform_int_distribution<int> exponent(-12, 12);
    std::vector<T> v(n);
    for (auto& x : v) x = static_cast<T>(std::ldexp(unit(rng), exponent(rng)));
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
