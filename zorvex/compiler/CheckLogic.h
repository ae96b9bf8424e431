// Checks a logic's source without a game: for editors, for scripts, for a look before something is changed.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
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
class ReservedTables;

/// How a source is checked.
struct LogicCheckSettings {
    LogicErrorLevel ErrorLevel = leMedium;
    /// Numbers of warnings, 5001 to 5108, that are not wanted.
    std::vector<std::int32_t> IgnoredWarnings;
    bool UseReservedNames = false;
    /// 0 to 255; some checks ask which logic it is.
    std::uint8_t LogicNumber = 0;
    /// Decides which commands there are, as AGIGame::InterpreterVersion does.
    std::string InterpreterVersion = "2.917";
    /// The check ends with this error; at least 1. Warnings are not counted.
    std::size_t MaxErrors = 100;

    /// Where an include that is named without a directory is looked for, the first first. Without any, the
    /// name stands for itself.
    std::vector<std::string> IncludeDirectories;
    /// Gives the bytes of an include file, or none when there is no such file; the name has the directory in
    /// front. Without this function the files of the present workspace are read.
    std::function<std::optional<ByteArray>(const std::string& file)> IncludeFile;
};

/// A resource that a source may name. The ID is host text.
struct ResourceName {
    AGIResType Type = rtLogic;  // logic, picture, sound or view
    std::uint8_t Number = 0;
    std::string ID;
};

/// The names that a source may use besides its own. Whoever checks in another thread than that of the game
/// gives copies of the two lists.
struct LogicCheckNames {
    /// The resources of the game. One that is not here does not exist.
    std::vector<ResourceName> Resources;
    /// As those of globals.txt: a define that source could not use is left out. Game text; the types count
    /// for nothing.
    std::vector<TDefine> GlobalDefines;
    /// The vocabulary and the inventory. Without one, arguments that need it are errors.
    std::shared_ptr<const AGIWordList> Words;
    std::shared_ptr<const AGIInventoryObjects> Items;
    /// The number of cels of each loop of a view, none for a view that cannot be read. Without this function
    /// no check looks into views.
    std::function<std::optional<std::vector<std::int32_t>>(std::uint8_t view)> CelCounts;

    /// What the reserved names of the game's texts stand for. Host text.
    std::string GameVersion;
    std::string GameAbout;
    std::string GameID;
    /// The reserved names; the built-in ones without this table.
    std::shared_ptr<const ReservedTables> Reserved;
};

/// What a check found.
struct LogicCheck {
    /// The compiled logic; empty when there is an error.
    ByteArray Bytes;
    /// All warnings and errors in the order in which the compiler met them: those of includes, labels,
    /// defines and messages come before those of the statements. The first error is the one that a compile of
    /// this source raises.
    std::vector<Diagnostic> Diagnostics;

    bool HasErrors() const;
};

/// Compiles a source text (host text) as a logic. Nothing is written, no event is raised, and no game need be
/// open; an open one is neither asked nor changed.
///
/// After an error the check goes on with the next line or the next statement. Later errors may follow from an
/// earlier one; blocks that are not closed are told only when nothing else is wrong. A fault without a place
/// in the source ends the check and is told with the line -1. So is a fault of a
/// function of the settings or the names, unless it can be told at the place that asked. Raises nothing.
LogicCheck CheckLogic(std::string_view source, const LogicCheckSettings& settings = {},
                      const LogicCheckNames& names = {});

/// The settings and the names with which a logic of the open game is compiled at present. The names share the
/// lists of the game, and CelCounts asks the game; reads globals.txt when it has changed.
LogicCheckSettings PresentCheckSettings(std::uint8_t logicNumber);
LogicCheckNames PresentCheckNames();

}  // namespace zorvex
