// How a whole game is built, and what came of it.
#pragma once

#include <cstdint>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

#include "zorvex/base/Types.h"

namespace zorvex {

/// What a build does about a resource that cannot be loaded, decoded or compiled.
enum class BuildFailure : std::uint8_t {
    Stop,       ///< looks at all resources, so that all failures are told, and then changes nothing
    Skip,       ///< leaves the resource out of the new game
    KeepFormer  ///< puts the bytes that the game had into the new one; only what has none is left out
};

/// How far a build is: before resource `Done` + 1 of `Total`.
struct BuildProgress {
    std::size_t Done = 0;
    std::size_t Total = 0;
    AGIResType Type = rtNone;
    std::uint8_t Number = 0;
};

struct BuildOptions {
    /// The directory of the new game's files; empty: the game's own, where the former files stay as .OLD.
    std::string Directory = {};
    /// Packs the bytes that are there and compiles nothing.
    bool RebuildOnly = false;
    /// Brings WORDS.TOK and OBJECT into another directory also with RebuildOnly.
    bool BringLists = true;
    BuildFailure Failures = BuildFailure::Stop;
    /// Resources that could not be read when the game was opened (see OpenOptions::BadEntries) are left out
    /// of the new game. Without this a build of a game with such resources fails with 5 and changes nothing.
    bool DropUnreadable = false;
    /// Called before each resource, in the thread of the build. A fault of it ends the build as one of a
    /// handler of CompileGameStatus does.
    std::function<void(const BuildProgress&)> Progress = {};
    /// Ends the build before the next resource; up to then nothing of the game has changed.
    std::stop_token Stop = {};
};

/// What became of a resource in a build.
enum class BuildOutcome : std::uint8_t {
    Compiled,    ///< a logic, from its source
    Copied,      ///< the bytes as they were
    KeptFormer,  ///< it failed, and has its former bytes
    LeftOut      ///< it failed, and the new game lacks it
};

struct BuildItem {
    AGIResType Type = rtNone;
    std::uint8_t Number = 0;
    std::string ID = {};
    BuildOutcome Outcome = BuildOutcome::Copied;
    /// Of one that failed: the catalogue id or plain number of the error, and its sentence. For a logic that
    /// does not compile the sentence is "line|module|text", as CompileLogic tells it.
    std::int32_t ErrorNumber = 0;
    std::string Text = {};

    bool Failed() const { return ErrorNumber != 0; }
};

struct BuildReport {
    /// True when the new files are in their places.
    bool Done = false;
    /// True when a handler, or the stop token, has ended the build.
    bool Canceled = false;
    /// One item a resource, in the order of the build.
    std::vector<BuildItem> Items;
    /// Lists that could not be written, or copied into another directory, each with a sentence.
    std::vector<std::string> ListFailures;
    /// Pictures that draw with anomalies, and the like.
    std::vector<BuildItem> Warnings;
    /// The number of volumes written.
    std::int32_t Volumes = 0;
};

}  // namespace zorvex
