#include "zorvex/compiler/lines/TokenReader.h"

#include <array>

#include "zorvex/compiler/arguments/ArgumentText.h"

namespace zorvex {

namespace {

/// The characters that end a word. A tab is none of them: it belongs to the word.
constexpr std::string_view wordEnds = " !\"&'()*+,-/:;<=>?[\\]^`{|}~";

constexpr auto endsWord = [] {
    std::array<bool, 256> table{};
    for (const char c : wordEnds)
        table[static_cast<unsigned char>(c)] = true;
    return table;
}();

/// The second characters that make a token of two with a first one.
constexpr std::string_view Seconds(char first) {
    switch (first) {
        case '!': return "=";
        case '&': return "&";
        case '|': return "|";
        case '*': return "=/";
        case '+': return "+=";
        case '-': return "-=";
        case '/': return "=/*";
        case '<': return "=>";
        case '=': return "=<>";
        case '>': return "=";
        default: return "";
    }
}

/// The end of a string that begins at `start`: behind its closing quote or at the end of the line.
std::size_t StringEnd(std::string_view line, std::size_t start) {
    for (std::size_t i = start + 1; i < line.size(); ++i) {
        if (line[i] == '\\') {
            ++i;
        } else if (line[i] == '"') {
            return i + 1;
        }
    }
    return line.size();
}

std::size_t WordEnd(std::string_view line, std::size_t start) {
    std::size_t end = start + 1;
    while (end < line.size() && !endsWord[static_cast<unsigned char>(line[end])])
        ++end;
    return end;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The end of a token that begins with an operator or a bracket.
std::size_t OperatorEnd(std::string_view line, std::size_t start) {
    std::size_t end = start + 1;
    if (end == line.size()) return end;
    if (Seconds(line[start]).find(line[end]) != std::string_view::npos) return end + 1;
    // Only a digit other than 0 makes a minus sign part of a number.
    if (line[start] == '-' && IsDigit(line[end]) && line[end] != '0') {
        while (end < line.size() && IsDigit(line[end]))
            ++end;
    }
    return end;
}

}  // namespace

std::int32_t NextChar(CompileRun& run, bool noNewLine) {
    if (run.LineIndex == -1) return -1;
    while (true) {
        while (run.CharPos < run.CurrentLine.size()) {
            const auto c = static_cast<unsigned char>(run.CurrentLine[run.CharPos++]);
            if (c > ' ') {
                run.TokenStart = run.CharPos - 1;
                return c;
            }
        }
        if (noNewLine) return -1;
        run.NextLine();
        if (run.LineIndex == -1) return -1;
    }
}

bool TakeChar(CompileRun& run, char wanted, bool noNewLine) {
    return NextChar(run, noNewLine) == static_cast<unsigned char>(wanted);
}

std::string_view NextCommand(CompileRun& run, bool noNewLine) {
    const std::int32_t first = NextChar(run, noNewLine);
    if (first == -1) return {};
    const std::string_view line = run.CurrentLine;
    const std::size_t start = run.TokenStart;
    if (first == '"') {
        run.CharPos = StringEnd(line, start);
    } else if (!endsWord[static_cast<std::size_t>(first)]) {
        run.CharPos = WordEnd(line, start);
    } else if (first == '>' && run.CharPos < line.size() && line[run.CharPos] == '<') {
        ++run.CharPos;
        return "<>";
    } else {
        run.CharPos = OperatorEnd(line, start);
    }
    return line.substr(start, run.CharPos - start);
}

bool AtBlank(const CompileRun& run) {
    if (run.CharPos >= run.CurrentLine.size()) return true;
    const char next = run.CurrentLine[run.CharPos];
    return next == ' ' || next == '\t';
}

namespace {

/// Where the reader stands, to go back to after looking ahead.
struct Place {
    explicit Place(const CompileRun& run)
        : lineIndex(run.LineIndex),
          charPos(run.CharPos),
          currentLine(run.CurrentLine),
          tokenStart(run.TokenStart) {}

    void Restore(CompileRun& run) const {
        run.LineIndex = lineIndex;
        run.CharPos = charPos;
        run.CurrentLine = currentLine;
        run.TokenStart = tokenStart;
        run.BlameLine();
    }

    std::int32_t lineIndex;
    std::size_t charPos;
    std::string_view currentLine;
    std::size_t tokenStart;
};

/// Asks for the closing quote of a string of the present line. False when it has to be added.
bool IsClosed(CompileRun& run, std::string_view text) {
    if (EndsInQuote(text)) return true;
    run.QuoteErrLine = run.LineIndex;
    run.Report(4080, 5002);
    return false;
}

std::string_view JoinFollowing(CompileRun& run, std::string_view text, std::string& buffer) {
    if (text.size() < 2) run.Fail(4081);
    bool joined = !IsClosed(run, text);
    if (joined) buffer = std::string(text) + '"';
    if (run.CharPos != run.CurrentLine.size()) return joined ? std::string_view(buffer) : text;
    while (true) {
        const Place place(run);
        std::string_view token = NextCommand(run, false);
        if (!token.starts_with('"')) {
            place.Restore(run);
            return joined ? std::string_view(buffer) : text;
        }
        if (!joined) buffer = text;
        joined = true;
        const bool closed = IsClosed(run, token);
        buffer.pop_back();
        buffer += token.substr(1);
        if (!closed) buffer.push_back('"');
    }
}

}  // namespace

std::string_view ConcatArg(CompileRun& run, std::string_view text, std::string& buffer) {
    return Reporting(run, "ConcatArg", [&] { return JoinFollowing(run, text, buffer); });
}

}  // namespace zorvex
