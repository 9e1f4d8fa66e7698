#include "primitives/colour/analog422_clamp_table.h"

namespace pixmoor::colour {

const ClampPlus128Table ImgClampPlus128Table = MakeClampPlus128Table();

}  // namespace pixmoor::colour
