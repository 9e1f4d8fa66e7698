// Rows of the size transforms: the seven fixed 24-bit pairs, the generic
// run-list scaler at each frame size, and I420 crop and pad.  Peers: the
// nearest-neighbour scalers of both libraries, and plane copies of the kept
// window for crop and pad.
#include <pixmoor/pixmoor.h>

#include <libyuv.h>
#include <libyuv/scale_rgb.h>

#include "bench_rows.h"
#include "jobs.h"

namespace bench {
namespace {

struct FixedPair {
    int32_t inWidth, inHeight, outWidth, outHeight;
    const char* routine;
};

const FixedPair kFixedPairs[] = {
    {176, 144, 352, 288, "ScaleDouble24"},       {352, 288, 704, 576, "ScaleDouble24"},
    {352, 288, 176, 144, "ScaleHalve24"},        {704, 576, 352, 288, "ScaleHalve24"},
    {160, 120, 176, 144, "ScaleElevenTenths24"}, {320, 240, 352, 288, "ScaleElevenTenths24"},
    {640, 480, 704, 576, "ScaleElevenTenths24"},
};

// Generic scales at every frame size: the output is the input times
// num / den, rounded down to a multiple of 4 so that no ratio hits a fixed
// pair.
struct GenericScale {
    int32_t bits;
    int32_t num, den;
};

const GenericScale kGenericScales[] = {{24, 3, 4}, {24, 4, 3}, {32, 3, 4}};

// Crop and pad by this many pixels in each dimension (half on each side).
const int32_t kCropPadMargins[] = {-64, 64};

Variant SizeXFormVariant(const std::string& label, uint32_t fourcc, uint32_t bits, AbsSIZE in,
                         AbsSIZE out, XFormType type) {
    Variant v;
    v.label = label;
    v.make = [=]() -> std::unique_ptr<Job> {
        std::shared_ptr<CSizeXForm> x(CSizeXForm::CreateInstance(fourcc, bits));
        if (!x || !x->Init(in, out, type, InterpDefault)) return nullptr;
        std::shared_ptr<FrameBuffer> dst = MakeDestination(size_t(x->DestBufferSize()));
        const uint8_t* src = SharedSource();
        uint8_t* to = dst->data();
        CSizeXForm* xform = x.get();
        return WritingJob([xform, src, to] { xform->XForm(src, to); return true; }, dst,
                          size_t(x->DestBufferSize()), x);
    };
    return v;
}

// One RGB scale row: Pixmoor against both libraries' point scalers.
void AddRgbScaleRow(RowList& rows, const std::string& name, int32_t bits, int32_t inW, int32_t inH,
                    int32_t outW, int32_t outH) {
    Row row;
    row.group = "size";
    row.name = name;
    row.size = SizeLabel(inW, inH) + ">" + SizeLabel(outW, outH);
    Layout layout = bits == 24 ? Layout::RG24 : Layout::RG32;
    size_t outBytes = FrameBytes(layout, outW, outH);
    row.outputBytes = int64_t(outBytes);
    uint32_t fourcc = bits == 24 ? FCC_RG24 : 0;
    row.pixmoor.push_back(
        SizeXFormVariant("CSizeXForm", fourcc, uint32_t(bits), AbsSIZE(inW, inH), AbsSIZE(outW, outH), XFormScale));

    Picture src = PictureOf(layout, SharedSource(), inW, inH);
    int srcStride = src.stride[0];
    int dstStride = PictureOf(layout, nullptr, outW, outH).stride[0];
    const uint8_t* in = src.plane[0];
    if (bits == 24) {
        row.peers.push_back(LibyuvVariant(
            "RGBScale point",
            [=](uint8_t* dst) {
                return libyuv::RGBScale(in, srcStride, inW, inH, dst, dstStride, outW, outH, libyuv::kFilterNone);
            },
            outBytes));
    } else {
        row.peers.push_back(LibyuvVariant(
            "ARGBScale point",
            [=](uint8_t* dst) {
                return libyuv::ARGBScale(in, srcStride, inW, inH, dst, dstStride, outW, outH, libyuv::kFilterNone);
            },
            outBytes));
    }
    AVPixelFormat format = bits == 24 ? AV_PIX_FMT_BGR24 : AV_PIX_FMT_BGRA;
    row.peers.push_back(SwscaleVariant({format, inW, inH}, src, {format, outW, outH},
                                       [=](uint8_t* dst) { return PictureOf(layout, dst, outW, outH); },
                                       outBytes));
    row.memcpyLimit = MemcpyVariant(int64_t(outBytes));
    rows.push_back(std::move(row));
}

// Offsets of the kept window of a crop (positive) or of the picture inside
// a pad (negative margin), per plane.
Picture Shifted(const Picture& picture, int32_t dx, int32_t dy) {
    Picture shifted = picture;
    for (int i = 0; i < 3; ++i) {
        int32_t x = i == 0 ? dx : dx / 2;
        int32_t y = i == 0 ? dy : dy / 2;
        shifted.plane[i] += std::ptrdiff_t(y) * picture.stride[i] + x;
    }
    return shifted;
}

void AddCropPadRow(RowList& rows, const FrameSize& size, int32_t margin) {
    int32_t inW = size.width, inH = size.height;
    int32_t outW = inW + margin, outH = inH + margin;
    bool pad = margin > 0;
    int32_t keptW = pad ? inW : outW, keptH = pad ? inH : outH;
    Row row;
    row.group = "size";
    row.name = pad ? "I420 pad" : "I420 crop";
    row.size = SizeLabel(inW, inH) + ">" + SizeLabel(outW, outH);
    row.note = pad ? "peers: libyuv fills the frame and copies the picture in; libswscale copies it in, "
                     "without a border"
                   : "peers copy the kept window";
    size_t outBytes = FrameBytes(Layout::I420, outW, outH);
    row.outputBytes = int64_t(outBytes);
    row.pixmoor.push_back(
        SizeXFormVariant("CSizeXForm", FCC_I420, 12, AbsSIZE(inW, inH), AbsSIZE(outW, outH), XFormCropPad));

    int32_t dx = (inW - outW) / 2, dy = (inH - outH) / 2;
    Picture src = PictureOf(Layout::I420, SharedSource(), inW, inH);
    if (!pad) src = Shifted(src, dx, dy);
    auto dstAt = [=](uint8_t* base) {
        Picture dst = PictureOf(Layout::I420, base, outW, outH);
        return pad ? Shifted(dst, -dx, -dy) : dst;
    };
    row.peers.push_back(LibyuvVariant(
        pad ? "I420Rect+I420Copy" : "I420Copy",
        [=](uint8_t* base) {
            if (pad) {
                Picture whole = PictureOf(Layout::I420, base, outW, outH);
                libyuv::I420Rect(whole.plane[0], whole.stride[0], whole.plane[1], whole.stride[1], whole.plane[2],
                                 whole.stride[2], 0, 0, outW, outH, 0, 0, 0);
            }
            Picture dst = dstAt(base);
            return libyuv::I420Copy(src.plane[0], src.stride[0], src.plane[1], src.stride[1], src.plane[2],
                                    src.stride[2], dst.plane[0], dst.stride[0], dst.plane[1], dst.stride[1],
                                    dst.plane[2], dst.stride[2], keptW, keptH);
        },
        outBytes));
    row.peers.push_back(SwscaleVariant({AV_PIX_FMT_YUV420P, keptW, keptH}, src,
                                       {AV_PIX_FMT_YUV420P, keptW, keptH}, dstAt, outBytes));
    row.memcpyLimit = MemcpyVariant(int64_t(outBytes));
    rows.push_back(std::move(row));
}

}  // namespace

void AddSizeRows(RowList& rows) {
    for (const FixedPair& pair : kFixedPairs)
        AddRgbScaleRow(rows, std::string(pair.routine) + " RG24", 24, pair.inWidth, pair.inHeight, pair.outWidth,
                       pair.outHeight);
    for (const FrameSize& size : kFrameSizes) {
        for (const GenericScale& scale : kGenericScales) {
            int32_t outW = (size.width * scale.num / scale.den) & ~3;
            int32_t outH = (size.height * scale.num / scale.den) & ~3;
            AddRgbScaleRow(rows, std::string("ScaleGeneric RG") + std::to_string(scale.bits), scale.bits,
                           size.width, size.height, outW, outH);
        }
        for (int32_t margin : kCropPadMargins) AddCropPadRow(rows, size, margin);
    }
}

}  // namespace bench
