// The text form of a word list: per group one line of its number and its words, with tabs between.
#pragma once

#include <cstdint>
#include <optional>

#include "zorvex/base/Types.h"
#include "zorvex/vocab/VocabularyData.h"

namespace zorvex {

/// The words of a text form, in lower case; nothing when the bytes are no such file, or a group's number is
/// none, out of range or used twice. Raises 579 for a word that comes twice. Without words the value holds
/// the default ones. `badLine` gets the number of the line, from 1, at which the reading of a text form
/// ended.
std::optional<VocabularyData> DecodeWordsText(ByteView bytes, std::int32_t* badLine = nullptr);

/// The bytes of the text form. Groups without words are left out.
ByteArray EncodeWordsText(const VocabularyData& data);

}  // namespace zorvex
