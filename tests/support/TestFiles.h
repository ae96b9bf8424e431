// Files for tests: a temporary directory for each test, and the real games where they are there.
//
//     TempDir dir;
//     dir.Write("vol.0", ByteArray{0x12, 0x34});
//     game.OpenGameDIR(dir.Path());
//     EXPECT_TRUE(dir.Exists("TEST.zvg"));
#pragma once

#include <filesystem>

#include "zorvex/base/CheckSum.h"
#include "zorvex/base/CodePage.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/Text.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/state/GameSession.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/state/PropertyFile.h"
#include "zorvex/storage/GameResource.h"

namespace zorvex::test {

/// The bytes of a text, the text of bytes, and that of a file; fails the test when there is no such file.
ByteArray Bytes(std::string_view text);
std::string TextOf(ByteView bytes);
std::string TextOfFile(const std::filesystem::path& path);

/// Whether a text holds another one, and the text where it does not.
testing::AssertionResult Has(const std::string& text, const std::string& part);

/// A text many times over, each time with its number, from 1 on, in place of "@".
std::string Repeated(int count, std::string_view piece);

/// What a host sees of any resource object: its ID and states, such as "Picture7 unloaded clean".
std::string Face(const GameResource& resource);

/// Brings the library's record back to its beginning at the end of the scope.
struct LibraryReset {
    LibraryReset() = default;
    LibraryReset(const LibraryReset&) = delete;
    LibraryReset& operator=(const LibraryReset&) = delete;
    ~LibraryReset() {
        EndGameSession(Library());
        Library() = LibraryState();
    }
};

/// A new empty directory that goes, with all in it, at the end of the scope. It works on the machine's own
/// files, whatever file system the library uses at the time. Names are relative to it; "a/b" makes the
/// directory a.
class TempDir {
  public:
    TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    ~TempDir();

    /// The directory as an inner path that ends in a backslash.
    const std::string& Path() const { return path_; }
    /// The directory in the system's form, without a separator at its end.
    const std::string& Native() const { return native_; }
    /// A file in it as an inner path.
    std::string File(std::string_view name) const;

    void Write(std::string_view name, ByteView bytes) const;
    void Write(std::string_view name, std::string_view text) const;
    void MakeDirectory(std::string_view name) const;
    /// Names are taken exactly.
    ByteArray Read(std::string_view name) const;
    std::string ReadText(std::string_view name) const;
    bool Exists(std::string_view name) const;
    void Remove(std::string_view name) const;
    /// All files below the directory with their bytes, by name; for "nothing else has changed".
    std::map<std::string, ByteArray> All() const;
    /// Copies all files of another directory (in the system's form) into this one.
    void CopyFrom(const std::string& nativeDirectory) const;

  private:
    std::string native_;
    std::string path_;
};

/// Makes a directory that of the open game, with an empty property list, until the end of the scope.
struct OpenDirectory : LibraryReset {
    explicit OpenDirectory(const TempDir& dir) {
        BeginGameSession();
        Library().GameDir = dir.Path();
        Library().PropertyList = OpenPropertyList(dir.File("TEST.zvg"), false);
    }
};

/// The root of the sources, in the system's form.
std::string SourceDirectory();

/// The path of the tool's program, empty where it is not built.
std::string ToolPath();

/// The path of the program that builds the sample game.
std::string SampleBuilderPath();

/// The names of the real games that are there with their expectations. They are looked for in the directory
/// that the environment variable ZORVEX_GAMES names, else beside the sources.
std::vector<std::string> RealGames();

/// The directory of a real game in the system's form.
std::string RealGame(std::string_view name);

}  // namespace zorvex::test

/// Skips a test where the real games are not there.
#define SKIP_WITHOUT_GAMES()               \
    if (zorvex::test::RealGames().empty()) \
    GTEST_SKIP() << "no real games are here; set ZORVEX_GAMES to where they are"
