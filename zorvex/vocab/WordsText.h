// The text form of a word list: per group one line of its number and its words, with tabs between.
#pragma once

#include <optional>

#include "zorvex/game/Types.h"
#include "zorvex/vocab/VocabularyData.h"

namespace zorvex {

/// The words of a text form, in lower case; nothing when the bytes are no such file, or a group's number is
/// none, out of range or used twice. Raises 579 for a word that comes twice. Without words the value holds
/// the default ones.
std::optional<VocabularyData> DecodeWordsText(ByteView bytes);

/// The bytes of the text form. Groups without words are left out.
ByteArray EncodeWordsText(const VocabularyData& data);

}  // namespace zorvex
