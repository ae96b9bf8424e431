// The open game as the compiler sees it.
#pragma once

#include <string>
#include <vector>

#include "zorvex/compiler/CompileWorld.h"

namespace zorvex {

/// The settings, the names and the resources of the open game. Tables are read anew when the world is made,
/// everything else is asked of the game at the moment in which it is needed.
class GameWorld : public CompileWorld {
  public:
    explicit GameWorld(std::uint8_t logicNumber);

    std::uint8_t LogicNumber() const override { return logicNumber_; }
    LogicErrorLevel Level() const override { return level_; }
    std::string InterpreterVersion() const override;
    bool Ignores(std::int32_t warning) const override;

    const CommandTables& Commands() const override;
    const ReservedTables& Reserved() const override;
    bool UsesReservedNames() const override;
    std::shared_ptr<const GlobalDefineTable> Globals() const override;
    std::shared_ptr<const ResourceIDTable> ResourceIDs() const override;

    bool HasResource(AGIResType type, std::uint8_t number) const override;
    std::optional<std::vector<std::int32_t>> CelCounts(std::uint8_t view) const override;
    std::shared_ptr<const AGIInventoryObjects> Items() const override;
    std::shared_ptr<const AGIWordList> Words() const override;

    std::string IncludeFile(std::string_view name) const override;
    bool HasInclude(const std::string& file) const override;
    ByteArray ReadInclude(const std::string& file) const override;

    /// Raises the warning as the events of the library.
    void TakeWarning(const Diagnostic& warning) override;

  private:
    std::uint8_t logicNumber_;
    LogicErrorLevel level_;
};

/// What the four reserved names that speak of the game stand for. Host text.
struct GameValues {
    std::string Version;
    std::string About;
    std::string ID;
    std::int32_t Items = -1;  // the highest item number
};

/// Gives those reserved names their values.
void SetGameValues(ReservedTables& tables, const GameValues& values);

/// The number of cels of each loop of a view of the open game, see CompileWorld::CelCounts. A loaded view
/// answers for its present loops, the bytes of another are looked at; neither is changed.
std::optional<std::vector<std::int32_t>> CelCountsOfGame(std::uint8_t view);

}  // namespace zorvex
