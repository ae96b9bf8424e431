// Inventories: what decodes, encodes, and reads back as the same.
#include <algorithm>

#include "fuzz/Check.h"
#include "zorvex/game/Error.h"
#include "zorvex/vocab/ObjectFile.h"
#include "zorvex/vocab/ObjectText.h"

namespace {

using namespace zorvex;

void CheckFile(const InventoryData& data) {
    ByteArray bytes;
    try {
        bytes = EncodeObjectFile(data);
    } catch (const Error& error) {
        FUZZ_CHECK(error.Number() == reOverflow);
        return;
    }
    auto back = DecodeObjectFile(bytes);
    FUZZ_CHECK(back);
    back->Description = data.Description;
    FUZZ_CHECK(*back == data);
}

void CheckText(const InventoryData& data) {
    for (const InventoryData::Item& item : data.Items) {
        if (item.Name.find_first_of("\r\n") != std::string::npos) return;
    }
    const auto back = DecodeObjectText(EncodeObjectText(data));
    FUZZ_CHECK(back && back->Items == data.Items && back->Description == data.Description);
    FUZZ_CHECK(back->MaxScreenObjects == std::max<int>(data.MaxScreenObjects, 1));
}

bool HasZeroBytes(const InventoryData& data) {
    return std::any_of(data.Items.begin(), data.Items.end(),
                       [](const auto& item) { return item.Name.find('\0') != std::string::npos; });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ByteView bytes(data, size);
    for (const auto& items : {DecodeObjectFile(bytes), DecodeObjectText(bytes)}) {
        if (!items) continue;
        FUZZ_CHECK(items->Items.size() <= MaxItems);
        if (!HasZeroBytes(*items)) CheckFile(*items);
        CheckText(*items);
    }
    return 0;
}
