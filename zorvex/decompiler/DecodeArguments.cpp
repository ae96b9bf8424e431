// The third step of a decompile: the text of arguments, as numbers, names or messages.
#include "zorvex/base/Text.h"
#include "zorvex/decompiler/DecodeRun.h"
#include "zorvex/language/ArgumentMarkers.h"

namespace zorvex {

namespace {

constexpr std::size_t maxArgIndent = 60;

/// Variables whose values have names of their own, and the highest such value.
struct NamedValues {
    int variable;
    ReservedGroup group;
    std::uint8_t highest;
};
constexpr std::array<NamedValues, 5> namedValues{{{2, rgEdgeCodes, 4},
                                                  {5, rgEdgeCodes, 4},
                                                  {6, rgDirections, 8},
                                                  {20, rgComputerTypes, 8},
                                                  {26, rgVideoModes, 4}}};

constexpr std::uint8_t lastNamedVariable = 26;
constexpr std::uint8_t lastOrdinaryFlag = 16;
constexpr std::uint8_t autoloopFlag = 20;
constexpr std::uint8_t autoloopEntry = 17;
constexpr float autoloopVersion = 3.002102F;

/// Arguments that are numbers of resources, with the command's name as the warning has it.
struct ResourceArgument {
    std::uint8_t command;
    std::uint8_t index;
    AGIResType type;
    std::string_view name;
};
constexpr std::array<ResourceArgument, 12> resourceArguments{{{18, 0, rtLogic, "new.room"},
                                                              {20, 0, rtLogic, "loadlogics"},
                                                              {22, 0, rtLogic, "call"},
                                                              {30, 0, rtView, "load.view"},
                                                              {32, 0, rtView, "discard.view"},
                                                              {41, 1, rtView, "set.view"},
                                                              {98, 0, rtSound, "load.sound"},
                                                              {99, 0, rtSound, "sound"},
                                                              {122, 0, rtView, "add.to.pic"},
                                                              {129, 0, rtView, "show.obj"},
                                                              {150, 0, rtLogic, "trace.info"},
                                                              {175, 0, rtSound, "discard.sound"}}};

std::string_view ResourceWord(AGIResType type) {
    return type == rtLogic ? "logic" : type == rtView ? "view" : "sound";
}

constexpr std::uint8_t namedColors = 16;

bool IsColor(std::uint8_t command, std::size_t index) {
    return (command == 105 && index == 2) || (command == 154 && index == 4) || command == 109;
}

/// True when a text ends in a backslash that no other makes an ordinary character.
bool EndsInBackslash(std::string_view text) {
    const std::size_t other = text.find_last_not_of('\\');
    return (text.size() - (other == std::string_view::npos ? 0 : other + 1)) % 2 == 1;
}

}  // namespace

void DecodeRun::WriteArgument(std::uint8_t command, std::size_t index, std::uint8_t value, ArgTypeEnum type) {
    if (type == atMsg) {
        AppendWrapped(MessageValue(value));
    } else if (IsColor(command, index) && value < namedColors) {
        AppendName(rgColors, value);
    } else if (type != atNum || !AppendResourceID(command, index, value)) {
        ArgValue(value, type);
    }
}

bool DecodeRun::AppendResourceID(std::uint8_t command, std::size_t index, std::uint8_t value) {
    if (!settings_.NamesAsText) return false;
    for (const ResourceArgument& argument : resourceArguments) {
        if (argument.command != command || argument.index != index) continue;
        if (const auto id = names_.ResourceID(argument.type, value)) {
            line_ += *id;
            return true;
        }
        if (settings_.ErrorLevel != leLow) {
            NoteDecodeWarning(std::string(ResourceWord(argument.type)) + ' ' + std::to_string(value) +
                              " in " + std::string(argument.name) + "() does not exist");
        }
        return false;
    }
    return false;
}

void DecodeRun::ArgValue(std::uint8_t value, ArgTypeEnum type, int variable) {
    if (settings_.NamesAsText) {
        switch (type) {
            case atNum: return NumberValue(value, variable);
            case atFlag: return FlagValue(value);
            case atIObj: return ItemValue(value);
            case atVar:
                if (value <= lastNamedVariable) return AppendName(rgVariables, value);
                break;
            case atSObj:
                if (value == 0) return AppendName(rgGameInfo, giEgo);
                break;
            case atStr:
                if (value == 0) return AppendName(rgGameInfo, giInputPrompt);
                break;
            default: break;
        }
    }
    AppendNumbered(ArgTypePrefixes[type], type == atWord ? value + 1 : value);
}

void DecodeRun::NumberValue(std::uint8_t value, int variable) {
    for (const NamedValues& named : namedValues) {
        if (named.variable == variable && value <= named.highest) return AppendName(named.group, value);
    }
    AppendNumber(value);
}

void DecodeRun::FlagValue(std::uint8_t value) {
    if (value <= lastOrdinaryFlag) return AppendName(rgFlags, value);
    if (value == autoloopFlag && static_cast<float>(Val(settings_.InterpreterVersion)) >= autoloopVersion) {
        return AppendName(rgFlags, autoloopEntry);
    }
    AppendNumbered(ArgTypePrefixes[atFlag], value);
}

void DecodeRun::ItemValue(std::uint8_t value) {
    if (!names_.HasItems()) return AppendNumbered(ArgTypePrefixes[atIObj], value);
    const auto item = names_.Item(value);
    if (!item) {
        if (settings_.ErrorLevel == leHigh) Fail("Unknown inventory item (" + std::to_string(value) + ")");
        if (settings_.ErrorLevel == leMedium) {
            NoteDecodeWarning("unknown inventory item: " + std::to_string(value));
        }
    } else if (!item->Unique) {
        if (settings_.ErrorLevel != leLow) NoteDecodeWarning("non-unique object: '" + item->Name + "'");
    } else if (item->Name == "?") {
        NoteDecodeWarning("reference to invalid inventory object ('?')");
    } else {
        line_ += '"';
        line_ += ReplaceAll(item->Name, "\"", "\\\"");
        line_ += '"';
        return;
    }
    AppendNumbered(ArgTypePrefixes[atIObj], value);
}

std::string DecodeRun::MessageValue(std::uint8_t value) {
    const bool exists = msgExists_[value];
    if (!exists) {
        if (settings_.ErrorLevel == leHigh) {
            Fail(AtPosition("Undefined message (" + std::to_string(value) + ") "));
        }
        if (settings_.ErrorLevel == leMedium) {
            NoteDecodeWarning(AtPosition("unknown message: " + std::to_string(value)));
        }
    }
    msgUsed_[value] = true;
    return exists ? messages_[value - 1U] : std::string(ArgTypePrefixes[atMsg]) + std::to_string(value);
}

void DecodeRun::AppendWrapped(std::string_view literal) {
    const std::size_t maxLineLength = settings_.WrapWidth;
    while (maxLineLength != 0 && line_.size() + literal.size() > maxLineLength) {
        // Up to the last blank that fits, or up to the end of the line where there is none.
        const std::size_t room = line_.size() + 2 <= maxLineLength ? maxLineLength - line_.size() : 0;
        if (room == 0) break;
        std::size_t length = room;
        while (length >= 2 && literal[length - 1] != ' ')
            --length;
        if (length == 1) length = room;
        if (EndsInBackslash(literal.substr(0, length))) cutsEscape_ = true;
        line_ += literal.substr(0, length);
        line_ += '"';
        AddLine();
        literal.remove_prefix(length);
        line_.assign(std::min(argIndent_, maxArgIndent), ' ');
        line_ += '"';
    }
    line_ += literal;
}

}  // namespace zorvex
