// Helpers shared by the fuzz harnesses: reading arguments out of the fuzzer's
// bytes, buffers of exactly the size the arguments describe (so that
// AddressSanitizer sees the first byte read or written past them), and the
// check that ends a run when a property fails.
#ifndef PIXMOOR_TESTS_FUZZ_SUPPORT_H
#define PIXMOOR_TESTS_FUZZ_SUPPORT_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include "runtime/isa.h"

namespace pixmoor_fuzz {

// A property that must hold: abort with the reason, so that the fuzzer keeps
// the input that broke it.
#define FUZZ_CHECK(condition, ...)                                                   \
    do {                                                                             \
        if (!(condition)) {                                                          \
            std::fprintf(stderr, "%s:%d: property failed: %s\n  ", __FILE__, __LINE__, \
                         #condition);                                                \
            std::fprintf(stderr, __VA_ARGS__);                                       \
            std::fprintf(stderr, "\n");                                              \
            std::abort();                                                            \
        }                                                                            \
    } while (0)

// Takes values from the front of the input; once it is used up every value
// reads as zero, so any input is a complete set of arguments.
class FuzzInput {
public:
    FuzzInput(const uint8_t* data, size_t size) : data_(data), size_(size) {}

    uint8_t Byte() { return pos_ < size_ ? data_[pos_++] : 0; }
    uint16_t U16() { return static_cast<uint16_t>(Byte() | Byte() << 8); }
    uint32_t U32() { return static_cast<uint32_t>(U16()) | static_cast<uint32_t>(U16()) << 16; }
    int32_t I32() { return static_cast<int32_t>(U32()); }
    bool Bool() { return (Byte() & 1) != 0; }
    // A value in 0..count-1.
    uint32_t Below(uint32_t count) { return count == 0 ? 0 : (count <= 256 ? Byte() : U32()) % count; }
    // Mostly small positive numbers; now and then 0, a negative number or any
    // 32-bit value, for the checks that reject them.
    int32_t Length(int32_t largest) {
        const uint8_t how = Byte();
        if (how < 200) return 1 + static_cast<int32_t>(U16() % static_cast<uint32_t>(largest));
        if (how < 215) return 0;
        if (how < 235) return -static_cast<int32_t>(Byte());
        return I32();
    }
    // Fills a buffer with the rest of the input, repeated, or with a counter
    // when the input is used up.
    void Fill(uint8_t* out, size_t n) {
        const size_t left = size_ - pos_;
        for (size_t i = 0; i < n; ++i)
            out[i] = left != 0 ? static_cast<uint8_t>(data_[pos_ + i % left] ^ (i >> 8)) : static_cast<uint8_t>(i * 31 + 7);
    }

private:
    const uint8_t* data_;
    size_t size_;
    size_t pos_ = 0;
};

// Heap bytes of exactly the asked size behind a chosen misalignment, so that
// kernels are tried at every alignment and the sanitizer's red zone starts at
// the first byte past the end.
class ExactBuffer {
public:
    ExactBuffer(size_t size, size_t misalign) : size_(size), block_(new uint8_t[size + misalign]), data_(block_.get() + misalign) {}
    uint8_t* data() { return data_; }
    const uint8_t* data() const { return data_; }
    size_t size() const { return size_; }
    std::vector<uint8_t> Contents() const { return std::vector<uint8_t>(data_, data_ + size_); }
    bool Equals(const std::vector<uint8_t>& bytes) const {
        return bytes.size() == size_ && (size_ == 0 || std::memcmp(bytes.data(), data_, size_) == 0);
    }

private:
    size_t size_;
    std::unique_ptr<uint8_t[]> block_;
    uint8_t* data_;
};

// Holds, for one input, an instruction-set ceiling chosen by the input's last
// byte (which the harness reads as data too), so that every fast path and
// each narrower fallback of the library meets the same properties.
class IsaCeiling {
public:
    IsaCeiling(const uint8_t* data, size_t size) : limit_(Choose(data, size)) {}

private:
    static pixmoor::isa::Level Choose(const uint8_t* data, size_t size) {
        const int levels = pixmoor::isa::Detected() + 1;
        return static_cast<pixmoor::isa::Level>(size == 0 ? levels - 1 : data[size - 1] % levels);
    }
    pixmoor::isa::ScopedLimit limit_;
};

// Index of the first byte where two byte strings differ, or -1.
inline long FirstDifference(const uint8_t* a, const uint8_t* b, size_t n) {
    for (size_t i = 0; i < n; ++i)
        if (a[i] != b[i]) return static_cast<long>(i);
    return -1;
}

}  // namespace pixmoor_fuzz

#endif
