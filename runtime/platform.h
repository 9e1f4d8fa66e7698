// The processor seam as the runtime uses it: every CPUID, flags-word test,
// beep and message box goes through the installed platform record.
#ifndef PIXMOOR_RUNTIME_PLATFORM_H
#define PIXMOOR_RUNTIME_PLATFORM_H

#include <pixmoor/runtime.h>

namespace pixmoor::platform {

// The record in force: the native one until PrimSetPlatform installs another.
const PrimPlatform& Current();

}  // namespace pixmoor::platform

#endif
