// The decompiler: any bytes give text or error 688, and the text holds nothing that a reader of source
// stumbles over.
//
// The first byte of an input holds the settings, the second the interpreter version; the rest is the logic.
#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "fuzz/Check.h"
#include "zorvex/base/Error.h"
#include "zorvex/decompiler/Disassembly.h"
#include "zorvex/decompiler/LogDecode.h"
#include "zorvex/language/AGICommandFunctions.h"

using namespace zorvex;

namespace {

constexpr std::array<const char*, 4> versions{"2.089", "2.440", "2.917", "3.002149"};

/// Every other number has a name.
class FuzzNames : public DecodeNames {
  public:
    explicit FuzzNames(bool present) : present_(present) {}
    std::optional<std::string> ResourceID(AGIResType, std::uint8_t number) const override {
        return NameOf(number);
    }
    bool HasVocabulary() const override { return present_; }
    std::optional<std::string> GroupName(std::int32_t group) const override { return NameOf(group); }
    bool HasItems() const override { return present_; }
    std::optional<ItemName> Item(std::uint8_t number) const override {
        if (number > 100) return std::nullopt;
        return ItemName{number % 5 == 0 ? "?" : "a \"thing\" | more", number % 3 == 0};
    }

  private:
    static std::optional<std::string> NameOf(std::int32_t number) {
        if (number % 2 == 1) return std::nullopt;
        return "name" + std::to_string(number);
    }

    bool present_;
};

void CheckText(const DecodedLogic& logic) {
    FUZZ_CHECK(std::is_sorted(logic.Labels.begin(), logic.Labels.end(), std::less_equal<>()));
    for (std::string line : logic.Lines) {
        if (const std::size_t end = line.find("\r\n"); end != std::string::npos) line.erase(end, 2);
        for (const char character : line)
            FUZZ_CHECK(static_cast<unsigned char>(character) >= 32);
        if (const std::size_t at = line.find("goto(Label"); at != std::string::npos) {
            FUZZ_CHECK(std::stoul(line.substr(at + 10)) <= logic.Labels.size());
        }
    }
}

void CheckListing(ByteView data) {
    std::int32_t next = 2;
    for (const LogicInstruction& instruction : DisassembleLogic(data)) {
        FUZZ_CHECK(instruction.Position == next && instruction.Length > 0);
        next += instruction.Length;
    }
    FUZZ_CHECK(next <= static_cast<std::int32_t>(std::max<std::size_t>(data.size(), 2)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2 || size > 65536) return 0;
    DecodeSettings settings;
    settings.ErrorLevel = static_cast<LogicErrorLevel>(std::min(data[0] & 3, 2));
    settings.SpecialSyntax = (data[0] & 4) != 0;
    settings.ElseAsGoto = (data[0] & 8) != 0;
    settings.ShowAllMessages = (data[0] & 16) != 0;
    settings.NamesAsText = (data[0] & 32) != 0;
    settings.InterpreterVersion = versions[data[1] % versions.size()];
    SetCommandsForVersion(settings.InterpreterVersion);

    const ByteView logic(data + 2, size - 2);
    try {
        CheckText(DecodeLogic(logic, settings, FuzzNames((data[0] & 64) != 0)));
    } catch (const Error& error) {
        FUZZ_CHECK(error.Is(688) && error.Source() == "LogDecode" && !error.Description().empty());
    }
    CheckListing(logic);
    return 0;
}
