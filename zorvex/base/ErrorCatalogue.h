// The one table of message texts: object errors 501 to 697, compile errors 4001 to 4164, compile warnings
// 5001 to 5108.
#pragma once

#include <cstdint>
#include <string_view>

namespace zorvex {

/// The text of an id with its placeholders, or an empty text for an id that is not in the catalogue.
std::string_view CatalogueEntry(std::int32_t id);

}  // namespace zorvex
