#include "tests/support/CaseFile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

#include "tests/support/TestFiles.h"
#include "zorvex/game/Error.h"
#include "zorvex/game/Helpers.h"
#include "zorvex/game/Text.h"

namespace zorvex::test {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view sectionMark = "===";

std::string TextOfError(const Error& error) {
    const bool fromCatalogue = error.Id() >= 0 && error.Id() < 0x10000;
    return "error " + std::to_string(fromCatalogue ? error.Id() : error.Number()) + ": " +
           error.Description() + "\n";
}

CaseResult RunOne(const CaseFile& file, const std::function<CaseResult(const CaseFile&)>& run) {
    try {
        CaseResult result = run(file);
        if (!result.Output.empty() && result.Output.back() != '\n') result.Output.push_back('\n');
        return result;
    } catch (const Error& error) {
        return {TextOfError(error), true};
    }
}

bool Rebasing() {
    const char* set = std::getenv("ZORVEX_REBASE");
    if (set != nullptr && std::string_view(set) == "1") return true;
    const std::vector<std::string> arguments = testing::internal::GetArgvs();
    return std::find(arguments.begin(), arguments.end(), "--rebase") != arguments.end();
}

std::string ReadText(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void CheckCase(const fs::path& path, const std::function<CaseResult(const CaseFile&)>& run) {
    SCOPED_TRACE(path.string());
    const std::string text = ReadText(path);
    const CaseFile file(path.stem().string(), text);
    const CaseResult result = RunOne(file, run);
    EXPECT_EQ(result.Failed, file.MustFail()) << result.Output;
    if (!Rebasing()) {
        EXPECT_EQ(file.Section("expected"), result.Output);
        return;
    }
    const std::string rebased = file.With("expected", result.Output);
    if (rebased != text) std::ofstream(path, std::ios::binary) << rebased;
}

/// Reads the text of bytes item by item.
class BytesReader {
  public:
    explicit BytesReader(std::string_view text) : text_(text) {}

    ByteArray Read() {
        for (at_ = 0; at_ < text_.size();)
            ReadItem();
        return bytes_;
    }

  private:
    void ReadItem() {
        const char c = text_[at_];
        if (c == ' ' || c == '\n' || c == '\r' || c == '\t') {
            ++at_;
        } else if (c == '#') {
            at_ = std::min(text_.find('\n', at_), text_.size());
        } else if (c == '"') {
            const std::size_t end = text_.find('"', at_ + 1);
            if (end == std::string_view::npos) Fail();
            Add(Bytes(text_.substr(at_ + 1, end - at_ - 1)), end + 1);
        } else if (c == '*') {
            Repeat();
        } else {
            const auto value =
                at_ + 2 <= text_.size() ? ParseLong("&H" + std::string(text_.substr(at_, 2))) : std::nullopt;
            if (!value) Fail();
            Add({static_cast<std::uint8_t>(*value)}, at_ + 2);
        }
    }

    void Add(ByteArray item, std::size_t next) {
        last_ = std::move(item);
        bytes_.insert(bytes_.end(), last_.begin(), last_.end());
        at_ = next;
    }

    void Repeat() {
        std::size_t count = 0;
        for (++at_; at_ < text_.size() && text_[at_] >= '0' && text_[at_] <= '9'; ++at_) {
            count = count * 10 + static_cast<std::size_t>(text_[at_] - '0');
        }
        if (count == 0 || count > 1'000'000 || last_.empty()) Fail();
        for (; count > 1; --count)
            bytes_.insert(bytes_.end(), last_.begin(), last_.end());
    }

    [[noreturn]] void Fail() const {
        throw std::invalid_argument("text of bytes: cannot read '" + std::string(text_.substr(at_, 20)) +
                                    "'");
    }

    std::string_view text_;
    std::size_t at_ = 0;
    ByteArray bytes_;
    ByteArray last_;
};

}  // namespace

CaseFile::CaseFile(std::string name, std::string_view text) : name_(std::move(name)) {
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

int CaseFile::Number(std::string_view key, int defaultValue) const {
    return ParseLong(Setting(key)).value_or(defaultValue);
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

void RunCases(std::string_view kind, const std::function<CaseResult(const CaseFile&)>& run) {
    std::vector<fs::path> paths;
    std::error_code none;
    for (const auto& entry :
         fs::directory_iterator(fs::path(SourceDirectory()) / "tests" / "cases" / kind, none)) {
        if (entry.path().extension() == ".case") paths.push_back(entry.path());
    }
    ASSERT_FALSE(paths.empty()) << "no cases of the kind " << kind;
    std::sort(paths.begin(), paths.end());
    for (const fs::path& path : paths)
        CheckCase(path, run);
}

ByteArray BytesOfText(std::string_view text) {
    return BytesReader(text).Read();
}

std::string TextOfBytes(ByteView bytes) {
    std::string text;
    for (std::size_t start = 0; start < bytes.size(); start += 16) {
        std::string line;
        std::string characters;
        for (const std::uint8_t byte :
             bytes.subspan(start, std::min<std::size_t>(16, bytes.size() - start))) {
            line.append(HexPad(byte, 2)).push_back(' ');
            characters.push_back(byte >= 32 && byte < 127 ? static_cast<char>(byte) : '.');
        }
        line.resize(49, ' ');
        text.append(line + "# " + HexPad(static_cast<std::int32_t>(start), 4) + " " + characters + "\n");
    }
    return text;
}

}  // namespace zorvex::test
