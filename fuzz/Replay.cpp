// A plain main for a fuzz target: runs the kept inputs of a directory, the beginnings of each, and mutations
// of each, the same ones every time.
//
//     FuzzName CORPUS-DIRECTORY-OR-FILE... [--mutations N] [--seed S]
//
// Without kept inputs the mutations grow out of the empty input. The number and seed can also come from the
// environment variables ZORVEX_MUTATIONS and ZORVEX_SEED, and ZORVEX_CUTS tells how many beginnings are run.
// A failure says which input and mutation it was before it ends the program.
#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

#if defined(__GNUC__)
// There where a sanitizer is linked in; it deals with crashes itself and calls back before it ends the
// program.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());
#endif

namespace {

using Input = std::vector<std::uint8_t>;

struct Options {
    unsigned long mutations = 2000;
    unsigned long cuts = 1024;
    unsigned long seed = 1;
    std::vector<std::filesystem::path> paths;
};

// What is being run, for the message when it crashes.
char present[512] = "";

void TellInput() {
    std::fputs(present, stderr);
}

void OnCrash(int) {
    TellInput();
    std::_Exit(1);
}

void WatchForCrashes() {
    std::signal(SIGABRT, OnCrash);
#if defined(__GNUC__)
    if (__sanitizer_set_death_callback != nullptr) {
        __sanitizer_set_death_callback(TellInput);
        return;
    }
#endif
    std::signal(SIGSEGV, OnCrash);
}

Input ReadInput(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Changes an input in a few random places: bytes set, flipped, inserted, removed, copied about, the end cut.
class Mutator {
  public:
    explicit Mutator(unsigned long seed) : random_(static_cast<std::uint32_t>(seed)) {}

    Input Mutate(Input input) {
        for (std::size_t changes = 1 + Below(8); changes > 0; --changes)
            Change(input);
        return input;
    }

  private:
    std::size_t Below(std::size_t bound) { return bound == 0 ? 0 : random_() % bound; }
    std::uint8_t Byte() {
        constexpr std::uint8_t telling[] = {0, 1, 0x7F, 0x80, 0xFE, 0xFF, '"', '[', '\n', ' '};
        return Below(2) == 0 ? telling[Below(std::size(telling))] : static_cast<std::uint8_t>(random_());
    }

    void Change(Input& input) {
        const std::size_t at = Below(input.size());
        const auto place = input.begin() + static_cast<std::ptrdiff_t>(at);
        const std::size_t length = Below(std::min<std::size_t>(input.size() - at, 32) + 1);
        const auto end = place + static_cast<std::ptrdiff_t>(length);
        switch (Below(7)) {
            case 0:
            case 1:
                if (!input.empty()) *place = Byte();
                break;
            case 2:
                if (!input.empty()) *place = static_cast<std::uint8_t>(*place ^ (1U << Below(8)));
                break;
            case 3: input.insert(place, 1 + Below(4), Byte()); break;
            case 4: input.erase(place, end); break;
            case 5: {
                const Input piece(place, end);
                const auto target = static_cast<std::ptrdiff_t>(Below(input.size() + 1));
                input.insert(input.begin() + target, piece.begin(), piece.end());
                break;
            }
            default:
                if (Below(4) == 0) input.resize(at);
        }
    }

    std::mt19937 random_;
};

void Run(const std::string& name, const char* change, unsigned long number, const Input& input) {
    std::snprintf(present, sizeof(present), "\nfailed: %s, %s %lu\n", name.c_str(), change, number);
    // A copy of the exact size, so that a read past the end is seen.
    const Input exact(input);
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
}

void Replay(const std::string& name, const Input& input, const Options& options) {
    constexpr std::size_t longestCut = 1024;
    Run(name, "as kept", 0, input);
    const std::size_t cutEnd = std::min(input.size(), longestCut);
    const std::size_t step = 1 + cutEnd / (options.cuts + 1);
    for (std::size_t size = 0; size < cutEnd; size += step)
        Run(name, "cut at", size, Input(input.begin(), input.begin() + static_cast<std::ptrdiff_t>(size)));
    Mutator mutator(options.seed);
    for (unsigned long i = 1; i <= options.mutations; ++i)
        Run(name, "mutation", i, mutator.Mutate(input));
}

Options ReadOptions(int count, char** arguments) {
    Options options;
    if (const char* set = std::getenv("ZORVEX_MUTATIONS")) options.mutations = std::strtoul(set, nullptr, 10);
    if (const char* set = std::getenv("ZORVEX_CUTS")) options.cuts = std::strtoul(set, nullptr, 10);
    if (const char* set = std::getenv("ZORVEX_SEED")) options.seed = std::strtoul(set, nullptr, 10);
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--mutations" && i + 1 < count) {
            options.mutations = std::strtoul(arguments[++i], nullptr, 10);
        } else if (argument == "--seed" && i + 1 < count) {
            options.seed = std::strtoul(arguments[++i], nullptr, 10);
        } else {
            options.paths.emplace_back(argument);
        }
    }
    return options;
}

std::vector<std::filesystem::path> InputsOf(const Options& options) {
    std::vector<std::filesystem::path> files;
    for (const std::filesystem::path& path : options.paths) {
        if (std::filesystem::is_regular_file(path)) files.push_back(path);
        if (!std::filesystem::is_directory(path)) continue;
        for (const auto& entry : std::filesystem::directory_iterator(path))
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

int main(int count, char** arguments) {
    const Options options = ReadOptions(count, arguments);
    WatchForCrashes();
    const std::vector<std::filesystem::path> files = InputsOf(options);
    for (const std::filesystem::path& file : files)
        Replay(file.filename().string(), ReadInput(file), options);
    if (files.empty()) Replay("the empty input", {}, options);
    std::printf("%zu inputs, %lu mutations of each\n", files.size(), options.mutations);
    return 0;
}
