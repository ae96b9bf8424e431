#include "zorvex/base/FileName.h"

#include "zorvex/base/Error.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/Text.h"

namespace zorvex {

namespace {

/// The control characters of ASCII, and those that follow it in UTF-8.
bool HoldsControl(std::string_view text) {
    unsigned char before = 0;
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (code < 0x20 || code == 0x7F) return true;
        if (before == 0xC2 && code >= 0x80 && code < 0xA0) return true;
        before = code;
    }
    return false;
}

}  // namespace

FileName::FileName(std::string_view text) : text_(text) {
    if (!Fits(text)) RaiseRuntime(reBadFileName);
}

std::optional<FileName> FileName::Of(std::string_view text) {
    if (!Fits(text)) return std::nullopt;
    return FileName(text);
}

bool FileName::Fits(std::string_view text) {
    return !text.empty() && text.size() <= MaxLength && text != "." && text != ".." &&
           text.find_first_of("\\/:") == std::string_view::npos && !HoldsControl(text);
}

bool FileName::FitsEverywhere(std::string_view text) {
    return Fits(text) && Trim(text) == text && text.find_first_of("*?\"<>|") == std::string_view::npos;
}

std::string FileName::In(std::string_view directory) const {
    return CDir(directory) + text_;
}

}  // namespace zorvex
