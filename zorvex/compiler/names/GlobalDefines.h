// The defines that all logics of a game share, from the file globals.txt of the game directory.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "zorvex/base/Types.h"
#include "zorvex/compiler/names/NameMap.h"

namespace zorvex {

class ReservedTables;

/// The defines of globals.txt in the order of the file, found by name and by value. It never changes: a
/// changed file makes a new table, so that a compile keeps the one it began with.
class GlobalDefineTable {
  public:
    const std::vector<TDefine>& List() const { return list_; }
    /// The first define of that name and type, or a null pointer.
    const TDefine* Named(std::string_view name, ArgTypeEnum type) const;
    bool HasName(std::string_view name) const { return byName_.contains(name); }
    bool HasValue(std::string_view value) const { return byValue_.contains(value); }

    void Add(TDefine define);

  private:
    std::vector<TDefine> list_;
    NameMap<std::size_t> byName_;
    NameMap<std::size_t> byValue_;
};

/// Adds a define that source could use and whose name is not taken; any other is left out. Sets its type.
/// Reserved names count unless the pointer is null.
void AddUsableDefine(GlobalDefineTable& table, TDefine define, const ReservedTables* reserved);

/// Reads globals.txt again. A line is "name TAB value" or "#define name value", with comments as in source;
/// every other line, and a define that source could not use, is skipped without a word. A name defined twice
/// keeps its first value. Without an open game nothing is read, and there are none. Never raises for what
/// the file holds.
void LoadGlobalDefines();

/// Reads globals.txt again if it has changed since it was last read, and returns the table.
std::shared_ptr<const GlobalDefineTable> CurrentGlobalDefines();

}  // namespace zorvex
