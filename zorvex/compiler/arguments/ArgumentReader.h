// Takes typed arguments off the source and turns them into the values that the code holds.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "zorvex/compiler/CompileRun.h"

namespace zorvex {

/// Reads the arguments of one compile.
class ArgumentReader {
  public:
    explicit ArgumentReader(CompileRun& run) : run_(run) {}
    ArgumentReader(const ArgumentReader&) = delete;
    ArgumentReader& operator=(const ArgumentReader&) = delete;

    /// Takes one argument and returns its value: a byte, or a word group for atVocWrd. `argPos` is its
    /// position from 0 as messages count it, -1 when it has none. `varOrNum` in: a variable will do for a
    /// number; out: False when it was a plain number. An argument that will not do ends the compile.
    std::int32_t GetNextArg(ArgTypeEnum type, std::int32_t argPos, bool& varOrNum);
    std::int32_t GetNextArg(ArgTypeEnum type, std::int32_t argPos) {
        bool varOrNum = false;
        return GetNextArg(type, argPos, varOrNum);
    }

    /// The highest string number that the interpreter has room for: 11 or 23.
    std::int32_t HighestString() const { return highestString_; }

    /// Fails when a number is the count of the items of a missing inventory: `token` stands in the source,
    /// and `value` is what it stands for.
    void RequireItemCount(std::string_view token, std::string_view value);

  private:
    /// The argument in hand.
    struct Argument {
        std::string_view text;
        std::string position;  // as messages say it
    };

    std::int32_t ReadArgument(ArgTypeEnum type, std::int32_t argPos, bool& varOrNum);
    std::int32_t NumberArgument(const Argument& arg, bool& varOrNum);
    std::int32_t MessageArgument(const Argument& arg);
    std::int32_t ObjectArgument(const Argument& arg);
    std::int32_t StringArgument(const Argument& arg);
    std::int32_t WordArgument(const Argument& arg);
    std::int32_t ControllerArgument(const Argument& arg);
    std::int32_t ItemArgument(const Argument& arg);
    std::int32_t VocabularyArgument(const Argument& arg);
    std::int32_t RequireByte(const Argument& arg);
    std::string_view QuotedText(std::string_view token);
    std::int32_t ItemNamed(const Argument& arg);
    /// The value of the reserved define for the number of inventory items: their count less 1, -1 without a
    /// list.
    std::int32_t NumberOfItems() const;
    /// The lists of the game; a missing one ends the compile with an error that names the argument.
    const AGIInventoryObjects& ItemsFor(std::string_view argument);
    const AGIWordList& WordsFor(const Argument& arg);
    std::optional<std::int32_t> GroupOfWord(const Argument& arg);
    std::optional<std::int32_t> GroupOfNumber(const Argument& arg, double number, bool& exists);

    CompileRun& run_;
    std::int32_t highestString_ = HighestStringOfVersion();
    std::string joined_;
    std::shared_ptr<const AGIInventoryObjects> itemList_;  // when first needed
    std::shared_ptr<const AGIWordList> wordList_;
    std::optional<NameMap<std::int32_t>> items_;  // the first item of each name, made when first needed

    std::int32_t HighestStringOfVersion() const;
};

}  // namespace zorvex
