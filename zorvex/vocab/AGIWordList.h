// The vocabulary of a game: the words that a player may type, gathered into numbered groups of equal meaning.
#pragma once

#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/game/Types.h"
#include "zorvex/vocab/AGIWordGroup.h"
#include "zorvex/vocab/WordTable.h"

namespace zorvex {

/// A list of words in sort order and of word groups in order of their numbers, each word in exactly one
/// group.
///
/// The list of the open game is kept in the file WORDS.TOK of the game directory, its description in the
/// game's property file. A list that a host creates by itself is kept in a file of WORDS.TOK's form or in a
/// text file (".agw"), which also holds the description. A list holds something only while it is loaded:
/// NewWords, Load and SetWords load it, Unload empties it. Every member that needs the contents raises 563
/// before anything else on a list that is not loaded.
///
/// Words are game text in lower case; finding one ignores case. Group numbers are 0 to 65535. A group stays
/// when its last word goes. Finding a word or a group, and adding one, take no longer than a search by halves
/// and the moving of pointers.
class AGIWordList {
  public:
    static constexpr std::string_view ErrorSource = "ZORVEX.AGIWordList";

    AGIWordList() = default;
    AGIWordList(const AGIWordList&) = delete;
    AGIWordList& operator=(const AGIWordList&) = delete;

    // --- The list as a whole ---
    /// Begins a stand-alone list with the words "a", "anyword" and "rol" in the groups 0, 1 and 9999. Raises
    /// 642 when loaded and 510 for the list of a game.
    void NewWords();
    /// Reads the list. That of a game comes from WORDS.TOK in the game directory, whose path `loadFile` then
    /// holds; a stand-alone list from the file given, in either form: the text form is tried first for a name
    /// that ends in ".agw" and last for any other. A list without words gets those of a new one. Raises 511
    /// when loaded, 599 without a name, 524 for a file that is not there, 529 for one in neither form, 579
    /// for a text form with a word that comes twice; after an error the list is not loaded.
    void Load(std::string& loadFile);
    void Load(std::string_view loadFile = {});
    /// Writes the list. That of a game goes to its file and sets the game's LastEdit; a stand-alone list goes
    /// to the file given, or to ResFile, as WORDS.TOK (file type 0) or as text (1), and ResFile becomes that
    /// file. A list that has not changed since it was written to the same file as WORDS.TOK is not written
    /// again. Raises 616 and 615 without a file name, 672 for a list without groups or words and for any
    /// fault while WORDS.TOK is written.
    void Save(std::string_view saveFile = {}, std::int32_t fileType = 0);
    /// Writes the list as WORDS.TOK (file type 0) or as text (1); another type writes nothing. A stand-alone
    /// list takes the name as its ResFile and, with `resetDirty`, counts as saved. Raises 671 for any fault.
    void Export(std::string_view exportFile, std::int32_t fileType, bool resetDirty = true);
    /// Takes over the contents, the description, the file and the unsaved state of another list; whether this
    /// one belongs to a game stays. Raises 563 when the other is not loaded.
    void SetWords(const AGIWordList& newWords);
    /// Removes all words and groups.
    void Clear();
    void Unload();

    bool Loaded() const { return loaded_; }
    /// True for the list of the open game.
    bool InGame() const { return inGame_; }
    /// True when words or groups have changed since the last save.
    bool IsDirty() const { return isDirty_; }
    void IsDirty(bool value) { isDirty_ = value; }
    /// The file last read or written, as an inner path. The setter raises 680 for the list of a game.
    std::string ResFile() const { return resFile_; }
    void ResFile(std::string_view value);
    /// At most 1024 characters of host text. In a game a new value goes to the property list at once; the
    /// setter never makes the list dirty.
    std::string Description() const;
    void Description(std::string_view value);

    // --- Words ---
    std::int32_t WordCount() const;
    /// The word at a position from 0. The reference holds until the word is removed. Raises 9.
    const AGIWord& Item(std::int32_t index) const;
    /// The word of a text. Raises 586, "Word not found".
    const AGIWord& Item(std::string_view text) const;
    bool WordExists(std::string_view text) const;
    /// Adds a word to a group, which is made if it is not there. Raises 579 for a word that is there, 581 for
    /// a group number out of range, 673 for any other fault.
    void AddWord(std::string_view wordText, std::int32_t group);
    /// Removes a word; its group stays. Raises 584 for a word that is not there.
    void RemoveWord(std::string_view text);

    /// Walks the words in sort order, until the list changes.
    class Iterator {
      public:
        using Inner = std::vector<const AGIWord*>::const_iterator;
        using iterator_category = std::forward_iterator_tag;
        using value_type = AGIWord;
        using difference_type = std::ptrdiff_t;
        using pointer = const AGIWord*;
        using reference = const AGIWord&;

        Iterator() = default;
        explicit Iterator(Inner inner) : inner_(inner) {}
        reference operator*() const { return **inner_; }
        pointer operator->() const { return *inner_; }
        Iterator& operator++() {
            ++inner_;
            return *this;
        }
        Iterator operator++(int) { return Iterator(inner_++); }
        bool operator==(const Iterator&) const = default;

      private:
        Inner inner_;
    };
    Iterator begin() const;
    Iterator end() const;

    // --- Groups ---
    std::int32_t GroupCount() const;
    /// The group at a position from 0. Raises 588.
    std::shared_ptr<AGIWordGroup> Group(std::int32_t index) const;
    /// The group of a number. Raises 575.
    std::shared_ptr<AGIWordGroup> GroupN(std::int32_t groupNumber) const;
    bool GroupExists(std::int32_t groupNumber) const;
    /// Adds an empty group. Raises 575 for a number out of range, 576 for one in use, 578 for any other
    /// fault.
    void AddGroup(std::int32_t groupNumber);
    /// Removes a group with all its words. Raises 575 and 583, and 695 for any other fault.
    void RemoveGroup(std::int32_t groupNumber);
    /// Gives a group, and all its words, another number. Raises 575, 696 when there is no such group, 697
    /// when the new number is in use, 577 for any other fault.
    void RenumberGroup(std::int32_t oldGroupNumber, std::int32_t newGroupNumber);

    // --- For the library ---
    /// Makes this the list of the open game, kept in WORDS.TOK of the game directory.
    void JoinGame(bool loaded);
    void LeaveGame() { inGame_ = false; }

  private:
    void RequireLoaded() const;
    static void CheckGroupNumber(std::int32_t groupNumber);
    void Take(const VocabularyData& data);
    VocabularyData Contents() const;
    void LoadFromGame();
    void LoadFromFile(std::string_view loadFile);
    void WriteTokFile(const std::string& file) const;
    void WriteTextFile(const std::string& file) const;

    WordTable table_;
    std::string resFile_;
    std::string description_;
    bool inGame_ = false;
    bool isDirty_ = false;
    bool loaded_ = false;
};

}  // namespace zorvex
