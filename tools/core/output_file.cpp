#include "core/output_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "core/errors.h"

namespace pixmoor_tool {

std::string TemporaryNameFor(const std::string& path) {
    const size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "" : path.substr(0, slash + 1);
    const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    return folder + "." + name + ".partial-" + std::to_string(::getpid());
}

OutputFile::OutputFile(const std::string& path) : path_(path) {
    if (path == "-") {
        file_ = stdout;
        return;
    }
    struct stat info;
    if (path.empty() || path.back() == '/' || (::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode)))
        Fail("cannot write output '" + path + "': it is a directory");
    temporaryPath_ = TemporaryNameFor(path);
    file_ = std::fopen(temporaryPath_.c_str(), "wb");
    if (!file_) Fail("cannot write output '" + path + "': " + std::strerror(errno));
}

OutputFile::~OutputFile() {
    if (committed_ || temporaryPath_.empty()) return;
    if (file_) std::fclose(file_);
    std::remove(temporaryPath_.c_str());
}

void OutputFile::FailWrite(const std::string& why) {
    Fail("cannot write " + (path_ == "-" ? std::string("to standard output") : "output '" + path_ + "'") + ": " + why);
}

void OutputFile::Write(const void* data, size_t count) {
    if (count != 0 && std::fwrite(data, 1, count, file_) != count) FailWrite(std::strerror(errno));
}

void OutputFile::Commit() {
    if (std::fflush(file_) != 0) FailWrite(std::strerror(errno));
    if (temporaryPath_.empty()) {
        committed_ = true;
        return;
    }
    const int closed = std::fclose(file_);
    file_ = nullptr;
    if (closed != 0) FailWrite(std::strerror(errno));
    if (std::rename(temporaryPath_.c_str(), path_.c_str()) != 0) FailWrite(std::strerror(errno));
    committed_ = true;
}

}  // namespace pixmoor_tool
