// Apple IIgs streams and samples: every stream ends, and gives a file with sound lengths.
#include "fuzz/Check.h"
#include "zorvex/platform/Media.h"
#include "zorvex/sound/SoundConversion.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zorvex;
    const ByteView bytes(data, size);
    float length = -1;
    const ByteArray midi = BuildIIgsMIDI(bytes, length);
    FUZZ_CHECK(length >= 0);
    FUZZ_CHECK(midi.size() >= 26 && midi.size() <= 26 + 2 * size);
    const std::size_t chunk = midi[18] * 0x1000000U + midi[19] * 0x10000U + midi[20] * 0x100U + midi[21];
    FUZZ_CHECK(chunk == midi.size() - 22);
    FUZZ_CHECK(midi[midi.size() - 3] == 0xFF && midi[midi.size() - 2] == 0x2F && midi.back() == 0);
    FUZZ_CHECK(MediaSeconds(midi) >= 0);

    const ByteArray wave = BuildIIgsPCM(bytes);
    FUZZ_CHECK(wave.size() == (size >= 10 ? size - 10 : 0));
    FUZZ_CHECK(MediaSeconds(wave) >= 0);
    FUZZ_CHECK(MediaSeconds(bytes) >= 0);
    return 0;
}
