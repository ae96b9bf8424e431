// Arithmetic and indexing with stated bounds.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>
#include <vector>

#include "zorvex/base/Error.h"

namespace zorvex {

/// The value in the narrower type; raises run-time error 6, "Overflow", when it does not fit.
template <class To, class From>
constexpr To Narrow(From value, std::string_view source = {}) {
    static_assert(std::is_integral_v<To> && std::is_integral_v<From>);
    if (!std::in_range<To>(value)) RaiseRuntime(reOverflow, source);
    return static_cast<To>(value);
}

/// The element at an index; raises run-time error 9, "Subscript out of range", outside the container.
template <class Container, class Index>
constexpr decltype(auto) At(Container&& container, Index index, std::string_view source = {}) {
    static_assert(std::is_integral_v<Index>);
    if (std::cmp_less(index, 0) || std::cmp_greater_equal(index, std::size(container))) {
        RaiseRuntime(reSubscript, source);
    }
    return std::forward<Container>(container)[static_cast<std::size_t>(index)];
}

/// Takes an element to another place; those between move by one. Both places must be there.
template <class Element>
void MoveElement(std::vector<Element>& list, std::int64_t from, std::int64_t to) {
    const auto first = list.begin() + from;
    const auto last = list.begin() + to;
    if (from < to) {
        std::rotate(first, first + 1, last + 1);
    } else {
        std::rotate(last, first, first + 1);
    }
}

/// Where to insert: a place in a list of that length, or its end for a place that it does not have.
constexpr std::int64_t PlaceOrEnd(std::int64_t place, std::int64_t count) {
    return place < 0 || place > count ? count : place;
}

}  // namespace zorvex
