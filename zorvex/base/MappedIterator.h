// Iterators that show the elements of an inner list in the form in which hosts want them.
#pragma once

#include <cstddef>
#include <iterator>
#include <type_traits>
#include <utility>

namespace zorvex {

/// Walks an inner list; `Show(element)` is what stands at each place. Valid as long as the inner iterator.
template <class Inner, auto Show>
class MappedIterator {
  public:
    using reference = decltype(Show(*std::declval<const Inner&>()));
    using value_type = std::remove_cvref_t<reference>;
    using iterator_category = std::input_iterator_tag;
    using difference_type = std::ptrdiff_t;
    using pointer = void;

    MappedIterator() = default;
    explicit MappedIterator(Inner inner) : inner_(inner) {}
    reference operator*() const { return Show(*inner_); }
    MappedIterator& operator++() {
        ++inner_;
        return *this;
    }
    MappedIterator operator++(int) { return MappedIterator(inner_++); }
    bool operator==(const MappedIterator&) const = default;

  private:
    Inner inner_;
};

}  // namespace zorvex
