#include "zorvex/vocab/AGIWordGroup.h"

#include <algorithm>
#include <utility>

#include "zorvex/base/Faults.h"

namespace zorvex {

const std::string& AGIWordGroup::Word(AnyInteger index) const {
    if (!std::cmp_greater_equal(index, 0) || !std::cmp_less(index, words_.size()))
        RaiseCatalogue(574, ErrorSource);
    return words_[static_cast<std::size_t>(index)];
}

void AGIWordGroup::AddWord(std::string_view text) {
    Wrapped(572, [&] {
        // A load adds in sort order, so most words belong at the end.
        const bool atEnd = words_.empty() || words_.back() < text;
        words_.emplace(atEnd ? words_.end() : std::lower_bound(words_.begin(), words_.end(), text), text);
    });
}

void AGIWordGroup::DeleteWord(std::string_view text) {
    Wrapped(573, [&] {
        const auto place = std::lower_bound(words_.begin(), words_.end(), text);
        if (place != words_.end() && *place == text) words_.erase(place);
    });
}

}  // namespace zorvex
