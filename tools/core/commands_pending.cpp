// Placeholders until the transform classes are wired in.
#include "core/commands.h"
#include "core/errors.h"

namespace pixmoor_tool {

int RunResize(const ResizeOptions&) { Fail("resize is not available yet"); }
int RunInfo() { Fail("info is not available yet"); }
int RunDemo(const DemoOptions&) { Fail("demo is not available yet"); }

}  // namespace pixmoor_tool
