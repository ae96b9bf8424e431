// The bytes of WORDS.TOK.
//
// The file begins with an index of 26 offsets, high byte first: where the words of each letter from a to z
// begin, or 0. From byte 52 on stand the words in sort order, and one zero byte behind the last. A word is
//
//   1 byte   how many leading characters it shares with the word before it
//   n bytes  the other characters, each XOR 7F (hexadecimal), the last one with bit 7 set in addition
//   2 bytes  its group, high byte first
#pragma once

#include <optional>

#include "zorvex/base/Types.h"
#include "zorvex/vocab/VocabularyData.h"

namespace zorvex {

/// The words of a WORDS.TOK file; nothing when the bytes are no such file. Of the index only the first entry
/// is used, as the place of the first word. Without words the value holds the default ones.
std::optional<VocabularyData> DecodeWordsFile(ByteView bytes);

/// The bytes for a word list. Raises 6 for a character of 128 and more, for a common start of more than 255
/// characters and for a letter whose words would begin behind byte 32767, and 5 for an empty word: the format
/// has no room for them.
ByteArray EncodeWordsFile(const VocabularyData& data);

}  // namespace zorvex
