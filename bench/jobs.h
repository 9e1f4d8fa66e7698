// Building blocks for jobs: a routine that writes a destination, a routine
// that works in place, and the two peers' ways of being called.
#ifndef PIXMOOR_BENCH_JOBS_H
#define PIXMOOR_BENCH_JOBS_H

#include <cstddef>
#include <functional>
#include <memory>

#include "bench_rows.h"
#include "frame_buffer.h"
#include "pictures.h"

extern "C" {
#include <libavutil/pixfmt.h>
}

namespace bench {

// `frame` converts one frame into `dst` and returns whether its library
// reported success.  The job ran if the first frame succeeded and wrote some
// of the first `outputBytes` bytes of `dst`.  `keep` holds whatever the
// frame needs alive (objects, contexts).
std::unique_ptr<Job> WritingJob(std::function<bool()> frame, std::shared_ptr<FrameBuffer> dst,
                                size_t outputBytes, std::shared_ptr<void> keep = nullptr);

// `frame` works in place on `buffer`, a copy of the shared source; the job
// ran if the first frame succeeded and changed the first `bytes` bytes.
std::unique_ptr<Job> InPlaceJob(std::function<bool()> frame, std::shared_ptr<FrameBuffer> buffer,
                                size_t bytes, std::shared_ptr<void> keep = nullptr);

// A libswscale conversion or nearest-neighbour scale of one picture into a
// new destination of `dstBytes`.  `dstAt` lays the destination picture out
// on the new buffer.  Null if the library refuses the formats.
struct SwsPicture {
    AVPixelFormat format;
    int width;
    int height;
};
std::unique_ptr<Job> SwscaleJob(SwsPicture from, const Picture& src, SwsPicture to,
                                std::function<Picture(uint8_t*)> dstAt, size_t dstBytes);

// A libyuv call on a new destination of `dstBytes`; `call` gets the
// destination's first byte and returns the library's result (0 is success).
std::unique_ptr<Job> LibyuvJob(std::function<int(uint8_t*)> call, size_t dstBytes);

// Variants made from the helpers above.
Variant LibyuvVariant(const std::string& call, std::function<int(uint8_t*)> frame, size_t dstBytes);
// Labelled by the two formats, e.g. "libswscale yuv420p>bgr24".
Variant SwscaleVariant(SwsPicture from, const Picture& src, SwsPicture to,
                       std::function<Picture(uint8_t*)> dstAt, size_t dstBytes);

}  // namespace bench

#endif
