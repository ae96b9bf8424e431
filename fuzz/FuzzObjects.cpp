// Inventories: what decodes, encodes, and reads back as the same.
#include <algorithm>
#include <array>
#include <string>

#include "fuzz/Check.h"
#include "zorvex/base/Error.h"
#include "zorvex/base/Text.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
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

/// Which items are unique follows any run of edits, chosen by the bytes.
void CheckEditing(ByteView choices) {
    const std::array<std::string, 5> names{"a", "A", "b", "?", ""};
    AGIInventoryObjects list;
    list.NewObjects();
    for (const std::uint8_t choice : choices) {
        const std::string& name = names[choice % names.size()];
        const std::int32_t index = choice / 8 % list.Count();
        switch (choice % 8) {
            case 0: list.Remove(choice < 128 ? index : list.Count() - 1); break;
            case 1:
            case 2:
                if (list.Count() < 8) list.Add(name, 1);
                break;
            default: list.Item(index)->ItemName(name);
        }
        for (const auto& item : list) {
            const auto same = std::count_if(list.begin(), list.end(), [&](const auto& other) {
                return EqualNoCase(other->ItemName(), item->ItemName());
            });
            FUZZ_CHECK(item->Unique() == (same == 1 || item->ItemName() == "?"));
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ByteView bytes(data, size);
    CheckEditing(bytes.first(std::min<std::size_t>(size, 200)));
    for (const auto& items : {DecodeObjectFile(bytes), DecodeObjectText(bytes)}) {
        if (!items) continue;
        FUZZ_CHECK(items->Items.size() <= MaxItems);
        if (!HasZeroBytes(*items)) CheckFile(*items);
        CheckText(*items);
    }
    return 0;
}
