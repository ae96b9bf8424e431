// What a compile knows besides the source.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/Diagnostic.h"
#include "zorvex/base/Types.h"

namespace zorvex {

class AGIInventoryObjects;
class AGIWordList;
class GlobalDefineTable;
class ReservedTables;
class ResourceIDTable;
struct CommandTables;

/// The world around the source of one compile: the settings, the names, the game. The compiler asks nothing
/// else, so that a source can be compiled for the open game or for one that exists only in the mind of a
/// host.
class CompileWorld {
  public:
    virtual ~CompileWorld() = default;

    // --- Settings ---
    virtual std::uint8_t LogicNumber() const = 0;
    virtual LogicErrorLevel Level() const = 0;
    virtual std::string InterpreterVersion() const = 0;
    /// True when the host does not want to hear of a warning.
    virtual bool Ignores(std::int32_t warning) const = 0;

    // --- Tables; they stay where they are during the run ---
    virtual const CommandTables& Commands() const = 0;
    /// The reserved names with their present values.
    virtual const ReservedTables& Reserved() const = 0;
    /// Whether sources may use the reserved names.
    virtual bool UsesReservedNames() const = 0;
    const ReservedTables* UsedReserved() const { return UsesReservedNames() ? &Reserved() : nullptr; }
    virtual std::shared_ptr<const GlobalDefineTable> Globals() const = 0;
    virtual std::shared_ptr<const ResourceIDTable> ResourceIDs() const = 0;

    // --- The game ---
    virtual bool HasResource(AGIResType type, std::uint8_t number) const = 0;
    /// False when nobody knows what is in the views.
    virtual bool KnowsViews() const { return true; }
    /// The number of cels of each loop of a view that is there; none for a view that cannot be read.
    virtual std::optional<std::vector<std::int32_t>> CelCounts(std::uint8_t view) const = 0;
    /// The inventory and the vocabulary; a null pointer when there is none that could be read.
    virtual std::shared_ptr<const AGIInventoryObjects> Items() const = 0;
    virtual std::shared_ptr<const AGIWordList> Words() const = 0;

    // --- Includes ---
    /// The full name of the file that an #include names, in the form of the library. A name with a directory
    /// stands for itself.
    virtual std::string IncludeFile(std::string_view name) const = 0;
    virtual bool HasInclude(const std::string& file) const = 0;
    /// The bytes of that file; raises what the read raises.
    virtual ByteArray ReadInclude(const std::string& file) const = 0;

    // --- Diagnostics ---
    /// Takes a warning. What it raises ends the compile.
    virtual void TakeWarning(const Diagnostic& warning) = 0;
    /// Takes an error after which the compile could go on. False when it shall end.
    virtual bool TakeError(const Diagnostic& /*error*/) { return false; }
};

}  // namespace zorvex
