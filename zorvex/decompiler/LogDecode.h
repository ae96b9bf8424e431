// The decompiler: the bytes of a compiled logic become source text that the compiler takes back.
//
// The text is game text, one byte a character. It has one statement a line, indented by two blanks a block;
// what the decompiler repaired or could not resolve stands behind the statement in question as a comment "[
// WARNING: ...". How much it refuses and how much it repairs goes by the error level: leHigh refuses
// undefined references and blocks that do not nest, leMedium repairs them and says so, leLow repairs them in
// silence.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/Types.h"

namespace zorvex {

class StringList;

/// How a logic is decompiled, see AGILogicSourceSettings.
struct DecodeSettings {
    LogicErrorLevel ErrorLevel = leHigh;
    bool SpecialSyntax = false;
    bool ElseAsGoto = false;
    bool ShowAllMessages = false;
    bool NamesAsText = false;  // ReservedAsText and UseReservedNames
    std::string InterpreterVersion;
    /// Messages in statements go on in the next line where one would be longer than this; 0 for never.
    std::uint16_t WrapWidth = 80;
};

/// What a decompile looks up outside of the logic. The names are game text. This class itself knows none:
/// code then comes out with numbers.
class DecodeNames {
  public:
    struct ItemName {
        std::string Name;
        bool Unique = true;
    };

    virtual ~DecodeNames() = default;

    /// The ID of a resource, or none when there is no such resource.
    virtual std::optional<std::string> ResourceID(AGIResType /*type*/, std::uint8_t /*number*/) const {
        return std::nullopt;
    }
    /// False when there is no vocabulary: word groups are then written as numbers.
    virtual bool HasVocabulary() const { return false; }
    /// The word that stands for a group, or none when there is no such group.
    virtual std::optional<std::string> GroupName(std::int32_t /*group*/) const { return std::nullopt; }
    /// False when there is no inventory: items are then written by number.
    virtual bool HasItems() const { return false; }
    /// The item of that number, or none past the last.
    virtual std::optional<ItemName> Item(std::uint8_t /*number*/) const { return std::nullopt; }
};

/// One message of a decompiled logic: its literal, quotes and escapes included.
struct DecodedMessage {
    std::uint8_t Number = 0;
    std::string Literal;
    bool Used = false;  // a statement refers to it
};

/// A decompiled logic, with what a report on it needs.
struct DecodedLogic {
    std::vector<std::string> Lines;    // an `if` or `else` holds a line end, before its brace
    std::vector<std::int32_t> Labels;  // jump targets in order; the first is Label1
    std::vector<DecodedMessage> Messages;
    std::vector<std::string> Warnings;  // in the order in which they arose
    /// A message was broken up between a backslash and the character that it belongs to. The compiler does
    /// not take such a text back; one without wrapping it does.
    bool CutsEscape = false;
};

/// Decompiles a logic with the settings, the tables and the open game of the library. Raises 688, with a
/// description of its own and the source "LogDecode", for a logic that cannot be read at the present error
/// level.
std::shared_ptr<StringList> DecodeLogic(ByteView data);

/// The same, with settings and names of the caller's choice; the command tables and reserved names are the
/// library's.
DecodedLogic DecodeLogic(ByteView data, const DecodeSettings& settings, const DecodeNames& names);

/// What a literal of DecodedMessage stands for, byte by byte.
std::string TextOfLiteral(std::string_view literal);

/// The settings that the library holds at present.
DecodeSettings PresentDecodeSettings();

/// The names of the open game.
const DecodeNames& PresentDecodeNames();

}  // namespace zorvex
