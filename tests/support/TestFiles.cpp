#include "tests/support/TestFiles.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "zorvex/platform/FileSystem.h"

namespace zorvex::test {

namespace fs = std::filesystem;

namespace {

fs::path NewDirectory() {
    std::random_device numbers;
    for (;;) {
        const fs::path path = fs::temp_directory_path() / ("zorvex-test-" + std::to_string(numbers()));
        if (fs::create_directory(path)) return path;
    }
}

fs::path GamesDirectory() {
    if (const char* set = std::getenv("ZORVEX_GAMES")) return set;
    return fs::path(SourceDirectory()) / ".." / "shared" / "games";
}

}  // namespace

ByteArray Bytes(std::string_view text) {
    return {text.begin(), text.end()};
}

std::string TextOf(ByteView bytes) {
    return {bytes.begin(), bytes.end()};
}

std::string TextOfFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << "cannot read " << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

testing::AssertionResult Has(const std::string& text, const std::string& part) {
    return (text.find(part) != std::string::npos ? testing::AssertionSuccess() : testing::AssertionFailure())
           << "'" << part << "' is looked for in '" << text << "'";
}

std::string Repeated(int count, std::string_view piece) {
    std::string text;
    for (int i = 1; i <= count; ++i)
        text += ReplaceAll(piece, "@", std::to_string(i));
    return text;
}

std::string Face(const GameResource& resource) {
    return resource.ID() + (resource.Loaded() ? " loaded" : " unloaded") +
           (resource.IsDirty() ? " dirty" : " clean");
}

TempDir::TempDir() : native_(NewDirectory().string()), path_(InnerPath(native_) + "\\") {}

TempDir::~TempDir() {
    std::error_code ignored;
    fs::remove_all(native_, ignored);
}

std::string TempDir::File(std::string_view name) const {
    return path_ + InnerPath(name);
}

void TempDir::Write(std::string_view name, ByteView bytes) const {
    const fs::path path = fs::path(native_) / name;
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    EXPECT_TRUE(file.flush()) << "cannot write " << path;
}

void TempDir::Write(std::string_view name, std::string_view text) const {
    Write(name, Bytes(text));
}

void TempDir::MakeDirectory(std::string_view name) const {
    fs::create_directories(fs::path(native_) / name);
}

ByteArray TempDir::Read(std::string_view name) const {
    return Bytes(ReadText(name));
}

std::string TempDir::ReadText(std::string_view name) const {
    return TextOfFile(fs::path(native_) / name);
}

bool TempDir::Exists(std::string_view name) const {
    return fs::exists(fs::path(native_) / name);
}

void TempDir::Remove(std::string_view name) const {
    fs::remove_all(fs::path(native_) / name);
}

std::map<std::string, ByteArray> TempDir::All() const {
    std::map<std::string, ByteArray> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(native_)) {
        if (entry.is_regular_file()) files[fs::relative(entry, native_).string()] = Bytes(TextOfFile(entry));
    }
    return files;
}

void TempDir::CopyFrom(const std::string& nativeDirectory) const {
    fs::copy(nativeDirectory, native_, fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(native_)) {
        fs::permissions(entry, fs::perms::owner_write, fs::perm_options::add);
    }
}

std::string SourceDirectory() {
    return ZORVEX_SOURCE_DIR;
}

std::string ToolPath() {
    return ZORVEX_TOOL_PATH;
}

std::string SampleBuilderPath() {
    return ZORVEX_SAMPLE_BUILDER_PATH;
}

std::string RealGame(std::string_view name) {
    return (GamesDirectory() / name).string();
}

std::vector<std::string> RealGames() {
    std::vector<std::string> names;
    std::error_code none;
    for (const fs::directory_entry& entry : fs::directory_iterator(GamesDirectory(), none)) {
        if (fs::exists(entry.path() / "expected.json")) names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace zorvex::test
