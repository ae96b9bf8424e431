// Hash maps whose keys are names of the source language: case does not count, and a look-up copies nothing.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

#include "zorvex/base/Text.h"

namespace zorvex {

struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const {
        std::size_t hash = 14695981039346656037U;
        for (const char c : name)
            hash = (hash ^ static_cast<unsigned char>(LowerCase(c))) * 1099511628211U;
        return hash;
    }
};

struct NameEqual {
    using is_transparent = void;
    bool operator()(std::string_view left, std::string_view right) const { return EqualNoCase(left, right); }
};

template <class Value>
using NameMap = std::unordered_map<std::string, Value, NameHash, NameEqual>;

/// The value under a name, or a null pointer.
template <class Value>
const Value* Find(const NameMap<Value>& map, std::string_view name) {
    const auto found = map.find(name);
    return found == map.end() ? nullptr : &found->second;
}

}  // namespace zorvex
