// Rows of the colour transforms: every pair of the factory table at each
// frame size.  A pair that works through primitives runs once with the tier
// that selection picks here and once with each tier forced.  Peers do the
// same job on the same bytes where they have a routine for it, turning the
// picture over where the pair does.
#include "bench_rows.h"

#if PIXMOOR_BENCH_HAVE_COLOUR_XFORM

#include <pixmoor/pixmoor.h>

#include <libyuv.h>

#include "jobs.h"
#include "tiers.h"

namespace bench {
namespace {

// A libyuv call on pictures laid out by PictureOf; a negative height turns
// the source over, as the library defines.
using LibyuvCall = int (*)(const Picture& src, const Picture& dst, int width, int height);

#define PLANES3(p) (p).plane[0], (p).stride[0], (p).plane[1], (p).stride[1], (p).plane[2], (p).stride[2]
#define PLANE1(p) (p).plane[0], (p).stride[0]

const LibyuvCall kI420Copy = [](const Picture& s, const Picture& d, int w, int h) {
    return libyuv::I420Copy(PLANES3(s), PLANES3(d), w, h);
};
const LibyuvCall kRGB24ToI420 = [](const Picture& s, const Picture& d, int w, int h) {
    return libyuv::RGB24ToI420(PLANE1(s), PLANES3(d), w, h);
};
const LibyuvCall kYUY2ToI420 = [](const Picture& s, const Picture& d, int w, int h) {
    return libyuv::YUY2ToI420(PLANE1(s), PLANES3(d), w, h);
};
const LibyuvCall kUYVYToI420 = [](const Picture& s, const Picture& d, int w, int h) {
    return libyuv::UYVYToI420(PLANE1(s), PLANES3(d), w, h);
};
const LibyuvCall kI420ToRGB24 = [](const Picture& s, const Picture& d, int w, int h) {
    return libyuv::I420ToRGB24(PLANES3(s), PLANE1(d), w, h);
};
const LibyuvCall kI420ToARGB1555 = [](const Picture& s, const Picture& d, int w, int h) {
    return libyuv::I420ToARGB1555(PLANES3(s), PLANE1(d), w, h);
};
const LibyuvCall kI420ToRGB565 = [](const Picture& s, const Picture& d, int w, int h) {
    return libyuv::I420ToRGB565(PLANES3(s), PLANE1(d), w, h);
};
const LibyuvCall kI420ToARGB = [](const Picture& s, const Picture& d, int w, int h) {
    return libyuv::I420ToARGB(PLANES3(s), PLANE1(d), w, h);
};
const LibyuvCall kYUY2ToARGB = [](const Picture& s, const Picture& d, int w, int h) {
    return libyuv::YUY2ToARGB(PLANE1(s), PLANE1(d), w, h);
};
const LibyuvCall kUYVYToARGB = [](const Picture& s, const Picture& d, int w, int h) {
    return libyuv::UYVYToARGB(PLANE1(s), PLANE1(d), w, h);
};
const LibyuvCall kRGB24ToARGB = [](const Picture& s, const Picture& d, int w, int h) {
    return libyuv::RGB24ToARGB(PLANE1(s), PLANE1(d), w, h);
};
const LibyuvCall kARGBCopy = [](const Picture& s, const Picture& d, int w, int h) {
    return libyuv::ARGBCopy(PLANE1(s), PLANE1(d), w, h);
};
// A plain copy of whole lines, for the 16-bit and 24-bit copying pairs.
const LibyuvCall kCopyPlane = [](const Picture& s, const Picture& d, int, int h) {
    libyuv::CopyPlane(PLANE1(s), PLANE1(d), s.stride[0], h);
    return 0;
};

struct ColourPair {
    Layout src, dst;
    bool flips;       // with default orientations the picture is turned over
    bool primitives;  // the work goes through dispatched primitives
    const char* libyuvName;  // null: libyuv has no routine for this job
    LibyuvCall libyuv;
    AVPixelFormat swsFrom, swsTo;
};

// The factory table, destination by destination.  "I420" to "I420" is
// accepted by the factory but has no routine, so it has no row.
const ColourPair kPairs[] = {
    {Layout::YV12, Layout::I420, false, false, "I420Copy", kI420Copy, AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUV420P},
    {Layout::RG24, Layout::I420, true, true, "RGB24ToI420", kRGB24ToI420, AV_PIX_FMT_BGR24, AV_PIX_FMT_YUV420P},
    {Layout::YUY2, Layout::I420, false, false, "YUY2ToI420", kYUY2ToI420, AV_PIX_FMT_YUYV422, AV_PIX_FMT_YUV420P},
    {Layout::UYVY, Layout::I420, false, false, "UYVYToI420", kUYVYToI420, AV_PIX_FMT_UYVY422, AV_PIX_FMT_YUV420P},

    {Layout::I420, Layout::RG24, true, true, "I420ToRGB24", kI420ToRGB24, AV_PIX_FMT_YUV420P, AV_PIX_FMT_BGR24},
    {Layout::YV12, Layout::RG24, true, true, "I420ToRGB24", kI420ToRGB24, AV_PIX_FMT_YUV420P, AV_PIX_FMT_BGR24},
    {Layout::YUY2, Layout::RG24, true, false, nullptr, nullptr, AV_PIX_FMT_YUYV422, AV_PIX_FMT_BGR24},
    {Layout::UYVY, Layout::RG24, true, false, nullptr, nullptr, AV_PIX_FMT_UYVY422, AV_PIX_FMT_BGR24},
    {Layout::RG24, Layout::RG24, false, false, "CopyPlane", kCopyPlane, AV_PIX_FMT_BGR24, AV_PIX_FMT_BGR24},

    {Layout::I420, Layout::RG55, false, true, "I420ToARGB1555", kI420ToARGB1555, AV_PIX_FMT_YUV420P, AV_PIX_FMT_RGB555LE},
    {Layout::YV12, Layout::RG55, false, true, "I420ToARGB1555", kI420ToARGB1555, AV_PIX_FMT_YUV420P, AV_PIX_FMT_RGB555LE},
    {Layout::YUY2, Layout::RG55, false, false, nullptr, nullptr, AV_PIX_FMT_YUYV422, AV_PIX_FMT_RGB555LE},
    {Layout::UYVY, Layout::RG55, false, false, nullptr, nullptr, AV_PIX_FMT_UYVY422, AV_PIX_FMT_RGB555LE},
    {Layout::RG24, Layout::RG55, false, false, nullptr, nullptr, AV_PIX_FMT_BGR24, AV_PIX_FMT_RGB555LE},
    {Layout::RG55, Layout::RG55, false, false, "CopyPlane", kCopyPlane, AV_PIX_FMT_RGB555LE, AV_PIX_FMT_RGB555LE},

    {Layout::I420, Layout::RG56, false, true, "I420ToRGB565", kI420ToRGB565, AV_PIX_FMT_YUV420P, AV_PIX_FMT_RGB565LE},
    {Layout::YV12, Layout::RG56, false, true, "I420ToRGB565", kI420ToRGB565, AV_PIX_FMT_YUV420P, AV_PIX_FMT_RGB565LE},
    {Layout::YUY2, Layout::RG56, false, false, nullptr, nullptr, AV_PIX_FMT_YUYV422, AV_PIX_FMT_RGB565LE},
    {Layout::UYVY, Layout::RG56, false, false, nullptr, nullptr, AV_PIX_FMT_UYVY422, AV_PIX_FMT_RGB565LE},
    {Layout::RG24, Layout::RG56, false, false, nullptr, nullptr, AV_PIX_FMT_BGR24, AV_PIX_FMT_RGB565LE},
    {Layout::RG56, Layout::RG56, false, false, "CopyPlane", kCopyPlane, AV_PIX_FMT_RGB565LE, AV_PIX_FMT_RGB565LE},

    {Layout::I420, Layout::RG32, false, true, "I420ToARGB", kI420ToARGB, AV_PIX_FMT_YUV420P, AV_PIX_FMT_BGRA},
    {Layout::YV12, Layout::RG32, false, true, "I420ToARGB", kI420ToARGB, AV_PIX_FMT_YUV420P, AV_PIX_FMT_BGRA},
    {Layout::YUY2, Layout::RG32, true, false, "YUY2ToARGB", kYUY2ToARGB, AV_PIX_FMT_YUYV422, AV_PIX_FMT_BGRA},
    {Layout::UYVY, Layout::RG32, true, false, "UYVYToARGB", kUYVYToARGB, AV_PIX_FMT_UYVY422, AV_PIX_FMT_BGRA},
    {Layout::RG24, Layout::RG32, false, false, "RGB24ToARGB", kRGB24ToARGB, AV_PIX_FMT_BGR24, AV_PIX_FMT_BGRA},
    {Layout::RG32, Layout::RG32, false, false, "ARGBCopy", kARGBCopy, AV_PIX_FMT_BGRA, AV_PIX_FMT_BGRA},
};

uint32_t FourCC(Layout layout) {
    const char* name = LayoutName(layout);
    return MakeFourCC(name[0], name[1], name[2], name[3]);
}

// The pair through the factory, initialised with default orientations;
// `tier` below 0 keeps the tier that Init selected, otherwise that tier is
// forced after Init (which selects anew each time).
Variant PairVariant(const std::string& label, const ColourPair& pair, FrameSize size, int tier) {
    Variant v;
    v.label = label;
    v.make = [pair, size, tier]() -> std::unique_ptr<Job> {
        std::shared_ptr<CColorXForm> x(CColorXForm::CreateInstance(FourCC(pair.src), FourCC(pair.dst)));
        if (!x || !x->Init(AbsSIZE(size.width, size.height), CColorXForm::OrientDefault,
                           CColorXForm::OrientDefault))
            return nullptr;
        if (tier >= 0) ForceTier(tier);
        size_t bytes = size_t(x->DestBufferSize());
        std::shared_ptr<FrameBuffer> dst = MakeDestination(bytes);
        // The tight line for RGB destinations: some pairs have no default
        // pitch, and 0 means something else to others.
        uint32_t pitch = pair.dst == Layout::I420 ? 0 : uint32_t(PictureOf(pair.dst, nullptr, size.width, size.height).stride[0]);
        const uint8_t* src = SharedSource();
        uint8_t* to = dst->data();
        CColorXForm* xform = x.get();
        return WritingJob([xform, src, to, pitch] { xform->XForm(src, to, pitch); return true; }, dst, bytes, x);
    };
    return v;
}

void AddPairRow(RowList& rows, const ColourPair& pair, FrameSize size, const std::string& selected) {
    int w = size.width, h = size.height;
    Row row;
    row.group = "colour";
    row.name = std::string(LayoutName(pair.src)) + " > " + LayoutName(pair.dst);
    row.size = SizeLabel(w, h);
    size_t outBytes = FrameBytes(pair.dst, w, h);
    row.outputBytes = int64_t(outBytes);
    if (pair.flips) row.note = "turned over with default orientations; the peers turn it over too";

    if (pair.primitives) {
        row.pixmoor.push_back(PairVariant("selected (" + selected + ")", pair, size, -1));
        for (int tier = 0; tier < 4; ++tier) row.pixmoor.push_back(PairVariant(kTierNames[tier], pair, size, tier));
    } else {
        row.pixmoor.push_back(PairVariant("CColorXForm", pair, size, -1));
    }

    Picture src = PictureOf(pair.src, SharedSource(), w, h);
    Layout dstLayout = pair.dst;
    if (pair.libyuv) {
        LibyuvCall call = pair.libyuv;
        int height = pair.flips ? -h : h;
        row.peers.push_back(LibyuvVariant(
            pair.libyuvName,
            [call, src, dstLayout, w, h, height](uint8_t* base) {
                return call(src, PictureOf(dstLayout, base, w, h), w, height);
            },
            outBytes));
    }
    bool flips = pair.flips;
    row.peers.push_back(SwscaleVariant({pair.swsFrom, w, h}, src, {pair.swsTo, w, h},
                                       [dstLayout, w, h, flips](uint8_t* base) {
                                           Picture dst = PictureOf(dstLayout, base, w, h);
                                           return flips ? Flipped(dst, dstLayout, h) : dst;
                                       },
                                       outBytes));
    row.memcpyLimit = MemcpyVariant(int64_t(outBytes));
    rows.push_back(std::move(row));
}

}  // namespace

void AddColourRows(RowList& rows) {
    std::string selected = SelectedTierName();
    for (const FrameSize& size : kFrameSizes)
        for (const ColourPair& pair : kPairs) AddPairRow(rows, pair, size, selected);
}

}  // namespace bench

#else

namespace bench {

void AddColourRows(RowList&) {}

}  // namespace bench

#endif
