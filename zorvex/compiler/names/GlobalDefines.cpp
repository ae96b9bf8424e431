#include "zorvex/compiler/names/GlobalDefines.h"

#include <string>

#include "zorvex/base/CheckSum.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/Text.h"
#include "zorvex/compiler/lines/SourceText.h"
#include "zorvex/compiler/names/DefineRules.h"
#include "zorvex/language/ReservedTables.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

namespace {

std::string GlobalsPath() {
    return Library().GameDir + "globals.txt";
}

/// The check sum of a file's stamp. A missing file has one of its own, which no list is ever stored under.
std::int32_t StampCRC(std::string_view path) {
    std::string stamp = "no file";
    Attempt([&] { stamp = std::to_string(Files().WriteStamp(path)); });
    return CRC32(stamp);
}

/// Takes a line apart into name and value; False for a line of another form.
bool SplitDefine(std::string_view line, std::string_view& name, std::string_view& value) {
    constexpr std::string_view defineMark = "#define ";
    char separator = '\t';
    if (StartsWithNoCase(line, defineMark)) {
        line = Trim(line.substr(defineMark.size()));
        separator = ' ';
    }
    const std::size_t at = line.find(separator);
    if (at == std::string_view::npos) return false;
    name = Trim(line.substr(0, at));
    value = Trim(line.substr(at + 1));
    return separator == ' ' || value.find('\t') == std::string_view::npos;
}

void AddLine(GlobalDefineTable& table, std::string_view line) {
    std::string_view name;
    std::string_view value;
    if (!SplitDefine(StripComment(line), name, value)) return;
    TDefine define;
    define.Name = name;
    define.Value = value;
    AddUsableDefine(table, std::move(define), Library().UseReservedNames ? &ReservedNames() : nullptr);
}

}  // namespace

const TDefine* GlobalDefineTable::Named(std::string_view name, ArgTypeEnum type) const {
    const std::size_t* found = Find(byName_, name);
    if (found == nullptr || list_[*found].Type != type) return nullptr;
    return &list_[*found];
}

void GlobalDefineTable::Add(TDefine define) {
    byName_.emplace(define.Name, list_.size());
    byValue_.emplace(define.Value, list_.size());
    list_.push_back(std::move(define));
}

void AddUsableDefine(GlobalDefineTable& table, TDefine define, const ReservedTables* reserved) {
    const DefineFault nameFault = ValidateDefName(define.Name, table, reserved);
    if (nameFault != DefineFault::None && !IsReservedNameFault(nameFault)) return;
    const ValueFault valueFault = ValidateDefValue(define, table, reserved);
    if (valueFault != ValueFault::None && valueFault != ValueFault::ReservedValue &&
        valueFault != ValueFault::GlobalValue) {
        return;
    }
    table.Add(std::move(define));
}

void LoadGlobalDefines() {
    LibraryState& library = Library();
    library.GlobalDefines = std::make_shared<const GlobalDefineTable>();
    library.GlobalsCRC = 0;
    const std::string path = GlobalsPath();
    if (!library.GameLoaded || !FileExists(path)) return;
    ByteArray bytes;
    if (Attempt([&] { bytes = Files().Read(path); })) return;
    const std::string text(bytes.begin(), bytes.end());
    auto table = std::make_shared<GlobalDefineTable>();
    ForEachLine(text, [&](std::string_view line) { AddLine(*table, line); });
    library.GlobalDefines = std::move(table);
    library.GlobalsCRC = StampCRC(path);
}

std::shared_ptr<const GlobalDefineTable> CurrentGlobalDefines() {
    LibraryState& library = Library();
    if (!library.GameLoaded || library.GlobalDefines == nullptr ||
        StampCRC(GlobalsPath()) != library.GlobalsCRC)
        LoadGlobalDefines();
    return library.GlobalDefines;
}

}  // namespace zorvex
