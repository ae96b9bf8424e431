#include "zorvex/vocab/TextForm.h"

#include <algorithm>
#include <array>

#include "zorvex/base/HostText.h"
#include "zorvex/base/Text.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

namespace {

constexpr std::string_view endOfList = "\xFF\xFF";

constexpr std::array<std::string_view, 4> acceptedVersions{LibraryVersion, "ZORVEX v1.2     ",
                                                           "ZORVEX v1.0     ", "1.0 BETA        "};
constexpr std::string_view acceptedVersionStart = "1.2.";

}  // namespace

TextFormReader::TextFormReader(ByteView bytes)
    : rest_(reinterpret_cast<const char*>(bytes.data()), bytes.size()) {}

std::string_view TextFormReader::NextLine() {
    ++lineNumber_;
    const std::size_t end = rest_.find_first_of("\r\n");
    const std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(line.size());
    if (rest_.starts_with("\r\n")) {
        rest_.remove_prefix(2);
    } else if (!rest_.empty()) {
        rest_.remove_prefix(1);
    }
    return line;
}

bool TextFormReader::TakeVersion() {
    const std::string_view line = NextLine();
    if (line.starts_with(acceptedVersionStart)) return true;
    return std::find(acceptedVersions.begin(), acceptedVersions.end(), line) != acceptedVersions.end();
}

bool TextFormReader::NextEntry(std::string_view& line) {
    if (AtEnd()) return false;
    line = NextLine();
    return line != endOfList;
}

std::string TextFormReader::Description() {
    std::string text;
    for (bool first = true; !AtEnd(); first = false) {
        if (!first) text.push_back('\r');
        text.append(NextLine());
    }
    return CutCharacters(HostTextOf(text), MaxDescription);
}

TextFormWriter::TextFormWriter() {
    Line(LibraryVersion);
}

void TextFormWriter::Line(std::string_view text) {
    constexpr std::string_view lineEnd = "\r\n";
    bytes_.insert(bytes_.end(), text.begin(), text.end());
    bytes_.insert(bytes_.end(), lineEnd.begin(), lineEnd.end());
}

ByteArray TextFormWriter::Finish(std::string_view description) {
    if (!description.empty()) {
        Line(endOfList);
        Line(description);
    }
    return std::move(bytes_);
}

}  // namespace zorvex
