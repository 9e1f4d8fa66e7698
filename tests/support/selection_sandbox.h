// Lets a test run tier selections, and write dispatch slots itself, without
// leaving a trace: keeps the slots, the current tier and the platform record
// as they were, and silences the message of a selection that runs dry.
#ifndef PIXMOOR_TESTS_SELECTION_SANDBOX_H
#define PIXMOOR_TESTS_SELECTION_SANDBOX_H

#include <pixmoor/runtime.h>

namespace pixmoor_test {

class SelectionSandbox {
public:
    SelectionSandbox() : tier_(PrimCurrentTier) {
        for (int r = 0; r < PrimDispatchRowCount; ++r) slots_[r] = *PrimDispatchTable[r].slot;
        PrimPlatform quiet{};
        quiet.messageBeep = [](uint32_t) {};
        quiet.messageBox = [](const char*, const char*, uint32_t) {};
        PrimSetPlatform(&quiet);
    }
    ~SelectionSandbox() {
        for (int r = 0; r < PrimDispatchRowCount; ++r) *PrimDispatchTable[r].slot = slots_[r];
        PrimCurrentTier = tier_;
        PrimSetPlatform(nullptr);
    }
    SelectionSandbox(const SelectionSandbox&) = delete;
    SelectionSandbox& operator=(const SelectionSandbox&) = delete;

private:
    PrimEntry slots_[PrimDispatchRowCount];
    int32_t tier_;
};

}  // namespace pixmoor_test

#endif
