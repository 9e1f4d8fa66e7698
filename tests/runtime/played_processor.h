// A processor and a user played through the platform seam, and a guard that
// puts the runtime's shared state back as a test found it.
#ifndef PIXMOOR_TESTS_RUNTIME_PLAYED_PROCESSOR_H
#define PIXMOOR_TESTS_RUNTIME_PLAYED_PROCESSOR_H

#include <pixmoor/runtime.h>

#include <array>
#include <cstring>
#include <string>
#include <vector>

namespace pixmoor_test {

// The reference vendor's three identification words (EBX, EDX, ECX).
constexpr uint32_t kVendorB = 0x756E6547, kVendorD = 0x49656E69, kVendorC = 0x6C65746E;
constexpr uint32_t kMmx = 1u << 23, kSse = 1u << 25, kSse2 = 1u << 26;

struct PlayedProcessor {
    bool hasCpuid = true;
    uint32_t vendor[3] = {kVendorB, kVendorD, kVendorC};  // EBX, EDX, ECX of leaf 0
    uint32_t signature = 0;                               // EAX of leaf 1
    uint32_t features = 0;                                // EDX of leaf 1
    uint32_t cacheLow = 0, cacheHigh = 0;                 // EAX, EDX of leaf 2

    static PlayedProcessor Reference(uint32_t family, uint32_t features, uint32_t model = 0, uint32_t stepping = 0) {
        PlayedProcessor p;
        p.signature = (family << 8) | (model << 4) | stepping;
        p.features = features;
        return p;
    }
};

struct ShownMessage {
    std::string kind;  // "beep" or "box"
    uint32_t style;
    std::string text;
    std::string caption;
};

// Installs a played processor for the lifetime of the object and records
// every CPUID leaf asked for and every beep and message box.
class PlayedPlatform {
public:
    explicit PlayedPlatform(const PlayedProcessor& processor) {
        current_ = this;
        processor_ = processor;
        const PrimPlatform record = {HasCpuid, Cpuid, Beep, Box};
        PrimSetPlatform(&record);
    }
    ~PlayedPlatform() {
        PrimSetPlatform(nullptr);
        current_ = nullptr;
    }
    PlayedPlatform(const PlayedPlatform&) = delete;
    PlayedPlatform& operator=(const PlayedPlatform&) = delete;

    PlayedProcessor& processor() { return processor_; }
    const std::vector<ShownMessage>& messages() const { return messages_; }
    const std::vector<uint32_t>& leaves() const { return leaves_; }
    int flagTests() const { return flagTests_; }

private:
    static int32_t HasCpuid() {
        ++current_->flagTests_;
        return current_->processor_.hasCpuid ? 1 : 0;
    }
    static void Cpuid(uint32_t leaf, PrimCpuidRegs* out) {
        current_->leaves_.push_back(leaf);
        const PlayedProcessor& p = current_->processor_;
        *out = PrimCpuidRegs{0, 0, 0, 0};
        if (leaf == 0) *out = PrimCpuidRegs{2, p.vendor[0], p.vendor[2], p.vendor[1]};
        if (leaf == 1) *out = PrimCpuidRegs{p.signature, 0x12345678, 0x9ABCDEF0, p.features};
        if (leaf == 2) *out = PrimCpuidRegs{p.cacheLow, 0x0BADF00D, 0x0DDBA11, p.cacheHigh};
    }
    static void Beep(uint32_t type) { current_->messages_.push_back({"beep", type, "", ""}); }
    static void Box(const char* text, const char* caption, uint32_t style) {
        current_->messages_.push_back({"box", style, text, caption});
    }

    static inline PlayedPlatform* current_ = nullptr;
    PlayedProcessor processor_;
    std::vector<ShownMessage> messages_;
    std::vector<uint32_t> leaves_;
    int flagTests_ = 0;
};

// Saves the dispatch table, every slot, the slot count and the current tier,
// and restores them when the test ends, so that tests may alter them freely.
class RuntimeStateGuard {
public:
    RuntimeStateGuard() {
        std::memcpy(table_.data(), PrimDispatchTable, sizeof PrimDispatchTable);
        for (int row = 0; row < PrimDispatchRowCount; ++row) slots_[row] = *PrimDispatchTable[row].slot;
        slotCount_ = PrimSlotCount;
        tier_ = PrimCurrentTier;
    }
    ~RuntimeStateGuard() {
        std::memcpy(PrimDispatchTable, table_.data(), sizeof PrimDispatchTable);
        for (int row = 0; row < PrimDispatchRowCount; ++row) *PrimDispatchTable[row].slot = slots_[row];
        PrimSlotCount = slotCount_;
        PrimCurrentTier = tier_;
    }
    RuntimeStateGuard(const RuntimeStateGuard&) = delete;
    RuntimeStateGuard& operator=(const RuntimeStateGuard&) = delete;

    const PrimDispatchRow& original(int row) const { return table_[row]; }

private:
    std::array<PrimDispatchRow, PrimDispatchRowCount> table_;
    std::array<PrimEntry, PrimDispatchRowCount> slots_;
    int32_t slotCount_;
    int32_t tier_;
};

}  // namespace pixmoor_test

#endif
