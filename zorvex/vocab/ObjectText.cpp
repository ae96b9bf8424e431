#include "zorvex/vocab/ObjectText.h"

#include <algorithm>

#include "zorvex/base/Text.h"
#include "zorvex/vocab/TextForm.h"

namespace zorvex {

namespace {

/// The number that a text begins with, at least `least` and at most 255.
std::uint8_t ByteValue(std::string_view text, double least) {
    // Written so that what is no number at all counts as the least.
    const double value = std::min(std::max(least, Val(text)), 255.0);
    return static_cast<std::uint8_t>(RoundHalfEven(value));
}

InventoryData::Item ItemOf(std::string_view line) {
    const std::size_t tab = line.find('\t');
    if (tab == std::string_view::npos) return {std::string(line), 0};
    return {std::string(line.substr(tab + 1)), ByteValue(line.substr(0, tab), 0)};
}

}  // namespace

std::optional<InventoryData> DecodeObjectText(ByteView bytes, std::int32_t* badLine) {
    TextFormReader reader(bytes);
    if (reader.AtEnd() || !reader.TakeVersion() || reader.AtEnd()) return std::nullopt;
    InventoryData data;
    data.MaxScreenObjects = ByteValue(reader.NextLine(), 1);
    for (std::string_view line; reader.NextEntry(line);) {
        if (data.Items.size() == MaxItems) {
            if (badLine != nullptr) *badLine = reader.LineNumber();
            return std::nullopt;
        }
        data.Items.push_back(ItemOf(line));
    }
    data.Description = reader.Description();
    return data;
}

ByteArray EncodeObjectText(const InventoryData& data) {
    TextFormWriter writer;
    writer.Line(std::to_string(data.MaxScreenObjects));
    for (const InventoryData::Item& item : data.Items)
        writer.Line(std::to_string(item.Room) + "\t" + item.Name);
    return writer.Finish(data.Description);
}

}  // namespace zorvex
