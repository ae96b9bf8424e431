// What a load of a game warned of, as values.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/Types.h"

namespace zorvex {

/// What a warning of a load is about.
enum class LoadIssueKind : std::uint8_t {
    Resource,        ///< a resource that a directory file names and that cannot be read
    Directory,       ///< a directory file
    EmptyDirectory,  ///< a directory file without bytes, taken as one empty entry; this one is not logged
    List,            ///< WORDS.TOK or OBJECT cannot be read
    Properties,      ///< the property file
    SourceDirectory  ///< the directory of the sources
};

/// One warning of a load.
struct LoadIssue {
    LoadIssueKind Kind = LoadIssueKind::Resource;
    /// Something is missing in the open game because of it; else all that there is could be loaded.
    bool IsError = false;
    /// The sentence that stands in errlog.txt, without its date and level.
    std::string Text = {};
    /// The catalogue id or plain number of the error behind it; 0 where there is none.
    std::int32_t ErrorNumber = 0;
    /// Of a resource: its kind, number, and the place that the directory names. Else rtNone or the kind of
    /// the directory or list, and -1.
    AGIResType Type = rtNone;
    std::int32_t Number = -1;
    std::int32_t Volume = -1;
    std::int32_t Loc = -1;
    /// True when its directory entry is still there: it was not blanked.
    bool EntryKept = false;
};

/// Keeps an issue for AGIGame::LoadIssues and writes it to the log.
void NoteLoadIssue(LoadIssue issue);

}  // namespace zorvex
