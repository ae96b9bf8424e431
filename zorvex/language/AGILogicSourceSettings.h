// How logic source is compiled and decompiled: strictness, warnings, reserved names, syntax.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/Types.h"

namespace zorvex {

/// The settings of the logic compiler and decompiler. Reached through AGIGame::LogicSourceSettings; a host
/// may make one of its own and put it there.
///
/// ErrorLevel, SpecialSyntax, ElseAsGoto and ShowAllMessages belong to each object. Everything else is kept
/// once for the library and is the same through every object. Only UseReservedNames is kept with a game; the
/// rest lasts as long as the program.
///
/// A reserved name is a name for one of the interpreter's variables, flags or values. The names stand in
/// eight groups: 1 variables, 2 flags, 3 edge codes, 4 directions, 5 video modes, 6 computer types, 7
/// colours, 8 game information. Names and values are game text. An index out of range raises 9, "Subscript
/// out of range", and changes nothing.
class AGILogicSourceSettings {
  public:
    /// leHigh makes questionable source an error, leMedium a warning, leLow lets most of it pass. Default
    /// leHigh.
    LogicErrorLevel ErrorLevel() const { return errorLevel_; }
    void ErrorLevel(LogicErrorLevel value) { errorLevel_ = value; }

    /// The letter before an argument's number in source: "" for atNum, "v", "f", "m", "o", "i", "s", "w",
    /// "c".
    std::string_view ArgTypePrefix(std::uint8_t index) const;
    /// "number", "variable", "flag", "message", "object", "inventory item", "string", "word", "controller".
    std::string_view ArgTypeName(std::uint8_t index) const;

    /// True when a compile keeps a warning to itself. Numbers 5001 to 5107; all False at first.
    bool IgnoreWarning(std::int32_t warningNumber) const;
    void IgnoreWarning(std::int32_t warningNumber, bool value);

    /// Copies of all reserved defines of an argument type. atNum gives groups 3 to 7 and the number of
    /// inventory items, atDefStr the three texts of the open game between double quotes. A type without any
    /// gives one empty entry.
    std::vector<TDefine> ReservedDefines(ArgTypeEnum argType) const;
    /// A copy of a group's table, 1 to 8.
    std::vector<TDefine> ResDefByGrp(std::int16_t group) const;
    /// Renames an entry of a group; any name is taken, see ValidateResDefs.
    void ResDef(std::int16_t defType, std::int16_t defIndex, std::string_view name);
    /// Brings back all built-in names.
    void ResetResDefines();
    /// Gives every entry whose name cannot be used its built-in name back: an empty or numeric name, a
    /// command, a keyword, an argument such as v12, the name of another value, or a forbidden character. True
    /// when all were good.
    bool ValidateResDefs();

    /// True when the decompiler writes reserved names in place of numbers, if UseReservedNames is on too.
    bool ReservedAsText() const;
    void ReservedAsText(bool value);
    /// The file name extension of logic sources, with its dot, which the setter adds where it is missing.
    /// Default ".lgc".
    const std::string& SourceExt() const;
    void SourceExt(std::string_view value);
    /// True when reserved names count in source. With a game open the setter also notes it in the game's
    /// properties.
    bool UseReservedNames() const;
    void UseReservedNames(bool value);

    /// True when the decompiler writes `v1 = 3;` and `v1 == 3` in place of command and test names.
    bool SpecialSyntax() const { return specialSyntax_; }
    void SpecialSyntax(bool value) { specialSyntax_ = value; }
    /// True when the decompiler writes `else` blocks as jumps.
    bool ElseAsGoto() const { return elseAsGoto_; }
    void ElseAsGoto(bool value) { elseAsGoto_ = value; }
    /// True when the decompiler lists all messages, not only those that no statement uses.
    bool ShowAllMessages() const { return showAllMessages_; }
    void ShowAllMessages(bool value) { showAllMessages_ = value; }
    /// The length at which the decompiler breaks a line with a message up, 0 for never. A message that is
    /// broken up inside an escape sequence is not taken back by the compiler. Default 80.
    std::uint16_t WrapWidth() const { return wrapWidth_; }
    void WrapWidth(std::uint16_t value) { wrapWidth_ = value; }

    /// The source of this object's errors.
    const std::string& strErrSource() const { return errSource_; }
    void strErrSource(std::string_view value) { errSource_ = value; }

  private:
    LogicErrorLevel errorLevel_ = leHigh;
    bool specialSyntax_ = false;
    bool elseAsGoto_ = false;
    bool showAllMessages_ = false;
    std::uint16_t wrapWidth_ = 80;
    std::string errSource_ = "Zorvex.agiLogicSourceSettings";
};

}  // namespace zorvex
