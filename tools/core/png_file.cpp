#include "core/png_file.h"

#include <png.h>

#include <cstring>

#include "core/errors.h"
#include "core/output_file.h"

namespace pixmoor_tool {

std::string WritePng(std::FILE* file, const RgbImage& image) {
    png_image header;
    std::memset(&header, 0, sizeof header);
    header.version = PNG_IMAGE_VERSION;
    header.width = static_cast<png_uint_32>(image.width);
    header.height = static_cast<png_uint_32>(image.height);
    header.format = PNG_FORMAT_RGB;
    if (!png_image_write_to_stdio(&header, file, 0, image.pixels.data(), 0, nullptr)) {
        std::string why = header.message;
        png_image_free(&header);
        return why.empty() ? "the PNG encoder failed" : why;
    }
    return "";
}

void SavePng(const std::string& path, const RgbImage& image) {
    OutputFile out(path);
    const std::string why = WritePng(out.file(), image);
    if (!why.empty()) Fail("cannot write output '" + path + "': " + why);
    out.Commit();
}

RgbImage LoadPng(const std::string& path) {
    png_image header;
    std::memset(&header, 0, sizeof header);
    header.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&header, path.c_str()))
        Fail("cannot read PNG '" + path + "': " + header.message);
    header.format = PNG_FORMAT_RGB;
    RgbImage image(static_cast<int32_t>(header.width), static_cast<int32_t>(header.height));
    if (!png_image_finish_read(&header, nullptr, image.pixels.data(), 0, nullptr)) {
        std::string why = header.message;
        png_image_free(&header);
        Fail("cannot read PNG '" + path + "': " + why);
    }
    return image;
}

}  // namespace pixmoor_tool
