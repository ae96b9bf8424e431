#include "zorvex/base/CodePage.h"
#include "zorvex/base/Text.h"
#include "zorvex/compiler/lines/SourcePreparation.h"
#include "zorvex/compiler/lines/SourceText.h"

namespace zorvex {

namespace {

constexpr std::string_view includeMark = "#include";
constexpr std::string_view includeStart = "#i";

/// The file that an include line names, in the form of the library, with its directory.
std::string IncludeName(CompileRun& run, std::string_view line) {
    if (line.size() <= includeMark.size() || line[includeMark.size()] != ' ') run.Fail(4103);
    std::string name(Trim(line.substr(includeMark.size() + 1)));
    if (name.empty()) run.Fail(4060);
    const bool quoteInFront = name.front() == '"';
    const bool quoteBehind = name.back() == '"';
    if (quoteInFront != quoteBehind) {
        if (run.Level == leHigh) run.Fail(4059);
        name = quoteInFront ? name + '"' : '"' + name;
        run.Warn(5028, {name});
    }
    if (name.front() == '"') name = name.substr(1, name.size() > 1 ? name.size() - 2 : 0);
    return run.World.IncludeFile(ConvertToCodePage(name));
}

const std::string& ReadInclude(CompileRun& run, const std::string& name) {
    if (!run.World.HasInclude(name)) throw CompileFailure{4050, CatalogueText(4050, {name}), {}};
    ByteArray bytes;
    if (Attempt([&] { bytes = run.World.ReadInclude(name); })) {
        throw CompileFailure{4055, CatalogueText(4055, {name}), {}};
    }
    return run.Texts.emplace_back(bytes.begin(), bytes.end());
}

void AddIncludeFile(CompileRun& run, std::string_view line) {
    const std::string name = IncludeName(run, line);
    const std::string& text = ReadInclude(run, name);
    const auto file = static_cast<std::int32_t>(run.IncludeFiles.size());
    run.IncludeFiles.push_back(name);
    std::int32_t number = 0;
    ForEachLine(text, [&](std::string_view included) {
        std::string_view kept = included;
        if (StartsWithNoCase(Trim(included), includeStart)) {
            run.ErrLine = number;
            Recovering(run, [&] { run.Fail(4061); });
            kept = {};
        }
        run.SourceLines.push_back({kept, included.data(), file, number++});
    });
}

}  // namespace

void AddIncludes(CompileRun& run, std::string sourceText) {
    const std::string& text = run.Texts.emplace_back(std::move(sourceText));
    run.ErrModule = -1;
    std::int32_t number = 0;
    Reporting(run, "AddIncludes", [&] {
        ForEachLine(text, [&](std::string_view line) {
            run.ErrLine = number;
            std::string_view kept = line;
            if (StartsWithNoCase(line, includeStart)) {
                Recovering(run, [&] {
                    if (!StartsWithNoCase(line, includeMark)) run.Fail(4069);
                    AddIncludeFile(run, line);
                });
                kept = {};
            }
            run.SourceLines.push_back({kept, line.data(), -1, number++});
        });
    });
}

void RemoveComments(CompileRun& run) {
    for (SourceLine& line : run.SourceLines)
        line.text = StripComment(line.text);
}

}  // namespace zorvex
