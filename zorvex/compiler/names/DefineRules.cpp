#include "zorvex/compiler/names/DefineRules.h"

#include <algorithm>
#include <array>
#include <utility>

#include "zorvex/base/Text.h"
#include "zorvex/compiler/arguments/ArgumentText.h"
#include "zorvex/compiler/names/GlobalDefines.h"
#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/language/ArgumentMarkers.h"
#include "zorvex/language/ReservedTables.h"

namespace zorvex {

namespace {

constexpr std::array<std::string_view, 4> keywords{"if", "else", "goto", "then"};

/// The reserved flags and variables have the lowest numbers.
constexpr double lastReservedFlag = 15;
constexpr double lastReservedVariable = 26;

bool IsBadCharacter(char character) {
    const auto code = static_cast<unsigned char>(character);
    return (code >= 1 && code <= 45) || code == 47 || (code >= 58 && code <= 64) ||
           (code >= 91 && code <= 94) || code == 96 || code >= 123;
}

bool GroupHas(const ReservedTables& tables, ReservedGroup group, std::string_view name) {
    const auto& table = tables.Group(group);
    return std::any_of(table.begin(), table.end(),
                       [name](const TDefine& entry) { return EqualNoCase(entry.Name, name); });
}

bool IsGameInfo(const ReservedTables& tables, std::string_view name,
                std::initializer_list<ReservedGameInfo> entries) {
    const auto& table = tables.Group(rgGameInfo);
    return std::any_of(entries.begin(), entries.end(),
                       [&](ReservedGameInfo entry) { return EqualNoCase(table[entry].Name, name); });
}

/// Computer types and colours are not asked about: those names were never guarded.
DefineFault ReservedFault(const ReservedTables& tables, std::string_view name) {
    if (GroupHas(tables, rgVariables, name)) return DefineFault::ReservedVariable;
    if (GroupHas(tables, rgFlags, name)) return DefineFault::ReservedFlag;
    if (GroupHas(tables, rgEdgeCodes, name) || GroupHas(tables, rgDirections, name) ||
        GroupHas(tables, rgVideoModes, name) || IsGameInfo(tables, name, {giNumberOfItems})) {
        return DefineFault::ReservedNumber;
    }
    if (IsGameInfo(tables, name, {giEgo, giInputPrompt})) return DefineFault::ReservedObjectOrString;
    if (IsGameInfo(tables, name, {giGameVersionMsg, giGameAboutMsg, giGameID}))
        return DefineFault::ReservedMessage;
    return DefineFault::None;
}

/// The same for a marker, whose type and number are known.
bool IsReservedValue(const ReservedTables& tables, const TDefine& define, double number) {
    return (define.Type == atFlag && number <= lastReservedFlag) ||
           (define.Type == atVar && number <= lastReservedVariable) ||
           EqualNoCase(define.Value, tables.Group(rgGameInfo)[giEgo].Value);
}

}  // namespace

DefineFault ValidateDefName(std::string_view name, const GlobalDefineTable& globals,
                            const ReservedTables* reserved) {
    if (name.empty()) return DefineFault::Empty;
    if (NumericValue(name)) return DefineFault::Numeric;
    if (ActionCommandNumber(name) >= 0) return DefineFault::ActionCommand;
    if (TestCommandNumber(name) >= 0) return DefineFault::TestCommand;
    for (const std::string_view keyword : keywords) {
        if (EqualNoCase(name, keyword)) return DefineFault::Keyword;
    }
    if (IsMarker(name)) return DefineFault::Marker;
    const bool isGlobal = globals.HasName(name);
    if (!isGlobal && reserved != nullptr) {
        const DefineFault fault = ReservedFault(*reserved, name);
        if (fault != DefineFault::None) return fault;
    }
    if (std::any_of(name.begin(), name.end(), IsBadCharacter)) return DefineFault::BadCharacter;
    return isGlobal ? DefineFault::GlobalName : DefineFault::None;
}

ValueFault ValidateDefValue(TDefine& define, const GlobalDefineTable& globals,
                            const ReservedTables* reserved) {
    const std::string& value = define.Value;
    if (value.empty()) return ValueFault::Empty;
    if (NumericValue(value)) {
        define.Type = atNum;
        return ValueFault::None;
    }
    if (IsMarker(value)) {
        const double number = *NumericValue(std::string_view(value).substr(1));
        if (!(number >= 0 && number <= 255)) return ValueFault::OutOfRange;
        define.Type = MarkerType(value);
        if (reserved != nullptr && IsReservedValue(*reserved, define, number))
            return ValueFault::ReservedValue;
        return globals.HasValue(value) ? ValueFault::GlobalValue : ValueFault::None;
    }
    define.Type = atDefStr;
    const bool quoted = value.front() == '"' || value.back() == '"';
    return quoted ? ValueFault::None : ValueFault::NotQuoted;
}

}  // namespace zorvex
