#include "core/input_stream.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

#include "core/errors.h"

namespace pixmoor_tool {

InputStream::InputStream(const std::string& path) {
    if (path == "-") {
        file_ = stdin;
        description_ = "standard input";
        return;
    }
    description_ = "'" + path + "'";
    struct stat info;
    if (::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode))
        Fail("cannot read input " + description_ + ": it is a directory");
    file_ = std::fopen(path.c_str(), "rb");
    if (!file_) Fail("cannot open input " + description_ + ": " + std::strerror(errno));
    ownsFile_ = true;
}

InputStream::~InputStream() {
    if (ownsFile_) std::fclose(file_);
}

size_t InputStream::ReadFile(uint8_t* dst, size_t count) {
    size_t got = 0;
    while (got < count) {
        const size_t n = std::fread(dst + got, 1, count - got, file_);
        got += n;
        if (n == 0) {
            if (std::ferror(file_)) Fail("cannot read input " + description_ + ": " + std::strerror(errno));
            break;
        }
    }
    return got;
}

size_t InputStream::Read(uint8_t* dst, size_t count) {
    const size_t fromPeek = std::min(count, peeked_.size());
    std::memcpy(dst, peeked_.data(), fromPeek);
    peeked_.erase(0, fromPeek);
    return fromPeek + ReadFile(dst + fromPeek, count - fromPeek);
}

bool InputStream::ReadLine(std::string& line, size_t limit, const std::string& what) {
    line.clear();
    uint8_t c = 0;
    while (Read(&c, 1) == 1) {
        if (c == '\n') return true;
        if (line.size() == limit)
            Fail(what + " in " + description_ + " is longer than " + std::to_string(limit) + " bytes");
        line += static_cast<char>(c);
    }
    return false;
}

bool InputStream::StartsWith(std::string_view prefix) {
    if (peeked_.size() < prefix.size()) {
        std::string more(prefix.size() - peeked_.size(), '\0');
        more.resize(ReadFile(reinterpret_cast<uint8_t*>(more.data()), more.size()));
        peeked_ += more;
    }
    return std::string_view(peeked_).substr(0, prefix.size()) == prefix;
}

}  // namespace pixmoor_tool
