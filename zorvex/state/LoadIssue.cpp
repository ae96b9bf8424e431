#include "zorvex/state/LoadIssue.h"

#include "zorvex/state/GameProperties.h"
#include "zorvex/state/LibraryState.h"

namespace zorvex {

void NoteLoadIssue(LoadIssue issue) {
    WriteLogEntry(issue.Kind == LoadIssueKind::List ? 1 : 0, issue.Text);
    Library().LoadIssues.push_back(std::move(issue));
}

}  // namespace zorvex
