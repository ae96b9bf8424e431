#include "tools/zorvex/console/Diagnostics.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "tools/zorvex/console/Console.h"
#include "zorvex/base/CodePage.h"
#include "zorvex/base/Text.h"
#include "zorvex/logic/LogCompile.h"

namespace fs = std::filesystem;

namespace zorvex::tool {

namespace {

std::string SourcePath(std::uint8_t logic) {
    const auto member = CollectionOf(rtLogic)->Find(logic);
    return member ? static_cast<AGILogic&>(*member).SourceFile() : std::string();
}

/// A line of a source as host text; empty when it cannot be read.
std::string ReadLine(const std::string& path, int line) {
    if (path.empty() || line < 1) return {};
    try {
        const ByteArray bytes = Files().Read(path);
        const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        std::string found;
        int number = 0;
        ForEachLine(text, [&](std::string_view each) {
            if (++number == line) found = ConvertToCodePage(each);
        });
        return found;
    } catch (const Error&) {  // the message stands without its line
        return {};
    }
}

/// The next field of a text whose fields are parted by "|"; the last takes the rest.
std::string_view TakeField(std::string_view& text) {
    const std::size_t bar = text.find('|');
    const std::string_view field = text.substr(0, bar);
    text = bar == std::string_view::npos ? std::string_view() : text.substr(bar + 1);
    return field;
}

/// A source path as a person writes it: a resource directory that is the game's own leaves two separators.
std::string ShownPath(const std::string& path) {
    return fs::path(NativePath(ShownText(path))).lexically_normal().string();
}

/// What would help against an error about a reserved name while these do not count.
std::string ReservedNameHint(AGIGame& game, std::string_view text) {
    const auto settings = game.LogicSourceSettings();
    const std::size_t open = text.find('\'');
    const std::size_t close = open == std::string_view::npos ? open : text.find('\'', open + 1);
    if (settings->UseReservedNames() || close == std::string_view::npos) return {};
    const std::string_view name = text.substr(open + 1, close - open - 1);
    for (std::int16_t group = 1; group <= 8; ++group) {
        for (const TDefine& define : settings->ResDefByGrp(group)) {
            if (!EqualNoCase(define.Name, name)) continue;
            return "'" + define.Name +
                   "' is a reserved name: these count after 'zorvex props GAME useReservedNames=True'";
        }
    }
    return {};
}

/// A diagnostic as it is printed, with the source line and a mark under the place.
std::string ShownDiagnostic(const Diagnostic& diagnostic) {
    std::string text = diagnostic.Path;
    if (diagnostic.Line > 0) text += ":" + std::to_string(diagnostic.Line);
    text += ": " + Colored(diagnostic.IsError ? "error" : "warning") + ": " + ShownText(diagnostic.Text);
    if (!diagnostic.IsError) text += " [" + std::to_string(diagnostic.Number) + "]";
    text += "\n";
    if (!diagnostic.SourceLine.empty()) {
        text += "    " + ReplaceAll(diagnostic.SourceLine, "\t", " ") + "\n";
        if (diagnostic.Column > 0) {
            text += "    " + std::string(static_cast<std::size_t>(diagnostic.Column - 1), ' ') + "^\n";
        }
    }
    if (!diagnostic.Hint.empty()) text += "    note: " + diagnostic.Hint + "\n";
    return text;
}

}  // namespace

DiagnosticList::DiagnosticList(AGIGame& game)
    : game_(game),
      subscription_(game.GameEvents().LogCompWarning.Subscribe(
          [this](const std::string& warning, std::uint8_t logic) { AddWarning(warning, logic); })) {}

void DiagnosticList::Place(Diagnostic& diagnostic, std::string_view line, const std::string& module) const {
    const std::string file = module.empty() ? SourcePath(diagnostic.Logic) : module;
    diagnostic.Line = std::max(0, static_cast<int>(Val(line)));
    diagnostic.Column = CompileColumn();
    diagnostic.Path = ShownPath(file);
    diagnostic.SourceLine = ReadLine(file, diagnostic.Line);
}

// A warning is "number|text|line|module"; its text may hold bars of its own.
void DiagnosticList::AddWarning(std::string_view warning, std::uint8_t logic) {
    Diagnostic diagnostic;
    diagnostic.Logic = logic;
    const std::size_t beforeModule = warning.rfind('|');
    const std::size_t beforeLine = beforeModule == 0 ? 0 : warning.rfind('|', beforeModule - 1);
    std::string_view head = warning.substr(0, beforeLine);
    diagnostic.Number = static_cast<int>(Val(TakeField(head)));
    diagnostic.Text = head;
    Place(diagnostic, warning.substr(beforeLine + 1, beforeModule - beforeLine - 1),
          std::string(warning.substr(beforeModule + 1)));
    all_.push_back(std::move(diagnostic));
}

// An error is "line|module|text", and its text begins with its number.
void DiagnosticList::AddError(std::uint8_t logic, std::string_view description) {
    Diagnostic diagnostic;
    diagnostic.IsError = true;
    diagnostic.Logic = logic;
    std::string_view rest = description;
    const std::string line(TakeField(rest));
    if (rest.empty()) {
        diagnostic.Text = description;
        diagnostic.Path = ShownPath(SourcePath(logic));
    } else {
        const std::string module(TakeField(rest));
        Place(diagnostic, line, module);
        diagnostic.Number = static_cast<int>(Val(rest));
        diagnostic.Text = rest;
        diagnostic.Hint = ReservedNameHint(game_, rest);
    }
    all_.push_back(std::move(diagnostic));
}

std::size_t DiagnosticList::Errors() const {
    return static_cast<std::size_t>(std::count_if(
        all_.begin(), all_.end(), [](const Diagnostic& diagnostic) { return diagnostic.IsError; }));
}

void DiagnosticList::Say(std::size_t first) {
    for (std::size_t i = first; i < all_.size(); ++i) {
        const std::string text = ShownDiagnostic(all_[i]);
        const auto [said, isNew] = said_.emplace(text, all_[i].Logic);
        if (!isNew && said->second != all_[i].Logic) {
            ++repeated_;
        } else {
            ClearProgressLine();
            std::fputs(text.c_str(), stderr);
        }
    }
}

void DiagnosticList::SayRepeated() const {
    if (repeated_ == 0) return;
    SayNote(Counted(repeated_, "message") + " about included files came again for other logics");
}

Json JsonOf(const Diagnostic& diagnostic) {
    return {{"severity", diagnostic.IsError ? "error" : "warning"},
            {"logic", diagnostic.Logic},
            {"path", diagnostic.Path},
            {"line", diagnostic.Line},
            {"column", diagnostic.Column},
            {"number", diagnostic.Number},
            {"text", ShownText(diagnostic.Text)},
            {"hint", diagnostic.Hint}};
}

}  // namespace zorvex::tool
