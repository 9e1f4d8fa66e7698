// Rows of the mirror members: all eighteen, each tier's entry by its own
// name, about the horizontal axis (line order reversed) and the vertical
// axis (pixels reversed within lines) at each frame size; both axes at once
// is the two walks combined and adds no other kind of work.  Peers: libyuv's
// line copy walking the source upwards for the horizontal axis and its
// mirror routines for the pixel sizes it has; libswscale's same-format copy
// walking upwards, for the formats it has.  The in-place members are set
// against the same peers, which have no in-place form.
#include "bench_rows.h"

#if PIXMOOR_BENCH_HAVE_MIRROR

#include <pixmoor/pixmoor.h>

#include <libyuv.h>

#include "jobs.h"
#include "tiers.h"

namespace bench {
namespace {

// One frame of a member in one tier.  `src` is null for in-place members.
using MirrorCall = std::function<PrimStatus(int tier, const uint8_t* src, uint8_t* dst, int32_t step, int32_t width,
                                            int32_t height, MirrorAxis axis)>;

template <typename T>
using ToDestination = PrimStatus (*)(const T*, int32_t, T*, int32_t, int32_t, int32_t, MirrorAxis);
template <typename T>
using InPlace = PrimStatus (*)(T*, int32_t, int32_t, int32_t, MirrorAxis);

template <typename T>
MirrorCall Call(const ToDestination<T> (&tiers)[4]) {
    return [&tiers](int tier, const uint8_t* src, uint8_t* dst, int32_t step, int32_t w, int32_t h, MirrorAxis axis) {
        return tiers[tier](reinterpret_cast<const T*>(src), step, reinterpret_cast<T*>(dst), step, w, h, axis);
    };
}

template <typename T>
MirrorCall Call(const InPlace<T> (&tiers)[4]) {
    return [&tiers](int tier, const uint8_t*, uint8_t* dst, int32_t step, int32_t w, int32_t h, MirrorAxis axis) {
        return tiers[tier](reinterpret_cast<T*>(dst), step, w, h, axis);
    };
}

#define TIER_ENTRIES(name) {px_##name, m6_##name, a6_##name, w7_##name}

const ToDestination<uint8_t> k8uC1[4] = TIER_ENTRIES(ImgMirror8uC1);
const ToDestination<uint8_t> k8uC3[4] = TIER_ENTRIES(ImgMirror8uC3);
const ToDestination<uint8_t> k8uAC4[4] = TIER_ENTRIES(ImgMirror8uAC4);
const ToDestination<uint16_t> k16uC1[4] = TIER_ENTRIES(ImgMirror16uC1);
const ToDestination<uint16_t> k16uC3[4] = TIER_ENTRIES(ImgMirror16uC3);
const ToDestination<uint16_t> k16uAC4[4] = TIER_ENTRIES(ImgMirror16uAC4);
const ToDestination<int32_t> k32sC1[4] = TIER_ENTRIES(ImgMirror32sC1);
const ToDestination<int32_t> k32sC3[4] = TIER_ENTRIES(ImgMirror32sC3);
const ToDestination<int32_t> k32sAC4[4] = TIER_ENTRIES(ImgMirror32sAC4);
const InPlace<uint8_t> k8uC1I[4] = TIER_ENTRIES(ImgMirror8uC1I);
const InPlace<uint8_t> k8uC3I[4] = TIER_ENTRIES(ImgMirror8uC3I);
const InPlace<uint8_t> k8uAC4I[4] = TIER_ENTRIES(ImgMirror8uAC4I);
const InPlace<uint16_t> k16uC1I[4] = TIER_ENTRIES(ImgMirror16uC1I);
const InPlace<uint16_t> k16uC3I[4] = TIER_ENTRIES(ImgMirror16uC3I);
const InPlace<uint16_t> k16uAC4I[4] = TIER_ENTRIES(ImgMirror16uAC4I);
const InPlace<int32_t> k32sC1I[4] = TIER_ENTRIES(ImgMirror32sC1I);
const InPlace<int32_t> k32sC3I[4] = TIER_ENTRIES(ImgMirror32sC3I);
const InPlace<int32_t> k32sAC4I[4] = TIER_ENTRIES(ImgMirror32sAC4I);

// The peers' routine that reverses the pixels of a line of this pixel size.
using LibyuvMirror = int (*)(const uint8_t* src, int srcStride, uint8_t* dst, int dstStride, int width, int height);

const LibyuvMirror kMirrorPlane = [](const uint8_t* s, int ss, uint8_t* d, int ds, int w, int h) {
    libyuv::MirrorPlane(s, ss, d, ds, w, h);
    return 0;
};
const LibyuvMirror kMirrorUVPlane = [](const uint8_t* s, int ss, uint8_t* d, int ds, int w, int h) {
    libyuv::MirrorUVPlane(s, ss, d, ds, w, h);
    return 0;
};
const LibyuvMirror kRGB24Mirror = [](const uint8_t* s, int ss, uint8_t* d, int ds, int w, int h) {
    return libyuv::RGB24Mirror(s, ss, d, ds, w, h);
};
const LibyuvMirror kARGBMirror = [](const uint8_t* s, int ss, uint8_t* d, int ds, int w, int h) {
    return libyuv::ARGBMirror(s, ss, d, ds, w, h);
};

struct MirrorMember {
    const char* name;
    int pixelBytes;
    bool inPlace;
    MirrorCall call;
    const char* mirrorName;  // libyuv's routine for the vertical axis, or null
    LibyuvMirror mirror;
    AVPixelFormat swsFormat;  // same-format copy for the horizontal axis, or AV_PIX_FMT_NONE
};

const MirrorMember kMembers[] = {
    {"ImgMirror8uC1", 1, false, Call(k8uC1), "MirrorPlane", kMirrorPlane, AV_PIX_FMT_GRAY8},
    {"ImgMirror8uC3 (row 17)", 3, false, Call(k8uC3), "RGB24Mirror", kRGB24Mirror, AV_PIX_FMT_BGR24},
    {"ImgMirror8uAC4", 4, false, Call(k8uAC4), "ARGBMirror", kARGBMirror, AV_PIX_FMT_BGRA},
    {"ImgMirror16uC1", 2, false, Call(k16uC1), "MirrorUVPlane", kMirrorUVPlane, AV_PIX_FMT_GRAY16LE},
    {"ImgMirror16uC3", 6, false, Call(k16uC3), nullptr, nullptr, AV_PIX_FMT_RGB48LE},
    {"ImgMirror16uAC4", 8, false, Call(k16uAC4), nullptr, nullptr, AV_PIX_FMT_RGBA64LE},
    {"ImgMirror32sC1", 4, false, Call(k32sC1), "ARGBMirror", kARGBMirror, AV_PIX_FMT_NONE},
    {"ImgMirror32sC3", 12, false, Call(k32sC3), nullptr, nullptr, AV_PIX_FMT_NONE},
    {"ImgMirror32sAC4", 16, false, Call(k32sAC4), nullptr, nullptr, AV_PIX_FMT_NONE},
    {"ImgMirror8uC1I", 1, true, Call(k8uC1I), "MirrorPlane", kMirrorPlane, AV_PIX_FMT_GRAY8},
    {"ImgMirror8uC3I (row 16)", 3, true, Call(k8uC3I), "RGB24Mirror", kRGB24Mirror, AV_PIX_FMT_BGR24},
    {"ImgMirror8uAC4I (row 18)", 4, true, Call(k8uAC4I), "ARGBMirror", kARGBMirror, AV_PIX_FMT_BGRA},
    {"ImgMirror16uC1I", 2, true, Call(k16uC1I), "MirrorUVPlane", kMirrorUVPlane, AV_PIX_FMT_GRAY16LE},
    {"ImgMirror16uC3I", 6, true, Call(k16uC3I), nullptr, nullptr, AV_PIX_FMT_RGB48LE},
    {"ImgMirror16uAC4I", 8, true, Call(k16uAC4I), nullptr, nullptr, AV_PIX_FMT_RGBA64LE},
    {"ImgMirror32sC1I", 4, true, Call(k32sC1I), "ARGBMirror", kARGBMirror, AV_PIX_FMT_NONE},
    {"ImgMirror32sC3I", 12, true, Call(k32sC3I), nullptr, nullptr, AV_PIX_FMT_NONE},
    {"ImgMirror32sAC4I", 16, true, Call(k32sAC4I), nullptr, nullptr, AV_PIX_FMT_NONE},
};

const MirrorAxis kAxes[] = {MirrorHorizontalAxis, MirrorVerticalAxis};

Variant TierVariant(const MirrorMember& member, int tier, FrameSize size, MirrorAxis axis) {
    Variant v;
    v.label = kTierNames[tier];
    MirrorCall call = member.call;
    bool inPlace = member.inPlace;
    int32_t w = size.width, h = size.height, step = w * member.pixelBytes;
    size_t bytes = size_t(step) * h;
    v.make = [=] {
        if (inPlace) {
            std::shared_ptr<FrameBuffer> buffer = CopyOfSource(bytes);
            uint8_t* data = buffer->data();
            return InPlaceJob([=] { return call(tier, nullptr, data, step, w, h, axis) == PrimStatusOk; }, buffer,
                              bytes);
        }
        std::shared_ptr<FrameBuffer> dst = MakeDestination(bytes);
        uint8_t* to = dst->data();
        const uint8_t* from = SharedSource();
        return WritingJob([=] { return call(tier, from, to, step, w, h, axis) == PrimStatusOk; }, dst, bytes);
    };
    return v;
}

void AddMirrorRow(RowList& rows, const MirrorMember& member, FrameSize size, MirrorAxis axis) {
    int32_t w = size.width, h = size.height, step = w * member.pixelBytes;
    size_t bytes = size_t(step) * h;
    Row row;
    row.group = "mirror";
    row.name = std::string(member.name) + (axis == MirrorHorizontalAxis ? " axis 0" : " axis 1");
    row.size = SizeLabel(w, h);
    row.outputBytes = int64_t(bytes);
    for (int tier = 0; tier < 4; ++tier) row.pixmoor.push_back(TierVariant(member, tier, size, axis));

    const uint8_t* source = SharedSource();
    if (axis == MirrorHorizontalAxis) {
        row.peers.push_back(LibyuvVariant(
            "CopyPlane upwards",
            [=](uint8_t* dst) {
                libyuv::CopyPlane(source, step, dst, step, step, -h);
                return 0;
            },
            bytes));
        if (member.swsFormat != AV_PIX_FMT_NONE) {
            // Any packed layout: one plane walked from its last line up.
            Picture flipped = Flipped(Packed(source, step), Layout::RG24, h);
            row.peers.push_back(SwscaleVariant({member.swsFormat, w, h}, flipped, {member.swsFormat, w, h},
                                               [=](uint8_t* dst) { return Packed(dst, step); }, bytes));
        }
    } else if (member.mirror) {
        LibyuvMirror mirror = member.mirror;
        row.peers.push_back(LibyuvVariant(
            member.mirrorName, [=](uint8_t* dst) { return mirror(source, step, dst, step, w, h); }, bytes));
    }
    // A member and its in-place twin share their peers' jobs.
    for (Variant& peer : row.peers) peer.shareKey = peer.label + " " + row.size + " step " + std::to_string(step);
    if (member.inPlace && !row.peers.empty()) row.note = "the peers write to another picture";
    row.memcpyLimit = MemcpyVariant(row.outputBytes);
    rows.push_back(std::move(row));
}

}  // namespace

void AddMirrorRows(RowList& rows) {
    for (const FrameSize& size : kFrameSizes)
        for (const MirrorMember& member : kMembers)
            for (MirrorAxis axis : kAxes) AddMirrorRow(rows, member, size, axis);
}

}  // namespace bench

#else

namespace bench {

void AddMirrorRows(RowList&) {}

}  // namespace bench

#endif
