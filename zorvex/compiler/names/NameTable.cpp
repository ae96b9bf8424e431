#include "zorvex/compiler/names/NameTable.h"

#include "zorvex/compiler/arguments/ArgumentText.h"
#include "zorvex/compiler/names/GlobalDefines.h"
#include "zorvex/compiler/names/ResourceIDs.h"
#include "zorvex/language/ArgumentMarkers.h"
#include "zorvex/language/ReservedTables.h"

namespace zorvex {

namespace {

/// The decimal texts of 0 to 255, for resource IDs.
const std::array<std::string, 256>& NumberTexts() {
    static const auto texts = [] {
        std::array<std::string, 256> made;
        for (std::size_t i = 0; i < made.size(); ++i)
            made[i] = std::to_string(i);
        return made;
    }();
    return texts;
}

bool StartsQuoted(std::string_view text) {
    return text.starts_with('"');
}

/// True when a text needs no name to be such an argument.
bool IsDirect(std::string_view arg, ArgTypeEnum type, bool& varOrNum) {
    switch (type) {
        case atNum:
            if (NumericValue(arg)) {
                varOrNum = false;
                return true;
            }
            return varOrNum && IsMarkerOf(arg, atVar);
        case atMsg:
        case atIObj: return StartsQuoted(arg) || IsMarkerOf(arg, type);
        case atVocWrd: return StartsQuoted(arg) || NumericValue(arg).has_value();
        case atDefStr: return false;
        default: return IsMarkerOf(arg, type);
    }
}

}  // namespace

NameTable::NameTable(std::shared_ptr<const GlobalDefineTable> globals,
                     std::shared_ptr<const ResourceIDTable> ids, const ReservedTables* reserved)
    : globals_(std::move(globals)), ids_(std::move(ids)) {
    if (globals_ == nullptr) globals_ = std::make_shared<const GlobalDefineTable>();
    if (ids_ == nullptr) ids_ = std::make_shared<const ResourceIDTable>();
    if (reserved != nullptr) AddReserved(*reserved);
}

void NameTable::AddReserved(const ReservedTables& tables) {
    const auto add = [this](ArgTypeEnum type, const TDefine& entry) {
        reserved_[type].emplace(entry.Name, entry.Value);
    };
    for (const ReservedGroup group : {rgEdgeCodes, rgDirections, rgVideoModes, rgComputerTypes, rgColors}) {
        for (const TDefine& entry : tables.Group(group))
            add(atNum, entry);
    }
    for (const TDefine& entry : tables.Group(rgVariables))
        add(atVar, entry);
    for (const TDefine& entry : tables.Group(rgFlags))
        add(atFlag, entry);
    const auto& info = tables.Group(rgGameInfo);
    add(atNum, info[giNumberOfItems]);
    for (const ReservedGameInfo entry : {giGameVersionMsg, giGameAboutMsg, giGameID})
        add(atMsg, info[entry]);
    add(atSObj, info[giEgo]);
    add(atStr, info[giInputPrompt]);
}

void NameTable::AddLocal(TDefine define) {
    localNames_.emplace(define.Name, locals_.size());
    if (!NumericValue(define.Value)) localValues_[define.Value].push_back(locals_.size());
    locals_.push_back(std::move(define));
}

std::int32_t NameTable::LocalNamed(std::string_view name) const {
    const std::size_t* found = Find(localNames_, name);
    return found == nullptr ? -1 : static_cast<std::int32_t>(*found);
}

const std::vector<std::size_t>* NameTable::LocalsOfValue(std::string_view value) const {
    return Find(localValues_, value);
}

bool NameTable::ConvertArgument(std::string_view& arg, ArgTypeEnum type, bool& varOrNum) const {
    if (arg.empty()) return false;
    if (IsDirect(arg, type, varOrNum)) return true;
    const std::int32_t local = LocalNamed(arg);
    if (local >= 0) return ConvertLocal(locals_[static_cast<std::size_t>(local)], arg, type, varOrNum);
    if (ConvertGlobal(arg, type, varOrNum)) return true;
    if (type == atNum) {
        if (const auto number = ids_->NumberOf(arg)) {
            arg = NumberTexts()[*number];
            varOrNum = false;
            return true;
        }
    }
    return ConvertReserved(arg, type, varOrNum);
}

bool NameTable::ConvertLocal(const TDefine& define, std::string_view& arg, ArgTypeEnum type,
                             bool& varOrNum) const {
    const std::string_view value = define.Value;
    if (!IsDirect(value, type, varOrNum)) return false;
    // A screen object must be written with a lower-case letter here, and a word must have a valid number.
    if ((type == atSObj && value.front() != MarkerLetter(atSObj)) ||
        (type == atWord && VariableValue(value) == -1))
        return false;
    arg = value;
    return true;
}

bool NameTable::ConvertGlobal(std::string_view& arg, ArgTypeEnum type, bool& varOrNum) const {
    const auto found = [&](ArgTypeEnum wanted) {
        const TDefine* define = globals_->Named(arg, wanted);
        if (define != nullptr) arg = define->Value;
        return define != nullptr;
    };
    if (type == atVocWrd && found(atNum)) return true;
    if (found(type)) {
        varOrNum = false;
        return true;
    }
    if (varOrNum && found(atVar)) return true;
    return (type == atMsg || type == atIObj || type == atVocWrd) && found(atDefStr);
}

bool NameTable::ConvertReserved(std::string_view& arg, ArgTypeEnum type, bool& varOrNum) const {
    if (type > atStr) return false;
    const std::string* value = Find(reserved_[type], arg);
    if (value != nullptr) {
        if (type == atNum) varOrNum = false;
    } else if (type == atNum && varOrNum) {
        value = Find(reserved_[atVar], arg);
    }
    if (value == nullptr) return false;
    arg = *value;
    return true;
}

}  // namespace zorvex
