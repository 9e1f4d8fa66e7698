#include "primitives/colour/clamp_table.h"

namespace pixmoor::colour {

const ClampTable ImgClampTable = MakeClampTable();
const ClampTable ImgClampTableM6 = MakeClampTable();

}  // namespace pixmoor::colour
