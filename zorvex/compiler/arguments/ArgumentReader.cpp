#include "zorvex/compiler/arguments/ArgumentReader.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "zorvex/base/Checked.h"
#include "zorvex/base/CodePage.h"
#include "zorvex/base/Text.h"
#include "zorvex/compiler/CompileMessages.h"
#include "zorvex/compiler/arguments/ArgumentText.h"
#include "zorvex/compiler/lines/TokenReader.h"
#include "zorvex/language/LogicFormat.h"
#include "zorvex/language/ReservedTables.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex {

namespace {

constexpr std::int32_t highestWord = 9;
constexpr std::int32_t highestController = 49;
constexpr std::array<std::string_view, 3> versionsWith12Strings{"2.089", "2.272", "3.002149"};

/// A text without its first and last character.
std::string_view Inside(std::string_view quoted) {
    return quoted.substr(1, quoted.size() - 2);
}

}  // namespace

std::int32_t ArgumentReader::NumberOfItems() const {
    return static_cast<std::int32_t>(Val(run_.World.Reserved().Group(rgGameInfo)[giNumberOfItems].Value));
}

std::int32_t ArgumentReader::HighestStringOfVersion() const {
    const bool few = std::find(versionsWith12Strings.begin(), versionsWith12Strings.end(),
                               run_.World.InterpreterVersion()) != versionsWith12Strings.end();
    return few ? 11 : 23;
}

std::int32_t ArgumentReader::GetNextArg(ArgTypeEnum type, std::int32_t argPos, bool& varOrNum) {
    return Reporting(run_, "GetNextArg", [&] {
        // Arguments are 16-bit values, and so a word group past 32767 cannot be one.
        return Narrow<std::int16_t>(ReadArgument(type, argPos, varOrNum), "LogCompile");
    });
}

std::int32_t ArgumentReader::ReadArgument(ArgTypeEnum type, std::int32_t argPos, bool& varOrNum) {
    Argument arg{NextCommand(run_, false), std::to_string(argPos + 1)};
    const std::string_view token = arg.text;
    if (!run_.Names.ConvertArgument(arg.text, type, varOrNum)) {
        // The command's name takes the place of %2 further up.
        if (token == ")") run_.Fail(4054, {arg.position, "%2", ArgTypeLabel(type)});
        CompileFailure failure = run_.Failure(4063, {arg.position, ArgTypeLabel(type), token});
        failure.value = ConvertToCodePage(token);
        throw failure;
    }
    switch (type) {
        case atNum: RequireItemCount(token, arg.text); return NumberArgument(arg, varOrNum);
        case atMsg: return MessageArgument(arg);
        case atSObj: return ObjectArgument(arg);
        case atIObj: return ItemArgument(arg);
        case atStr: return StringArgument(arg);
        case atWord: return WordArgument(arg);
        case atCtrl: return ControllerArgument(arg);
        case atVocWrd: return VocabularyArgument(arg);
        default: return RequireByte(arg);
    }
}

std::int32_t ArgumentReader::RequireByte(const Argument& arg) {
    const std::int32_t value = VariableValue(arg.text);
    if (value == -1) run_.Fail(4066, {arg.position});
    return value;
}

std::string_view ArgumentReader::QuotedText(std::string_view token) {
    return Inside(ConcatArg(run_, token, joined_));
}

// --- Numbers and markers ---
std::int32_t ArgumentReader::NumberArgument(const Argument& arg, bool& varOrNum) {
    const std::optional<double> number = NumericValue(arg.text);
    if (!number) {
        if (!varOrNum) run_.Fail(4062, {arg.position});
        return RequireByte(arg);
    }
    varOrNum = false;
    if (*number < -128) run_.Fail(4157);
    if (!(*number <= -1)) return RequireByte(arg);
    run_.Report(5098, 5098);
    return static_cast<std::int32_t>(RoundHalfEven(*number)) + 256;
}

std::int32_t ArgumentReader::ObjectArgument(const Argument& arg) {
    const std::int32_t value = RequireByte(arg);
    const std::int32_t highest = ItemsFor(arg.text).MaxScreenObjects();
    if (value > highest) run_.Report(4119, 5006, {std::to_string(highest)});
    return value;
}

std::int32_t ArgumentReader::StringArgument(const Argument& arg) {
    const std::int32_t value = VariableValue(arg.text);
    const std::string limit = std::to_string(highestString_);
    if (value == -1 || (value > highestString_ && run_.Level == leHigh)) {
        if (run_.Level != leHigh) run_.Fail(4066, {arg.position});
        run_.Fail(4079, {arg.position, limit});
    }
    if (value > highestString_) run_.Report(0, 5007, {limit});
    return value;
}

std::int32_t ArgumentReader::WordArgument(const Argument& arg) {
    const std::int32_t value = VariableValue(arg.text);
    if (value == -1) run_.Fail(run_.Level == leHigh ? 4090 : 4066, {arg.position});
    if (value > highestWord) run_.Report(4090, 5008, {arg.position});
    return value;
}

std::int32_t ArgumentReader::ControllerArgument(const Argument& arg) {
    const std::int32_t value = VariableValue(arg.text);
    if (value == -1) run_.Fail(run_.Level == leHigh ? 4136 : 4066, {arg.position});
    if (value > highestController) run_.Report(4136, 5060, {arg.position});
    return value;
}

// --- The lists of the game ---
const AGIInventoryObjects& ArgumentReader::ItemsFor(std::string_view argument) {
    if (itemList_ == nullptr) itemList_ = run_.World.Items();
    if (itemList_ == nullptr) run_.Fail(4163, {argument});
    return *itemList_;
}

const AGIWordList& ArgumentReader::WordsFor(const Argument& arg) {
    if (wordList_ == nullptr) wordList_ = run_.World.Words();
    if (wordList_ == nullptr) run_.Fail(4162, {arg.position});
    return *wordList_;
}

void ArgumentReader::RequireItemCount(std::string_view token, std::string_view value) {
    if (NumberOfItems() >= 0) return;
    const TDefine& count = run_.World.Reserved().Group(rgGameInfo)[giNumberOfItems];
    if (value == count.Value && EqualNoCase(token, count.Name)) run_.Fail(4163, {token});
}

// --- Messages ---
std::int32_t ArgumentReader::MessageArgument(const Argument& arg) {
    if (arg.text.starts_with('"')) {
        const std::int32_t number = MessageNum(run_, QuotedText(arg.text));
        if (number == 0) run_.Fail(4092);
        return number;
    }
    const std::int32_t value = RequireByte(arg);
    auto& used = run_.Messages.MsgUsed[static_cast<std::size_t>(value)];
    if (value == 0) {
        run_.Report(4107, 5091);
    } else if (!used) {
        run_.Report(4113, 5090, {std::to_string(value)});
    }
    if (!used && run_.Level == leMedium) StoreMessage(run_, value, {});
    return value;
}

// --- Inventory items ---
std::int32_t ArgumentReader::ItemNamed(const Argument& arg) {
    std::string name = ReplaceAll(QuotedText(arg.text), "\\\"", "\"");
    if (!items_) {
        items_.emplace();
        std::int32_t number = 0;
        for (const auto& item : ItemsFor(arg.text))
            items_->emplace(item->ItemName(), number++);
    }
    const std::int32_t* found = Find(*items_, name);
    if (found != nullptr) return *found;
    run_.FailOrBlameQuote(4075, {arg.position});
}

std::int32_t ArgumentReader::ItemArgument(const Argument& arg) {
    std::int32_t value = 0;
    if (arg.text.starts_with('"')) {
        value = ItemNamed(arg);
        if (!ItemsFor(arg.text).Item(value)->Unique()) run_.Report(4036, 5003, {arg.position});
    } else {
        value = RequireByte(arg);
    }
    if (value > NumberOfItems()) {
        run_.Report(4112, 5005, {arg.position});
    } else if (ItemsFor(arg.text).Item(value)->ItemName() == "?") {
        run_.Report(4111, 5004, {arg.position});
    }
    return value;
}

// --- Vocabulary ---
/// The group that a number stands for, and whether there is such a group; nothing for a number that is none.
std::optional<std::int32_t> ArgumentReader::GroupOfNumber(const Argument& arg, double number, bool& exists) {
    if (number != std::floor(number) || number < -1) return std::nullopt;
    if (number > MaxLogicWord) run_.Fail(4164, {arg.text});
    const auto group = static_cast<std::int32_t>(number);
    exists = WordsFor(arg).GroupExists(group);
    if (!exists && group < 0) return std::nullopt;
    return group;
}

std::optional<std::int32_t> ArgumentReader::GroupOfWord(const Argument& arg) {
    const AGIWordList& words = WordsFor(arg);
    if (words.WordExists(arg.text)) return words.Item(arg.text).Group;
    if (!EqualNoCase(arg.text, "a") && !EqualNoCase(arg.text, "i")) return std::nullopt;
    run_.Report(5108, 5108, {arg.text});
    return 0;
}

std::int32_t ArgumentReader::VocabularyArgument(const Argument& arg) {
    Argument word = arg;
    bool exists = true;
    std::optional<std::int32_t> group;
    if (const auto number = NumericValue(word.text)) {
        group = GroupOfNumber(word, *number, exists);
    } else {
        word.text = QuotedText(word.text);
        group = GroupOfWord(word);
    }
    if (!group) run_.Fail(4114, {word.text});
    if (*group > MaxLogicWord) run_.Fail(4164, {word.text});
    if (!exists) run_.Report(4114, 5019, {word.text});
    if (*group == 0) run_.Report(4035, 5083, {word.text});
    return *group;
}

}  // namespace zorvex
