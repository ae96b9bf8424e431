// The property list of a large game: reading every key of 1,024 resources, as opening such a game does, and
// 10,000 writes into a file of 5,000 lines. Beside each stands a plain walk over the same bytes.
#include <benchmark/benchmark.h>

#include <numeric>
#include <string>

#include "zorvex/base/StringList.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/state/PropertyFile.h"

namespace {

using namespace zorvex;

constexpr int resourcesOfAType = 256;

std::string SectionName(std::size_t type, int number) {
    return std::string(ResTypeNames[type]) + std::to_string(number);
}

/// A property list with four keys for each of 1,024 resources, in groups: about 6,200 lines.
StringList LargeList() {
    StringList list;
    list.Add("\\game\\LARGE.zvg");
    list.Add("#");
    WritePropertyLine(list, "General", "ZorvexVersion", LibraryVersion);
    for (std::size_t type = 0; type < ResTypeNames.size(); ++type) {
        const std::string group = std::string(ResTypeNames[type]) + "s";
        for (int number = 0; number < resourcesOfAType; ++number) {
            const std::string section = SectionName(type, number);
            WritePropertyLine(list, section, "ID", section, group);
            WritePropertyLine(list, section, "Description", "a resource of the game", group);
            WritePropertyLine(list, section, "Size", "1234", group);
        }
    }
    return list;
}

/// What the rates are compared with: each byte of the list read once.
void WalkOverLines(benchmark::State& state) {
    const StringList list = LargeList();
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (const std::string& line : list.Lines())
            sum = std::accumulate(line.begin(), line.end(), sum);
        benchmark::DoNotOptimize(sum);
    }
    state.SetLabel(std::to_string(list.Count()) + " lines");
}
BENCHMARK(WalkOverLines)->Unit(benchmark::kMicrosecond);

/// Parses the file's text, then reads three keys of each of the 1,024 resources.
void OpenWithProperties(benchmark::State& state) {
    const std::string text = LargeList().Text();
    for (auto _ : state) {
        StringList list;
        list.Assign(text);
        for (std::size_t type = 0; type < ResTypeNames.size(); ++type) {
            for (int number = 0; number < resourcesOfAType; ++number) {
                const std::string section = SectionName(type, number);
                benchmark::DoNotOptimize(ReadPropertyString(&list, section, "ID", ""));
                benchmark::DoNotOptimize(ReadPropertyString(&list, section, "Description", ""));
                benchmark::DoNotOptimize(ReadPropertyLong(&list, section, "Size", -1));
            }
        }
    }
}
BENCHMARK(OpenWithProperties)->Unit(benchmark::kMillisecond);

/// Builds the same list key by key, as opening a game without a property file does.
void BuildProperties(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(LargeList());
}
BENCHMARK(BuildProperties)->Unit(benchmark::kMillisecond);

/// 10,000 writes spread over the list; with the argument 1 every write adds a key.
void TenThousandWrites(benchmark::State& state) {
    const StringList large = LargeList();
    for (auto _ : state) {
        StringList list = large;
        for (int i = 0; i < 10'000; ++i) {
            const std::size_t type = static_cast<std::size_t>(i) % ResTypeNames.size();
            const std::string key = state.range(0) == 0 ? "Size" : "Key" + std::to_string(i);
            WritePropertyLine(list, SectionName(type, i * 7 % resourcesOfAType), key, std::to_string(i),
                              std::string(ResTypeNames[type]) + "s");
        }
        benchmark::DoNotOptimize(list);
    }
}
BENCHMARK(TenThousandWrites)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
