#include "core/commands.h"

namespace pixmoor_tool {

int RunCommand(const CommandLine& line) {
    if (line.convertCommand->parsed()) return RunConvert(line.convert);
    if (line.resizeCommand->parsed()) return RunResize(line.resize);
    if (line.infoCommand->parsed()) return RunInfo();
    return RunDemo(line.demo);
}

}  // namespace pixmoor_tool
