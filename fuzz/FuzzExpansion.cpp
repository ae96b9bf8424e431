// Any bytes as stored data of a V3 resource: the size of the expansion, a kind, and the data.
#include <cstdint>
#include <random>
#include <utility>

#include "fuzz/Check.h"
#include "fuzz/LzwEncoder.h"
#include "zorvex/base/Faults.h"
#include "zorvex/storage/ResourceFunctions.h"

namespace {

using namespace zorvex;

/// What the encoder makes of any data expands to that data; the counters are signed 16-bit numbers.
void CheckEncoder(ByteView data) {
    std::seed_seq seed(data.begin(), data.end());
    std::mt19937 random(seed);
    ByteArray plain(1 + random() % 40000);
    const auto kinds = 1 + random() % (random() % 2 == 0 ? 4 : 200);
    for (auto& byte : plain)
        byte = static_cast<std::uint8_t>(random() % kinds);
    ByteArray expanded = fuzz::LzwCompressed(plain);
    if (expanded.size() > 32767) return;
    const auto error = Attempt([&] { ExpandV3(expanded, static_cast<std::int32_t>(plain.size())); });
    if (plain.size() > 32767) {
        FUZZ_CHECK(error && error->Number() == 559);
    } else {
        FUZZ_CHECK(!error && expanded == plain);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size % 64 == 0) CheckEncoder({data, size});  // these are long
    if (size < 3) return 0;
    StoredResource stored;
    stored.expandedSize = data[0] + data[1] * 256;
    stored.packedPicture = (data[2] & 1U) != 0;
    stored.data.assign(data + 3, data + size);
    const AGIResType type = (data[2] & 2U) != 0 ? rtLogic : rtView;
    const ByteArray before = stored.data;
    const bool expands = stored.packedPicture || std::cmp_not_equal(before.size(), stored.expandedSize);
    const auto error = Attempt([&] { ExpandStored(stored, type, "VOL.0"); });
    if (error) {
        FUZZ_CHECK(error->Is(507));
    } else if (!expands) {
        FUZZ_CHECK(stored.data == before);
    } else if (stored.packedPicture) {
        FUZZ_CHECK(stored.data.size() >= before.size() && stored.data.size() <= 2 * before.size());
    } else {
        FUZZ_CHECK(std::cmp_equal(stored.data.size(), stored.expandedSize));
    }
    return 0;
}
