#include "zorvex/game/Faults.h"

#include "zorvex/game/LibraryState.h"

namespace zorvex {

void RememberError(const Error& error) {
    LibraryState& library = Library();
    library.LastErrorNumber = error.Number();
    library.LastErrorSource = error.Source();
    library.LastErrorText = error.Description();
}

void RaiseWrapped(std::int32_t id, const Error& error) {
    RaiseText(ObjectErrorBase + id, error.Source(), CatalogueText(id, {error.NumberAndText()}));
}

}  // namespace zorvex
