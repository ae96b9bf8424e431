// Any bytes as stored data of a V3 resource: the size of the expansion, a kind, and the data.
#include <cstdint>
#include <utility>

#include "fuzz/Check.h"
#include "zorvex/game/Faults.h"
#include "zorvex/storage/ResourceFunctions.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zorvex;
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
