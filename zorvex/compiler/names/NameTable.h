// The names that stand for arguments: local and global defines, resource IDs and reserved names.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "zorvex/base/Types.h"
#include "zorvex/compiler/names/NameMap.h"

namespace zorvex {

class GlobalDefineTable;
class ReservedTables;
class ResourceIDTable;

/// Everything that a name in one source can stand for. It is a picture of the tables at the moment of its
/// making; only local defines are added later. All look-ups are by hash and ignore case. Game text.
class NameTable {
  public:
    /// Reserved names count unless the pointer is null. A missing table is an empty one.
    NameTable(std::shared_ptr<const GlobalDefineTable> globals, std::shared_ptr<const ResourceIDTable> ids,
              const ReservedTables* reserved);

    /// True when `arg` can serve as an argument of that type; it then holds a number, a marker or a quoted
    /// string, which lives as long as this table or what `arg` was a view of. `varOrNum` in: a variable will
    /// do where a number is asked for; out: False when the argument is a plain number.
    bool ConvertArgument(std::string_view& arg, ArgTypeEnum type, bool& varOrNum) const;

    const GlobalDefineTable& Globals() const { return *globals_; }

    // --- Local defines ---
    /// Adds a define whose name is not taken yet. The table must not be asked for arguments before the last
    /// define is in.
    void AddLocal(TDefine define);
    const std::vector<TDefine>& Locals() const { return locals_; }
    /// The index of the local define of that name, -1 for none.
    std::int32_t LocalNamed(std::string_view name) const;
    /// The indexes, ascending, of the local defines of a value that is not numeric; a null pointer for none.
    const std::vector<std::size_t>* LocalsOfValue(std::string_view value) const;

  private:
    using Values = NameMap<std::string>;

    void AddReserved(const ReservedTables& tables);
    bool ConvertLocal(const TDefine& define, std::string_view& arg, ArgTypeEnum type, bool& varOrNum) const;
    bool ConvertGlobal(std::string_view& arg, ArgTypeEnum type, bool& varOrNum) const;
    bool ConvertReserved(std::string_view& arg, ArgTypeEnum type, bool& varOrNum) const;

    std::vector<TDefine> locals_;
    NameMap<std::size_t> localNames_;
    NameMap<std::vector<std::size_t>> localValues_;
    std::shared_ptr<const GlobalDefineTable> globals_;
    std::shared_ptr<const ResourceIDTable> ids_;
    std::array<Values, atStr + 1> reserved_;  // by type
};

}  // namespace zorvex
