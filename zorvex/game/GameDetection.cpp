#include "zorvex/game/GameDetection.h"

#include <algorithm>

#include "zorvex/base/Faults.h"
#include "zorvex/base/Text.h"
#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

namespace {

/// The ID of a V2 game: the name of its loader program, "AGI" if there is none, or "" if a program that might
/// be it cannot be read.
std::string LoaderID(std::string_view directory) {
    std::string id;
    const auto failed = Attempt([&] {
        for (const std::string& name : FilesMatching(directory, "*.COM")) {
            const ByteArray bytes = Files().ReadAt(std::string(directory) + name, 3, 6);
            const std::string upper = UpperCase(name);
            if (UpperCase(std::string(bytes.begin(), bytes.end())) == "LOADER" && upper != "SIERRA.COM") {
                id = upper.substr(0, upper.size() - 4);
                return;
            }
        }
    });
    return id.empty() && !failed ? "AGI" : id;
}

// The scan of the interpreter's data file goes this far and no further.
constexpr std::size_t maxScan = 32767;

}  // namespace

bool IsValidGameDir(std::string_view directory) {
    LibraryState& library = Library();
    const std::vector<std::string> names = FilesMatching(directory, "*DIR");
    if (names.empty()) return false;
    const std::string name = UpperCase(names.front());
    const std::string candidate = name.substr(0, name.find("DIR"));
    if (FileExists(std::string(directory) + candidate + "VOL.0")) {
        library.GameID = candidate;
        library.IsV3 = true;
        return true;
    }
    library.IsV3 = false;
    library.GameID = LoaderID(directory);
    return true;
}

bool IsKnownVersion(std::string_view text) {
    return std::find(KnownVersions.begin(), KnownVersions.end(), text) != KnownVersions.end();
}

std::string DetectInterpreterVersion() {
    LibraryState& library = Library();
    const std::string dataFile = library.GameDir + "AGIDATA.OVL";
    if (!FileExists(dataFile)) return std::string(library.IsV3 ? DefaultV3Version : DefaultV2Version);
    const ByteArray bytes = Files().ReadAt(dataFile, 0, maxScan);
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] != '2' && text[i] != '3') {
            ++i;
            continue;
        }
        const std::string_view candidate = text.substr(i, text[i] == '2' ? 5 : 8);
        if (IsKnownVersion(candidate)) return std::string(candidate);
        i += candidate.size();
    }
    library.IsV3 = FileExists(library.GameDir + library.GameID + "DIR") &&
                   !FilesMatching(library.GameDir, library.GameID + "VOL.*").empty();
    return std::string(library.IsV3 ? DefaultV3Version : DefaultV2Version);
}

void RequireKnownVersion(std::string_view version, std::string_view source) {
    if (IsKnownVersion(version)) return;
    const double number = Val(version);
    RaiseCatalogue(number >= 2 && number <= 3 ? 543 : 597, source);
}

void StoreVersion(std::string_view version) {
    LibraryState& library = Library();
    if (library.GameLoaded) {
        library.LastEdit = Now();
        WriteGameProperty("General", "Interpreter", version);
    }
    library.InterpreterVersion = version;
    library.IsV3 = Val(version) > 3;
    InitCommandTables();
    SetCommandsForVersion(library.InterpreterVersion);
}

}  // namespace zorvex
