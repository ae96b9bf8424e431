// Decompiling, in bytes of bytecode a second, beside a plain copy of the same bytes. The aim is over 20 MB/s.
#include <benchmark/benchmark.h>

#include "tests/support/LogicBytes.h"

namespace {

using namespace zorvex;

/// A logic of the size and mixture that rooms of games have, twenty times over.
ByteArray Room() {
    ByteArray code;
    for (int i = 0; i < 20; ++i) {
        code.insert(code.end(), {0xFF, 0x07, 0x05, 0xFF, 0x24, 0x00});  // if isset: set the room up
        code.insert(code.end(),
                    {0x18, 0x0A, 0x19, 0x0A, 0x1B, 0x0A, 0x1E, 0x03, 0x21, 0x05, 0x29, 0x05, 0x03});
        code.insert(code.end(),
                    {0x25, 0x05, 0x40, 0x50, 0x36, 0x05, 0x0F, 0x23, 0x05, 0x03, 0x40, 0x01, 0x0C});
        code.insert(code.end(), {0x20, 0x54, 0x05, 0x4C, 0x05, 0x06, 0x17, 0x0A, 0x1A, 0x00});
        code.insert(code.end(),
                    {0xFF, 0x0E, 0x02, 0x14, 0x00, 0x0F, 0x00, 0xFD, 0x01, 0x40, 0x05, 0xFF, 0x0A, 0x00});
        code.insert(code.end(), {0x65, static_cast<std::uint8_t>(i + 1), 0x05, 0x03, 0x02, 0x0C, 0x21});
        code.insert(code.end(), {0xFE, 0x02, 0x00, 0x0C, 0x22});
    }
    code.push_back(0);
    std::map<std::size_t, std::string> messages;
    for (std::size_t i = 1; i <= 25; ++i)
        messages[i] = "A description of what can be seen here, in about as many words as games use for it.";
    return test::LogicOf(code, messages);
}

void CopyLogic(benchmark::State& state) {
    const ByteArray logic = Room();
    for (auto _ : state) {
        ByteArray copy = logic;
        benchmark::DoNotOptimize(copy.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(logic.size()));
}
BENCHMARK(CopyLogic);

void DecompileLogic(benchmark::State& state) {
    const ByteArray logic = Room();
    DecodeSettings settings;
    settings.SpecialSyntax = state.range(0) != 0;
    settings.NamesAsText = state.range(0) != 0;
    for (auto _ : state) {
        const DecodedLogic decoded = DecodeLogic(logic, settings, DecodeNames());
        benchmark::DoNotOptimize(decoded.Lines.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(logic.size()));
}
BENCHMARK(DecompileLogic)->ArgName("names")->Arg(0)->Arg(1);

}  // namespace
