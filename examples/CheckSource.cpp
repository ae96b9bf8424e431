// Checks source files of logics without a game, and tells of all that is wrong with them.
//
//     CheckSource room1.lgc room2.lgc
//
// Includes are looked for beside the source. The exit status is 1 when a file has an error.
#include <cstdio>
#include <exception>
#include <string>

#include "zorvex/Zorvex.h"

namespace {

std::string TextOfFile(const std::string& path) {
    const zorvex::ByteArray bytes = zorvex::Files().Read(path);
    return zorvex::ConvertToCodePage(std::string(bytes.begin(), bytes.end()));
}

/// True when the file has no errors.
bool Check(const std::string& file) {
    const std::string path = zorvex::InnerPath(file);
    zorvex::LogicCheckSettings settings;
    settings.UseReservedNames = true;
    settings.IncludeDirectories = {zorvex::JustPath(path, true)};
    const zorvex::LogicCheck check = zorvex::CheckLogic(TextOfFile(path), settings);
    for (const zorvex::Diagnostic& found : check.Diagnostics) {
        const std::string where = found.File.empty() ? file : found.File;
        std::printf("%s:%d:%d: %s %d: %s\n", where.c_str(), found.Line, found.Column,
                    found.IsError() ? "error" : "warning", found.Number, found.Text.c_str());
    }
    if (!check.HasErrors()) std::printf("%s: %zu bytes\n", file.c_str(), check.Bytes.size());
    return !check.HasErrors();
}

}  // namespace

int main(int argc, char** argv) {
    bool good = argc > 1;
    for (int i = 1; i < argc; ++i) {
        try {
            good = Check(argv[i]) && good;
        } catch (const std::exception& error) {
            std::printf("%s: %s\n", argv[i], error.what());
            good = false;
        }
    }
    return good ? 0 : 1;
}
