// What one run of the compiler knows: the working lines with the reader's place in them, and what the passes
// have found.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "zorvex/base/Diagnostic.h"
#include "zorvex/base/Error.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/Types.h"
#include "zorvex/compiler/CompileWorld.h"
#include "zorvex/compiler/names/NameTable.h"
#include "zorvex/language/MessageSection.h"
#include "zorvex/storage/AGIResource.h"

namespace zorvex {

/// An error of the source on its way to the driver, or to the place where the compile can go on. It never
/// leaves the compiler.
struct CompileFailure {
    std::int32_t number = 0;
    std::string text;   // with the number at its head; host text
    std::string value;  // of 4063: the text that was not understood; host text
};

/// A fault of a host's warning handler on its way through the compiler, which must not take it for its own.
struct HandlerFault {
    std::exception_ptr fault;
};

/// One working line.
struct SourceLine {
    std::string_view text;
    const char* begin = nullptr;  // of the line as it stood in its file
    std::int32_t file = -1;       // in IncludeFiles; -1 for the logic's own text
    std::int32_t number = 0;      // from 0 in its file
};

struct LabelEntry {
    std::string_view Name;
    std::int16_t Loc = 0;
};

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

/// Doubtful characters found in a message.
enum MessageFlag : std::uint8_t { mfControl = 1, mfExtended = 2 };

/// The working state of one compile. The passes of SourcePreparation fill it, the statement and `if`
/// compilers read it; it dies with the run. All texts are game text unless they say otherwise.
class CompileRun {
  public:
    explicit CompileRun(CompileWorld& world);
    CompileRun(const CompileRun&) = delete;
    CompileRun& operator=(const CompileRun&) = delete;

    /// Everything outside the source. It outlives the run.
    CompileWorld& World;
    const std::uint8_t LogicNumber;
    const LogicErrorLevel Level;

    // --- Reporting ---
    /// The error with the catalogue's text; fillers are game text.
    CompileFailure Failure(std::int32_t number, std::initializer_list<std::string_view> fillers = {}) const;
    /// Ends the compile with the catalogue's error text; fillers are game text.
    [[noreturn]] void Fail(std::int32_t number, std::initializer_list<std::string_view> fillers = {}) const;
    /// The same for an error that a quote repaired earlier may have caused: then that line is blamed instead.
    [[noreturn]] void FailOrBlameQuote(std::int32_t number,
                                       std::initializer_list<std::string_view> fillers = {});
    /// Gives a warning at the present place, unless the host ignores its number. Fillers are game text.
    void Warn(std::int32_t number, std::initializer_list<std::string_view> fillers = {});

    /// What is at fault at each level, most of the compiler's checks in one call: at leHigh the first number,
    /// at leMedium the second, at leLow none. A number below 5000 is an error, 0 is nothing.
    void Report(std::int32_t high, std::int32_t medium, std::initializer_list<std::string_view> fillers = {});

    /// A failure as it is told to hosts, at the present place.
    Diagnostic Told(const CompileFailure& failure) const;
    /// Tells of a failure, if the compile shall go on after it; else throws it on. To be called in the
    /// handler that caught it.
    void Recover(const CompileFailure& failure);
    /// True when the compile has gone on after an error.
    bool HasFailed() const { return hasFailed_; }

    /// The full name of the file that is blamed; "" for the logic's own text. Host text.
    std::string ModuleName() const;

    /// The line that errors and warnings report, from 0; -1 for none.
    std::int32_t ErrLine = -1;
    /// The include file of that line, -1 for the logic's own text.
    std::int32_t ErrModule = -1;
    /// The line whose string needed a quote added, -1 for none.
    std::int32_t QuoteErrLine = -1;

    // --- Lines ---
    std::vector<SourceLine> SourceLines;
    std::vector<std::string> IncludeFiles;  // full names, host text
    /// The texts that the lines are views of; they stay where they are.
    std::deque<std::string> Texts;

    /// Back to the start, on the first line.
    void ResetCompiler();
    /// Moves to the next line; past the last, LineIndex becomes -1 and CurrentLine stays.
    void NextLine();
    /// Makes a line the one that errors and warnings report, in the file that it comes from.
    void BlameLine(std::int32_t index);
    /// The same for the present line.
    void BlameLine() { BlameLine(LineIndex); }
    /// Puts another text in the place of the present line.
    void UpdateCurrentLine(std::string_view text) {
        SourceLines[static_cast<std::size_t>(LineIndex)].text = text;
    }
    /// The column, from 1, at which the last character or token began in its file; 0 while there is no line.
    std::int32_t Column() const;

    std::int32_t LineIndex = -2;
    std::size_t CharPos = 0;  // characters of CurrentLine already taken
    std::string_view CurrentLine;
    std::size_t TokenStart = 0;

    // --- What the passes find ---
    NameTable Names;
    std::vector<LabelEntry> Labels;
    /// Adds a label whose name is not taken yet.
    void AddLabel(std::string_view name);
    MessageTable Messages;
    /// The lowest number of each text that is not empty.
    std::unordered_map<std::string, std::int32_t, TextHash, std::equal_to<>> MessageNumbers;
    std::array<std::uint8_t, 256> MsgWarn{};

    /// The index in Labels of a name, -1 when unknown.
    std::int32_t LabelNum(std::string_view name) const;

    // --- Code ---
    AGIResource LogicBuffer;
    /// A new.room has just been compiled; what follows it is never run.
    bool NewRoomPending = false;

    void Append(std::int32_t byte) { LogicBuffer.WriteByte(static_cast<std::uint8_t>(byte)); }
    /// The present end of the code as the 16-bit position in which blocks, labels and jumps are kept; raises
    /// 6 past 32767.
    std::int16_t Position();

  private:
    NameMap<std::int32_t> labelIndex_;
    bool hasFailed_ = false;
};

/// Runs a step after whose failure the compile can go on. False when it failed and the compile goes on.
template <class Step>
bool Recovering(CompileRun& run, Step&& step) {
    try {
        std::forward<Step>(step)();
        return true;
    } catch (const CompileFailure& failure) {
        run.Recover(failure);
        return false;
    }
}

/// Runs a step of the compiler. What the compiler throws itself passes; any other fault goes to `other`,
/// which must not return.
template <class Step, class Other>
decltype(auto) RunStep(Step&& step, Other&& other) {
    try {
        return std::forward<Step>(step)();
    } catch (const CompileFailure&) {
        throw;
    } catch (const HandlerFault&) {
        throw;
    } catch (...) {
        std::forward<Other>(other)(CurrentError());
        throw;
    }
}

/// Runs a step; a fault that is none of the source ends the compile with the text that names the step.
template <class Step>
decltype(auto) Reporting(const CompileRun& run, std::string_view procedure, Step&& step) {
    return RunStep(std::forward<Step>(step), [&](const Error& error) {
        run.Fail(4115, {std::to_string(error.Number()), procedure});
    });
}

/// True for an error that the library numbers itself.
bool IsLibraryError(const Error& error);

/// A fault that has no place in the source, as it is told to hosts: a library error under its own number, any
/// other as 634.
Diagnostic ToldPlaceless(const Error& error);

/// Runs a step; a library error passes, any other fault is raised as the library error `id`.
template <class Step>
decltype(auto) WrappedRuntime(std::int32_t id, Step&& step) {
    return RunStep(std::forward<Step>(step), [id](const Error& error) {
        if (IsLibraryError(error)) throw error;
        RaiseCatalogue(id, "LogCompile", error.NumberAndText());
    });
}

}  // namespace zorvex
