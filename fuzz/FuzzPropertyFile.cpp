// Any bytes as a property file, in both the text form and the former binary one.
#include <cstdint>
#include <string>

#include "fuzz/Check.h"
#include "tests/support/FailingFiles.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/StringList.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/state/GameProperties.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/state/OldPropertyFile.h"
#include "zorvex/state/PropertyFile.h"
#include "zorvex/state/PropertyText.h"

namespace {

using namespace zorvex;

/// One edit or read, chosen by a byte, over names that the kept inputs use as well.
void Edit(StringList& list, std::uint8_t choice) {
    constexpr std::string_view sections[] = {"General", "Logic1", "View2", "Palette"};
    constexpr std::string_view groups[] = {"", "Logics", "Views", "Sounds"};
    constexpr std::string_view keys[] = {"ID", "Size"};
    const std::string_view section = sections[choice & 3U];
    const std::string_view group = groups[choice >> 2U & 3U];
    const std::string_view key = keys[choice >> 4U & 1U];
    switch (choice >> 5U) {
        case 0: ReadPropertyLong(&list, section, key, -1); break;
        case 1: DeletePropertyKey(list, section, key); break;
        case 2: DeletePropertySection(list, section); break;
        default: WritePropertyLine(list, section, key, choice % 3 == 0 ? "two words" : "one", group);
    }
}

/// The index that goes along with the edits must find what a new index of the same lines finds.
void CheckEditing(StringList& list, std::string_view choices) {
    for (const char choice : choices) {
        StringList fresh;
        fresh.Assign(list.AllLines());
        if (list.Count() == 0) fresh.Clear();
        Edit(list, static_cast<std::uint8_t>(choice));
        // A copy has the revision of its original; only a new assignment makes the index start anew.
        Edit(fresh, static_cast<std::uint8_t>(choice));
        FUZZ_CHECK(list.Lines() == fresh.Lines());
        FUZZ_CHECK(list.Lines().front().ends_with("fuzz.zvg"));
    }
}

void CheckValue(std::string_view value) {
    if (value.find_first_of("\"#\\\r\n\v\t") != std::string_view::npos) return;
    if (!value.empty() && (value.front() == ' ' || value.back() == ' ' || value.front() == '=')) return;
    const std::string line = EntryLine("Key", EncodeValue(value), "   # kept");
    const auto behindKey = TextBehindKey(TrimmedLine(line), "kEY");
    FUZZ_CHECK(behindKey && DecodeValue(*behindKey) == value);
    FUZZ_CHECK(KeptComment(*behindKey) == "   # kept");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const test::MemoryFiles files;
    const std::string path = "\\work\\fuzz.zvg";
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    Files().Write(path, {data, size});

    const auto list = OpenPropertyList(path, false);
    CheckEditing(*list, text.substr(0, 16));
    CheckValue(text.substr(0, 40));

    LibraryState& library = Library();
    library.GameFile = path;
    library.PropertyList = list;
    Attempt([] { GetGameProperties(); });
    FUZZ_CHECK(SaveGameProperties());
    FUZZ_CHECK(OpenPropertyList(path, false)->Lines() == list->Lines());

    Files().Write(path, {data, size});
    library.PropertyList = OpenPropertyList(path, false);
    ConvertOldPropertyFile();
    if (library.PropertyList) FUZZ_CHECK(ReadGameString("General", "ZorvexVersion", "") == LibraryVersion);
    return 0;
}
