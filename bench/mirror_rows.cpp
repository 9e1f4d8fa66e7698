#include "bench_rows.h"

namespace bench {

void AddMirrorRows(RowList&) {}

}  // namespace bench
