// The vocabulary of a game: the words that a player may type, gathered into numbered groups of equal meaning.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/MappedIterator.h"
#include "zorvex/base/Types.h"
#include "zorvex/vocab/AGIWordGroup.h"
#include "zorvex/vocab/GameList.h"
#include "zorvex/vocab/WordTable.h"

namespace zorvex {

/// What the iterator of a word list shows.
inline const AGIWord& ShownWord(const AGIWord* word) {
    return *word;
}

/// A list of words in sort order and of word groups in order of their numbers, each word in exactly one
/// group. The list of the open game is kept in the file WORDS.TOK, the text form in files ".agw". Load gives
/// a list without words those of a new one; it raises 529 for a file in neither form and 579 for a text form
/// with a word that comes twice.
///
/// Words are game text in lower case; finding one ignores case. Group numbers are 0 to 65535. A group stays
/// when its last word goes. Finding a word or a group, and adding one, take no longer than a search by halves
/// and the moving of pointers.
class AGIWordList : public GameList {
  public:
    static constexpr std::string_view ErrorSource = VocabularyErrorSource;

    AGIWordList();

    // --- The list as a whole, besides what all lists have ---
    /// Begins a stand-alone list with the words "a", "anyword" and "rol" in the groups 0, 1 and 9999. Raises
    /// 642 when loaded and 510 for the list of a game.
    void NewWords();
    /// Takes over the contents and the description of another list, and outside a game its file and its
    /// unsaved state. The list of a game then waits to be saved; its description goes to the property list.
    /// Raises 563 when the other is not loaded.
    void SetWords(const AGIWordList& newWords);
    /// As for all lists; saving that of a game also sets the game's LastEdit. Raises 672 for a list without
    /// groups or words and for any fault while WORDS.TOK is written.
    void Save(std::string_view saveFile = {}, std::int32_t fileType = 0) override;
    /// As for all lists. Raises 671 for any fault.
    void Export(std::string_view exportFile, std::int32_t fileType, bool resetDirty = true) override;

    // --- Words ---
    std::int32_t WordCount() const;
    /// The word at a position from 0. The reference holds until the word is removed. Raises 9.
    const AGIWord& Item(AnyInteger index) const;
    /// The word of a text. Raises 586, "Word not found".
    const AGIWord& Item(std::string_view text) const;
    bool WordExists(std::string_view text) const;
    /// Adds a word to a group, which is made if it is not there. Raises 579 for a word that is there, 581 for
    /// a group number out of range, 673 for any other fault.
    void AddWord(std::string_view wordText, AnyInteger group);
    /// Removes a word; its group stays. Raises 584 for a word that is not there.
    void RemoveWord(std::string_view text);

    /// Walks the words in sort order, until the list changes.
    using Iterator = MappedIterator<std::vector<const AGIWord*>::const_iterator, ShownWord>;
    Iterator begin() const;
    Iterator end() const;
    /// The number of words, as WordCount.
    std::size_t size() const { return static_cast<std::size_t>(WordCount()); }
    bool empty() const { return size() == 0; }

    // --- Groups ---
    /// All groups in order of their numbers, in place, until the list of groups changes.
    const std::vector<std::shared_ptr<AGIWordGroup>>& Groups() const;
    std::int32_t GroupCount() const;
    /// The group at a position from 0. Raises 588.
    std::shared_ptr<AGIWordGroup> Group(AnyInteger index) const;
    /// The group of a number. Raises 575.
    std::shared_ptr<AGIWordGroup> GroupN(AnyInteger groupNumber) const;
    bool GroupExists(AnyInteger groupNumber) const;
    /// Adds an empty group. Raises 575 for a number out of range, 576 for one in use, 578 for any other
    /// fault.
    void AddGroup(AnyInteger groupNumber);
    /// Removes a group with all its words. Raises 575 and 583, and 695 for any other fault.
    void RemoveGroup(AnyInteger groupNumber);
    /// Gives a group, and all its words, another number. Raises 575, 696 when there is no such group, 697
    /// when the new number is in use, 577 for any other fault.
    void RenumberGroup(AnyInteger oldGroupNumber, AnyInteger newGroupNumber);

  private:
    /// A group number that is one; else raises the error of that id.
    static std::int32_t GroupNumber(AnyInteger number, std::int32_t id = 575);
    void Take(const VocabularyData& data);
    bool TakeDecoded(const std::optional<VocabularyData>& data);

    bool TakeFile(ByteView bytes) override;
    bool TakeText(ByteView bytes, std::int32_t& badLine) override;
    ByteArray FileBytes() const override;
    ByteArray TextBytes() const override;
    void Reset() override;

    WordTable table_;
};

}  // namespace zorvex
