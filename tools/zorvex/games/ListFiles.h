// Word lists and inventories in files of their own, read and written so that a person can see what is wrong.
#pragma once

#include <string>

#include "zorvex/Zorvex.h"

namespace zorvex::tool {

/// Reads a list from a file of either form. Raises Error, whose description names the file and, for a text
/// form, the line. A line of words without a tab is such an error, as it would be passed over; a line of an
/// inventory without one is warned of, as all of it is the item's name. Raises UsageError for a file with the
/// extension of the other list: the two text forms begin alike.
void LoadListFile(AGIWordList& words, const std::string& path);
void LoadListFile(AGIInventoryObjects& items, const std::string& path);

/// An error of writing words, with the first word named that WORDS.TOK cannot hold.
Error WithUnwritableWord(const Error& error, const AGIWordList& words);

}  // namespace zorvex::tool
