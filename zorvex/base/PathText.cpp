#include "zorvex/base/PathText.h"

namespace zorvex {

std::string CDir(std::string_view directory) {
    std::string result(directory);
    if (!result.empty() && result.back() != '\\') result.push_back('\\');
    return result;
}

std::string JustPath(std::string_view path, bool noSlash) {
    const std::size_t last = path.rfind('\\');
    std::string result(last == std::string_view::npos ? std::string_view() : path.substr(0, last));
    if (!noSlash) result.push_back('\\');
    return result;
}

std::string JustFileName(std::string_view path) {
    const std::size_t last = path.rfind('\\');
    return std::string(last == std::string_view::npos ? path : path.substr(last + 1));
}

std::string FileNameNoExt(std::string_view path) {
    const std::string name = JustFileName(path);
    return name.substr(0, name.rfind('.'));
}

}  // namespace zorvex
