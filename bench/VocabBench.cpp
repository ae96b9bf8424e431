// Word lists of some thousand words. The copy of a file of the same size is what loading and saving compare
// to.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "zorvex/platform/FileSystem.h"
#include "zorvex/vocab/AGIWordList.h"

namespace {

using namespace zorvex;

constexpr int wordsPerGroup = 8;

/// Different words of one letter, so that any number of them fits a file, in random order.
std::vector<std::string> ManyWords(std::int64_t count) {
    std::vector<std::string> words;
    for (std::int64_t i = 0; i < count; ++i) {
        std::string word = "m";
        for (std::int64_t rest = i; rest > 0; rest /= 26)
            word.push_back(static_cast<char>('a' + rest % 26));
        words.push_back(word);
    }
    std::shuffle(words.begin(), words.end(), std::mt19937(1));
    return words;
}

void Fill(AGIWordList& list, const std::vector<std::string>& words) {
    list.NewWords();
    list.Clear();
    for (std::size_t i = 0; i < words.size(); ++i)
        list.AddWord(words[i], static_cast<std::int32_t>(i / wordsPerGroup % 65536));
}

/// A file that goes at the end of the scope.
class BenchFile {
  public:
    BenchFile() : path_(Files().UniqueTempFile(Files().TempDirectory(), "AGI")) {}
    BenchFile(const BenchFile&) = delete;
    BenchFile& operator=(const BenchFile&) = delete;
    ~BenchFile() { Files().Remove(path_); }
    const std::string& Path() const { return path_; }

  private:
    std::string path_;
};

void AddWordsOneByOne(benchmark::State& state) {
    const std::vector<std::string> words = ManyWords(state.range(0));
    for (auto _ : state) {
        AGIWordList list;
        Fill(list, words);
        benchmark::DoNotOptimize(list.WordCount());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(AddWordsOneByOne)
    ->Arg(2500)
    ->Arg(5000)
    ->Arg(10000)
    ->Arg(20000)
    ->Arg(40000)
    ->Unit(benchmark::kMillisecond);

/// The worst case: every new word moves half of the one group.
void AddWordsToOneGroup(benchmark::State& state) {
    const std::vector<std::string> words = ManyWords(state.range(0));
    for (auto _ : state) {
        AGIWordList list;
        list.NewWords();
        for (const std::string& word : words)
            list.AddWord(word, 1);
    }
}
BENCHMARK(AddWordsToOneGroup)->Arg(10000)->Unit(benchmark::kMillisecond);

void LoadWords(benchmark::State& state) {
    const BenchFile file;
    AGIWordList list;
    Fill(list, ManyWords(state.range(0)));
    list.Save(file.Path(), static_cast<std::int32_t>(state.range(1)));
    for (auto _ : state) {
        AGIWordList loaded;
        loaded.Load(file.Path());
        benchmark::DoNotOptimize(loaded.WordCount());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(LoadWords)->ArgsProduct({{10000, 100000}, {0, 1}})->Unit(benchmark::kMillisecond);

void SaveWords(benchmark::State& state) {
    const BenchFile file;
    AGIWordList list;
    Fill(list, ManyWords(state.range(0)));
    for (auto _ : state) {
        list.IsDirty(true);
        list.Save(file.Path(), static_cast<std::int32_t>(state.range(1)));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(SaveWords)->ArgsProduct({{10000}, {0, 1}})->Unit(benchmark::kMillisecond);

void CopyFileOfTenThousandWords(benchmark::State& state) {
    const BenchFile from;
    const BenchFile to;
    AGIWordList list;
    Fill(list, ManyWords(10000));
    list.Save(from.Path());
    for (auto _ : state)
        Files().Write(to.Path(), Files().Read(from.Path()));
}
BENCHMARK(CopyFileOfTenThousandWords)->Unit(benchmark::kMillisecond);

}  // namespace
