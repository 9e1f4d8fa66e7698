// Rows of the dispatched colour primitives (dispatch rows 11 to 15), each
// tier's entry called by its own name, at each frame size.  Peers: the
// routines of both libraries that convert the same layouts, or the nearest
// layouts where they have none.
#include "bench_rows.h"

#if PIXMOOR_BENCH_HAVE_YUV420 || PIXMOOR_BENCH_HAVE_YUV422 || PIXMOOR_BENCH_HAVE_YUV444

#include <pixmoor/pixmoor.h>

#include <libyuv.h>

#include "jobs.h"
#include "tiers.h"

namespace bench {
namespace {

// One frame of a member in one tier, written to `dst`; returns the status.
using TierCall = std::function<PrimStatus(int tier, uint8_t* dst)>;

struct PrimitiveRow {
    std::string name;
    size_t outputBytes;
    TierCall call;
    std::vector<Variant> peers;
    std::string note;
};

void AddTiered(RowList& rows, PrimitiveRow member, FrameSize size) {
    Row row;
    row.group = "primitive";
    row.name = member.name;
    row.size = SizeLabel(size.width, size.height);
    row.note = member.note;
    row.outputBytes = int64_t(member.outputBytes);
    for (int tier = 0; tier < 4; ++tier) {
        Variant v;
        v.label = kTierNames[tier];
        TierCall call = member.call;
        size_t bytes = member.outputBytes;
        v.make = [call, tier, bytes] {
            std::shared_ptr<FrameBuffer> dst = MakeDestination(bytes);
            uint8_t* to = dst->data();
            return WritingJob([call, tier, to] { return call(tier, to) == PrimStatusOk; }, dst, bytes);
        };
        row.pixmoor.push_back(std::move(v));
    }
    row.peers = std::move(member.peers);
    row.memcpyLimit = MemcpyVariant(row.outputBytes);
    rows.push_back(std::move(row));
}

// Planes Y, U, V on a base, chroma at half width and height.
Picture I420At(const uint8_t* base, int w, int h) { return PictureOf(Layout::I420, base, w, h); }

#define TIER_ENTRIES(name) {px_##name, m6_##name, a6_##name, w7_##name}

#if PIXMOOR_BENCH_HAVE_YUV420
void AddYuv420Rows(RowList& rows, FrameSize size) {
    int w = size.width, h = size.height;
    const uint8_t* source = SharedSource();
    Picture rgbSrc = Packed(source, 3 * w);
    Picture yuvSrc = I420At(source, w, h);
    size_t yuvBytes = size_t(w) * h * 3 / 2, rgbBytes = size_t(w) * h * 3;

    // Row 11: packed R, G, B to planes.
    {
        using Fn = PrimStatus (*)(const uint8_t*, uint8_t* const[3], int32_t, int32_t);
        static const Fn tiers[4] = TIER_ENTRIES(ImgRGBToYUV420);
        PrimitiveRow member;
        member.name = "ImgRGBToYUV420 (row 11)";
        member.outputBytes = yuvBytes;
        member.call = [=](int tier, uint8_t* dst) {
            Picture out = I420At(dst, w, h);
            uint8_t* const planes[3] = {out.plane[0], out.plane[1], out.plane[2]};
            return tiers[tier](source, planes, w, h);
        };
        member.peers.push_back(LibyuvVariant(
            "RAWToI420",
            [=](uint8_t* dst) {
                Picture out = I420At(dst, w, h);
                return libyuv::RAWToI420(source, 3 * w, out.plane[0], out.stride[0], out.plane[1], out.stride[1],
                                         out.plane[2], out.stride[2], w, h);
            },
            yuvBytes));
        member.peers.push_back(SwscaleVariant({AV_PIX_FMT_RGB24, w, h}, rgbSrc, {AV_PIX_FMT_YUV420P, w, h},
                                              [=](uint8_t* dst) { return I420At(dst, w, h); }, yuvBytes));
        AddTiered(rows, std::move(member), size);
    }

    // Rows 12 and 13: planes to packed R, G, B, with derived and with given steps.
    std::vector<Variant> toRgbPeers;
    toRgbPeers.push_back(LibyuvVariant(
        "I420ToRAW",
        [=](uint8_t* dst) {
            return libyuv::I420ToRAW(yuvSrc.plane[0], yuvSrc.stride[0], yuvSrc.plane[1], yuvSrc.stride[1],
                                     yuvSrc.plane[2], yuvSrc.stride[2], dst, 3 * w, w, h);
        },
        rgbBytes));
    toRgbPeers.push_back(SwscaleVariant({AV_PIX_FMT_YUV420P, w, h}, yuvSrc, {AV_PIX_FMT_RGB24, w, h},
                                        [=](uint8_t* dst) { return Packed(dst, 3 * w); },
                                        rgbBytes));
    // Rows 12 and 13 do one job: their peers are measured once.
    for (Variant& peer : toRgbPeers) peer.shareKey = peer.label + " " + SizeLabel(w, h);
    using Compact = PrimStatus (*)(const uint8_t* const[3], uint8_t*, int32_t, int32_t);
    static const Compact compact[4] = TIER_ENTRIES(ImgYUV420ToRGB);
    using Stepped = PrimStatus (*)(const uint8_t* const[3], const int32_t[3], uint8_t*, int32_t, int32_t, int32_t);
    static const Stepped stepped[4] = TIER_ENTRIES(ImgYUV420ToRGB_Step);
    const uint8_t* const planes[3] = {yuvSrc.plane[0], yuvSrc.plane[1], yuvSrc.plane[2]};
    const int32_t steps[3] = {yuvSrc.stride[0], yuvSrc.stride[1], yuvSrc.stride[2]};
    auto call12 = [=](int tier, uint8_t* dst) { return compact[tier](planes, dst, w, h); };
    auto call13 = [=](int tier, uint8_t* dst) { return stepped[tier](planes, steps, dst, 3 * w, w, h); };
    AddTiered(rows, {"ImgYUV420ToRGB (row 12)", rgbBytes, call12, toRgbPeers, ""}, size);
    AddTiered(rows, {"ImgYUV420ToRGB_Step (row 13)", rgbBytes, call13, toRgbPeers, ""}, size);
}
#endif

#if PIXMOOR_BENCH_HAVE_YUV444 || PIXMOOR_BENCH_HAVE_YUV422
using PackedToPacked = PrimStatus (*)(const uint8_t*, int32_t, uint8_t*, int32_t, int32_t, int32_t);

// A member of the packed to packed shape on tight lines of `inBytes` and
// `outBytes` a pixel, reading the shared source; the caller adds the peers.
PrimitiveRow PackedMember(const char* name, const PackedToPacked (&tiers)[4], int32_t inBytes, int32_t outBytes,
                          FrameSize size, const char* note) {
    int32_t w = size.width, h = size.height;
    const uint8_t* source = SharedSource();
    PrimitiveRow member;
    member.name = name;
    member.outputBytes = size_t(w) * h * outBytes;
    member.note = note;
    member.call = [&tiers, source, w, h, inBytes, outBytes](int tier, uint8_t* dst) {
        return tiers[tier](source, inBytes * w, dst, outBytes * w, w, h);
    };
    return member;
}
#endif

#if PIXMOOR_BENCH_HAVE_YUV444
// Row 14: 4-byte pixels, Y U V and a fourth byte left alone.
const PackedToPacked kYuvaToRgba[4] = TIER_ENTRIES(ImgYUVAToRGBA);

void AddYuv444Row(RowList& rows, FrameSize size) {
    int w = size.width, h = size.height;
    PrimitiveRow member = PackedMember("ImgYUVAToRGBA (row 14)", kYuvaToRgba, 4, 4, size,
                                       "neither peer reads packed 4:4:4; both convert planar 4:4:4 to 4-byte RGB");
    Picture planes;
    for (int i = 0; i < 3; ++i) {
        planes.plane[i] = const_cast<uint8_t*>(SharedSource()) + size_t(i) * w * h;
        planes.stride[i] = w;
    }
    size_t bytes = member.outputBytes;
    member.peers.push_back(LibyuvVariant(
        "I444ToARGB",
        [=](uint8_t* dst) {
            return libyuv::I444ToARGB(planes.plane[0], w, planes.plane[1], w, planes.plane[2], w, dst, 4 * w, w, h);
        },
        bytes));
    member.peers.push_back(SwscaleVariant({AV_PIX_FMT_YUV444P, w, h}, planes, {AV_PIX_FMT_RGBA, w, h},
                                          [=](uint8_t* dst) { return Packed(dst, 4 * w); }, bytes));
    AddTiered(rows, std::move(member), size);
}
#endif

#if PIXMOOR_BENCH_HAVE_YUV422
// Row 15: packed Y0 U Y1 V to packed R, G, B.
const PackedToPacked kYuv422ToRgb[4] = TIER_ENTRIES(ImgYUV422ToRGB);

void AddYuv422Row(RowList& rows, FrameSize size) {
    int w = size.width, h = size.height;
    const uint8_t* source = SharedSource();
    PrimitiveRow member = PackedMember("ImgYUV422ToRGB (row 15)", kYuv422ToRgb, 2, 3, size,
                                       "libyuv has no packed 4:2:2 to 3-byte RGB; its nearest writes 4-byte pixels");
    member.peers.push_back(LibyuvVariant(
        "YUY2ToARGB", [=](uint8_t* dst) { return libyuv::YUY2ToARGB(source, 2 * w, dst, 4 * w, w, h); },
        size_t(w) * h * 4));
    member.peers.push_back(SwscaleVariant({AV_PIX_FMT_YUYV422, w, h}, Packed(source, 2 * w), {AV_PIX_FMT_RGB24, w, h},
                                          [=](uint8_t* dst) { return Packed(dst, 3 * w); }, member.outputBytes));
    AddTiered(rows, std::move(member), size);
}
#endif

}  // namespace

void AddPrimitiveRows(RowList& rows) {
    for (const FrameSize& size : kFrameSizes) {
#if PIXMOOR_BENCH_HAVE_YUV420
        AddYuv420Rows(rows, size);
#endif
#if PIXMOOR_BENCH_HAVE_YUV444
        AddYuv444Row(rows, size);
#endif
#if PIXMOOR_BENCH_HAVE_YUV422
        AddYuv422Row(rows, size);
#endif
    }
}

}  // namespace bench

#else

namespace bench {

void AddPrimitiveRows(RowList&) {}

}  // namespace bench

#endif
