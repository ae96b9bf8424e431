// One group of the vocabulary: the words that mean the same to a game.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/Types.h"

namespace zorvex {

/// A numbered group of words. Groups exist only in an AGIWordList, which adds and removes their words; a
/// group may be empty. A host that keeps a group after the list has dropped it sees its last state.
class AGIWordGroup {
  public:
    static constexpr std::string_view ErrorSource = "ZORVex.agiWordGroup";

    AGIWordGroup(const AGIWordGroup&) = delete;
    AGIWordGroup& operator=(const AGIWordGroup&) = delete;

    /// The first word in sort order, by which source text calls the group; empty when the group is empty.
    std::string GroupName() const { return words_.empty() ? std::string() : words_.front(); }
    /// 0 to 65535.
    std::int32_t GroupNum() const { return groupNum_; }
    /// The word at a position from 0, in sort order. Raises 574, "Invalid word index".
    const std::string& Word(AnyInteger index) const;
    std::int32_t WordCount() const { return static_cast<std::int32_t>(words_.size()); }
    std::size_t size() const { return words_.size(); }
    bool empty() const { return words_.empty(); }
    /// Walks the words in sort order, until the group changes.
    auto begin() const { return words_.begin(); }
    auto end() const { return words_.end(); }

    // --- For the library ---
    explicit AGIWordGroup(std::int32_t groupNum) : groupNum_(groupNum) {}
    void GroupNum(std::int32_t value) { groupNum_ = value; }
    /// The words, ascending by character code.
    const std::vector<std::string>& Words() const { return words_; }
    /// Puts a word that is not there yet in its place. Raises 572 for any fault.
    void AddWord(std::string_view text);
    /// Takes a word out, if it is there. Raises 573 for any fault.
    void DeleteWord(std::string_view text);

  private:
    std::int32_t groupNum_;
    std::vector<std::string> words_;
};

}  // namespace zorvex
