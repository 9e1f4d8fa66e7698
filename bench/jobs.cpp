#include "jobs.h"

#include <cstring>
#include <utility>

extern "C" {
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

namespace bench {

std::unique_ptr<Job> WritingJob(std::function<bool()> frame, std::shared_ptr<FrameBuffer> dst,
                                size_t outputBytes, std::shared_ptr<void> keep) {
    auto firstOk = std::make_shared<bool>(true);
    auto job = std::make_unique<Job>();
    // The result is kept from every frame: a store per frame costs nothing
    // next to a frame, and the loop stays one call.
    job->run = [frame, firstOk, dst, keep] { *firstOk = frame() && *firstOk; };
    job->ran = [firstOk, dst, outputBytes] { return *firstOk && dst->Written(outputBytes); };
    return job;
}

std::unique_ptr<Job> InPlaceJob(std::function<bool()> frame, std::shared_ptr<FrameBuffer> buffer,
                                size_t bytes, std::shared_ptr<void> keep) {
    auto firstOk = std::make_shared<bool>(true);
    auto job = std::make_unique<Job>();
    job->run = [frame, firstOk, buffer, keep] { *firstOk = frame() && *firstOk; };
    job->ran = [firstOk, buffer, bytes] {
        return *firstOk && std::memcmp(buffer->data(), SharedSource(), bytes) != 0;
    };
    return job;
}

std::unique_ptr<Job> SwscaleJob(SwsPicture from, const Picture& src, SwsPicture to,
                                std::function<Picture(uint8_t*)> dstAt, size_t dstBytes) {
    SwsContext* raw = sws_getContext(from.width, from.height, from.format, to.width, to.height,
                                     to.format, SWS_POINT, nullptr, nullptr, nullptr);
    if (!raw) return nullptr;
    std::shared_ptr<SwsContext> context(raw, sws_freeContext);
    std::shared_ptr<FrameBuffer> dst = MakeDestination(dstBytes);
    Picture out = dstAt(dst->data());
    int height = from.height;
    auto frame = [context, src, out, height] {
        return sws_scale(context.get(), src.plane, src.stride, 0, height, out.plane, out.stride) > 0;
    };
    return WritingJob(frame, dst, dstBytes, context);
}

std::unique_ptr<Job> LibyuvJob(std::function<int(uint8_t*)> call, size_t dstBytes) {
    std::shared_ptr<FrameBuffer> dst = MakeDestination(dstBytes);
    uint8_t* out = dst->data();
    return WritingJob([call, out] { return call(out) == 0; }, dst, dstBytes);
}

Variant LibyuvVariant(const std::string& call, std::function<int(uint8_t*)> frame, size_t dstBytes) {
    Variant v;
    v.label = "libyuv " + call;
    v.make = [frame, dstBytes] { return LibyuvJob(frame, dstBytes); };
    return v;
}

Variant SwscaleVariant(SwsPicture from, const Picture& src, SwsPicture to,
                       std::function<Picture(uint8_t*)> dstAt, size_t dstBytes) {
    Variant v;
    v.label = std::string("libswscale ") + av_get_pix_fmt_name(from.format) + ">" +
              av_get_pix_fmt_name(to.format);
    v.make = [from, src, to, dstAt, dstBytes] { return SwscaleJob(from, src, to, dstAt, dstBytes); };
    return v;
}

}  // namespace bench
