#include "tests/support/CaseFile.h"

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>

#include "tests/support/TestFiles.h"

namespace zorvex::test {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view sectionMark = "===";

bool Rebasing() {
    const char* set = std::getenv("ZORVEX_REBASE");
    return set != nullptr && std::string_view(set) == "1";
}

}  // namespace

CaseFile::CaseFile(std::string_view text) {
    std::string* part = &remark_;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with(sectionMark)) {
            part = &sections_.emplace_back(std::string(Trim(line.substr(sectionMark.size()))), "").second;
        } else {
            part->append(line).push_back('\n');
        }
    }
}

bool CaseFile::Has(std::string_view section) const {
    return std::any_of(sections_.begin(), sections_.end(),
                       [&](const auto& each) { return each.first == section; });
}

std::string CaseFile::Section(std::string_view section) const {
    for (const auto& [name, text] : sections_) {
        if (name == section) return text;
    }
    return {};
}

std::string CaseFile::Setting(std::string_view key, std::string_view defaultValue) const {
    std::istringstream lines(Section("settings"));
    for (std::string line; std::getline(lines, line);) {
        const std::size_t equals = line.find('=');
        if (equals != std::string::npos && Trim(std::string_view(line).substr(0, equals)) == key) {
            return std::string(Trim(std::string_view(line).substr(equals + 1)));
        }
    }
    return std::string(defaultValue);
}

std::string CaseFile::With(std::string_view section, std::string_view text) const {
    CaseFile changed = *this;
    if (!Has(section)) changed.sections_.emplace_back(section, "");
    std::string whole = remark_;
    for (auto& [name, content] : changed.sections_) {
        if (name == section) content = text;
        whole.append(sectionMark).append(" ").append(name).append("\n").append(content);
    }
    return whole;
}

void RunCases(std::string_view kind, const std::function<std::string(const CaseFile&)>& run) {
    std::size_t count = 0;
    for (const auto& entry : fs::directory_iterator(fs::path(SourceDirectory()) / "tests/cases" / kind)) {
        SCOPED_TRACE(entry.path().string());
        const std::string text = TextOfFile(entry.path());
        const CaseFile file(text);
        std::string output;
        EXPECT_NO_THROW(output = run(file));
        if (!output.ends_with('\n')) output += '\n';
        if (Rebasing()) {
            std::ofstream(entry.path(), std::ios::binary) << file.With("expected", output);
        } else {
            EXPECT_EQ(file.Section("expected"), output);
        }
        ++count;
    }
    EXPECT_GT(count, 0U);
}

ByteArray BytesOfText(std::string_view text) {
    static const std::regex form(R"re((\s+|#.*)|"([^"]*)"|\*([0-9]+)|([0-9A-Fa-f]{2}))re");
    ByteArray bytes;
    ByteArray item;
    std::cmatch found;
    const char* const end = text.data() + text.size();
    for (const char* at = text.data(); at != end; at = found[0].second) {
        if (!std::regex_search(at, end, found, form, std::regex_constants::match_continuous))
            throw std::invalid_argument("text of bytes: cannot read '" + std::string(at, end) + "'");
        if (found[1].matched) continue;
        if (found[2].matched) item = Bytes(found[2].str());
        if (found[4].matched) item = {static_cast<std::uint8_t>(std::stoi(found[4], nullptr, 16))};
        for (int count = found[3].matched ? std::stoi(found[3]) - 1 : 1; count > 0; --count)
            bytes.insert(bytes.end(), item.begin(), item.end());
    }
    return bytes;
}

std::string TextOfBytes(ByteView bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes)
        text += (text.empty() ? "" : " ") + Hex2(byte);
    return text;
}

std::string DocumentedBlock(const std::string& page, const std::string& language, int n) {
    const std::string text = TextOfFile(fs::path(SourceDirectory()) / "docs/formats" / page);
    const std::string mark = "\n```" + language + "\n";
    std::size_t begin = text.find(mark);
    for (; n > 0 && begin != std::string::npos; --n)
        begin = text.find(mark, begin + 1);
    if (begin == std::string::npos) throw std::invalid_argument("no such block in " + page);
    begin += mark.size();
    return text.substr(begin, text.find("```", begin) - begin);
}

ByteArray DocumentedBytes(const std::string& page, int n) {
    return BytesOfText(DocumentedBlock(page, "hex", n));
}

}  // namespace zorvex::test
