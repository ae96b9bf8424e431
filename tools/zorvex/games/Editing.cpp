#include "tools/zorvex/games/Editing.h"

#include "tools/zorvex/console/Command.h"

namespace zorvex::tool {

Selection ParseOneResource(const std::string& text) {
    const Selection selection = ParseSelection(text);
    if (!selection.Number) throw UsageError("'" + text + "' names no single resource; give TYPE:NUMBER");
    return selection;
}

std::shared_ptr<GameResource> RequireResource(const Selection& selection) {
    auto member = CollectionOf(selection.Type)->Find(*selection.Number);
    if (!member) {
        const std::string what = TypeName(selection.Type) + " " + std::to_string(*selection.Number);
        throw Error(ObjectErrorBase + 617, "zorvex", CatalogueText(617) + " (the game has no " + what + ")");
    }
    return member;
}

}  // namespace zorvex::tool
