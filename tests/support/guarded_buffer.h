// A byte buffer with canary bytes on both sides, so that a test can tell
// exactly which bytes a call wrote and that it wrote nothing outside.
#ifndef PIXMOOR_TESTS_GUARDED_BUFFER_H
#define PIXMOOR_TESTS_GUARDED_BUFFER_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <random>
#include <vector>

namespace pixmoor_test {

class GuardedBuffer {
public:
    static constexpr std::size_t kGuard = 64;
    static constexpr uint8_t kCanary = 0xA5;

    explicit GuardedBuffer(std::size_t size, uint8_t fill = kCanary)
        : size_(size), bytes_(size + 2 * kGuard, kCanary) {
        std::memset(data(), fill, size_);
    }

    uint8_t* data() { return bytes_.data() + kGuard; }
    const uint8_t* data() const { return bytes_.data() + kGuard; }
    std::size_t size() const { return size_; }
    uint8_t& operator[](std::size_t i) { return data()[i]; }
    uint8_t operator[](std::size_t i) const { return data()[i]; }

    // True while no byte outside [0, size) has been touched.
    bool GuardsIntact() const {
        for (std::size_t i = 0; i < kGuard; ++i)
            if (bytes_[i] != kCanary || bytes_[kGuard + size_ + i] != kCanary) return false;
        return true;
    }

    void FillRandom(uint32_t seed) {
        std::mt19937 rng(seed);
        for (std::size_t i = 0; i < size_; ++i) data()[i] = static_cast<uint8_t>(rng());
    }

    std::vector<uint8_t> Contents() const { return std::vector<uint8_t>(data(), data() + size_); }

    // True while no byte at all has been written: guards intact and every
    // byte inside still the canary (for buffers made with the default fill).
    bool Untouched() const {
        if (!GuardsIntact()) return false;
        for (std::size_t i = 0; i < size_; ++i)
            if (data()[i] != kCanary) return false;
        return true;
    }

private:
    std::size_t size_;
    std::vector<uint8_t> bytes_;
};

// True while none of the buffers has been written.
template <typename Buffers>
bool AllUntouched(const Buffers& buffers) {
    for (const auto& b : buffers)
        if (!b.Untouched()) return false;
    return true;
}

// Fills each channel in turn from one seeded sequence.
inline void FillChannelsRandom(std::initializer_list<std::vector<uint8_t>*> channels, uint32_t seed) {
    std::mt19937 rng(seed);
    for (auto* c : channels)
        for (auto& s : *c) s = static_cast<uint8_t>(rng());
}

inline std::vector<uint8_t> RandomBytes(std::size_t n, uint32_t seed) {
    std::mt19937 rng(seed);
    std::vector<uint8_t> v(n);
    for (auto& b : v) b = static_cast<uint8_t>(rng());
    return v;
}

}  // namespace pixmoor_test

#endif
