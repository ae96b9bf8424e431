#include "zorvex/compiler/CompileRun.h"

#include "zorvex/base/Checked.h"
#include "zorvex/base/CodePage.h"

namespace zorvex {

namespace {

constexpr std::int32_t firstWarning = 5001;

/// The catalogue's text as host text, filled with up to three pieces of game text.
std::string FilledText(std::int32_t number, std::initializer_list<std::string_view> fillers) {
    std::array<std::string, 3> host;
    std::size_t count = 0;
    for (const std::string_view filler : fillers)
        host[count++] = ConvertToCodePage(filler);
    switch (count) {
        case 0: return CatalogueText(number);
        case 1: return CatalogueText(number, {host[0]});
        case 2: return CatalogueText(number, {host[0], host[1]});
        default: return CatalogueText(number, {host[0], host[1], host[2]});
    }
}

/// A failure's text without the number at its head.
std::string_view WithoutNumber(std::string_view text, std::int32_t number) {
    const std::string head = std::to_string(number) + ": ";
    return text.starts_with(head) ? text.substr(head.size()) : text;
}

}  // namespace

CompileRun::CompileRun(CompileWorld& world)
    : World(world),
      LogicNumber(world.LogicNumber()),
      Level(world.Level()),
      Names(world.Globals(), world.ResourceIDs(), world.UsedReserved()) {}

// --- Reporting ---
CompileFailure CompileRun::Failure(std::int32_t number,
                                   std::initializer_list<std::string_view> fillers) const {
    return {number, FilledText(number, fillers), {}};
}

void CompileRun::Fail(std::int32_t number, std::initializer_list<std::string_view> fillers) const {
    throw Failure(number, fillers);
}

void CompileRun::FailOrBlameQuote(std::int32_t number, std::initializer_list<std::string_view> fillers) {
    if (QuoteErrLine == -1) Fail(number, fillers);
    BlameLine(QuoteErrLine);
    Fail(4051);
}

void CompileRun::Warn(std::int32_t number, std::initializer_list<std::string_view> fillers) {
    if (World.Ignores(number)) return;
    const Diagnostic warning{Severity::Warning, number,      FilledText(number, fillers),
                             ModuleName(),      ErrLine + 1, Column()};
    try {
        World.TakeWarning(warning);
    } catch (...) {
        throw HandlerFault{std::current_exception()};
    }
}

Diagnostic CompileRun::Told(const CompileFailure& failure) const {
    return {Severity::Error, failure.number, std::string(WithoutNumber(failure.text, failure.number)),
            ModuleName(),    ErrLine + 1,    Column()};
}

void CompileRun::Recover(const CompileFailure& failure) {
    if (!World.TakeError(Told(failure))) throw;
    hasFailed_ = true;
}

void CompileRun::Report(std::int32_t high, std::int32_t medium,
                        std::initializer_list<std::string_view> fillers) {
    const std::int32_t number = Level == leHigh ? high : Level == leMedium ? medium : 0;
    if (number >= firstWarning) {
        Warn(number, fillers);
    } else if (number != 0) {
        Fail(number, fillers);
    }
}

std::string CompileRun::ModuleName() const {
    return ErrModule < 0 ? std::string() : IncludeFiles[static_cast<std::size_t>(ErrModule)];
}

// --- Lines ---
void CompileRun::ResetCompiler() {
    QuoteErrLine = -1;
    LineIndex = -2;
    NextLine();
}

void CompileRun::NextLine() {
    if (LineIndex == -1) return;
    if (LineIndex == -2) LineIndex = -1;
    ++LineIndex;
    CharPos = 0;
    TokenStart = 0;
    if (static_cast<std::size_t>(LineIndex) == SourceLines.size()) {
        LineIndex = -1;
        return;
    }
    const SourceLine& line = SourceLines[static_cast<std::size_t>(LineIndex)];
    CurrentLine = line.text;
    BlameLine();
}

void CompileRun::BlameLine(std::int32_t index) {
    if (index < 0) return;
    const SourceLine& line = SourceLines[static_cast<std::size_t>(index)];
    ErrModule = line.file;
    ErrLine = line.number;
}

std::int32_t CompileRun::Column() const {
    if (LineIndex < 0 || static_cast<std::size_t>(LineIndex) >= SourceLines.size()) return 0;
    const SourceLine& line = SourceLines[static_cast<std::size_t>(LineIndex)];
    if (line.number != ErrLine || line.file != ErrModule || line.text.data() == nullptr) return 0;
    return static_cast<std::int32_t>(line.text.data() - line.begin) + static_cast<std::int32_t>(TokenStart) +
           1;
}

// --- Labels and code ---
void CompileRun::AddLabel(std::string_view name) {
    labelIndex_.emplace(name, static_cast<std::int32_t>(Labels.size()));
    Labels.push_back({name, 0});
}

std::int32_t CompileRun::LabelNum(std::string_view name) const {
    const std::int32_t* found = Find(labelIndex_, name);
    return found == nullptr ? -1 : *found;
}

std::int16_t CompileRun::Position() {
    return Narrow<std::int16_t>(LogicBuffer.Size(), "LogCompile");
}

bool IsLibraryError(const Error& error) {
    constexpr std::int32_t firstId = 501;
    constexpr std::int32_t lastId = 5108;
    return error.Id() >= firstId && error.Id() <= lastId;
}

Diagnostic ToldPlaceless(const Error& error) {
    constexpr std::int32_t unhandled = 634;
    const bool own = IsLibraryError(error);
    Diagnostic told;
    told.Number = own ? error.Id() : unhandled;
    told.Text = own ? error.Description() : CatalogueText(591, {error.NumberAndText()});
    return told;
}

}  // namespace zorvex
