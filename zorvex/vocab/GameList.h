// What the word list and the inventory of a game have in common: the file that holds them and the state
// around it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex {

class GameSession;
class Internal;

/// What tells one class of lists from the other.
struct GameListFamily {
    std::string_view ErrorSource;
    std::string_view FileName;       // in the game directory, and the section of its property file
    std::string_view TextExtension;  // in lower case
    std::int32_t UnreadableError;    // for bytes in neither form
    std::int32_t ToldError;          // of a decoder, which is raised instead; 0 for none
    std::int32_t WriteError;
};

/// A list that is kept in a file of its own, in the form of the interpreter or in a text form.
///
/// The list of the open game is kept in one file of the game directory, its description in the game's
/// property file. A list that a host creates by itself is kept in a file of either form; only the text form
/// holds the description as well. A list holds something only while it is loaded: its "New" method, Load and
/// the taking over of another list load it, Unload empties it. Every member that needs the contents raises
/// 563 before anything else on a list that is not loaded.
class GameList {
  public:
    GameList(const GameList&) = delete;
    GameList& operator=(const GameList&) = delete;
    virtual ~GameList() = default;

    /// Reads the list. That of a game comes from the game's file, whose path `loadFile` then holds; a
    /// stand-alone list from the file given, in either form: the text form is tried first for a name with the
    /// extension of the text form and last for any other. Raises 511 when loaded, 599 without a name, 524 for
    /// a file that is not there, and the list's own number for a file in neither form; after an error the
    /// list is not loaded.
    void Load(std::string& loadFile);
    void Load(std::string_view loadFile = {});
    /// The number of the line, from 1, at which the last Load could not read on in a text form; else 0.
    std::int32_t LoadErrorLine() const { return loadErrorLine_; }
    /// Writes the list. That of a game goes to its file; a stand-alone list goes to the file given, or to
    /// ResFile, in the interpreter's form (file type 0) or as text (1), and ResFile becomes that file. A list
    /// that has not changed since it was written to the same file in the interpreter's form is not written
    /// again. Raises 616 and 615 without a file name, and the list's own number for any fault while the
    /// interpreter's form is written.
    virtual void Save(std::string_view saveFile = {}, std::int32_t fileType = 0);
    /// Writes the list in the interpreter's form (file type 0) or as text (1); another type writes nothing. A
    /// stand-alone list takes the name as its ResFile and, with `resetDirty`, counts as saved.
    virtual void Export(std::string_view exportFile, std::int32_t fileType, bool resetDirty = true);
    /// Empties the list, which then counts as changed. Of lists that are not loaded, one whose last Load
    /// found a file in neither form becomes an empty one (in a game with its description), so that it can be
    /// filled and saved; so it does by its "New" method, also in a game.
    void Clear();
    void Unload();

    bool Loaded() const { return loaded_; }
    /// True for the list of the open game.
    bool InGame() const { return Attached(); }
    /// The same, whatever workspace is current. A list leaves its game when that is closed or another takes
    /// its place; it stands alone from then on and keeps what it holds.
    bool Attached() const noexcept;
    /// True when something but the description has changed since the last save.
    bool IsDirty() const { return isDirty_; }
    void IsDirty(bool value) { isDirty_ = value; }
    /// The file last read or written, as an inner path. The setter raises 680 for the list of a game.
    const std::string& ResFile() const { return resFile_; }
    void ResFile(std::string_view value);
    /// At most 1024 characters of host text. In a game a new value goes to the property list at once; the
    /// setter never makes the list dirty.
    std::string Description() const;
    void Description(std::string_view value);

    // --- For the library ---
    /// Makes this the list of the open game, kept in the game directory.
    void JoinGame(const Internal& key, bool loaded);
    void LeaveGame(const Internal& key) noexcept;

  protected:
    explicit GameList(const GameListFamily& family) : family_(family) {}

    void RequireLoaded() const;
    /// Raises 91 when the game that this belongs to is not that of the present workspace.
    void RequirePresent() const;
    /// Begins a stand-alone list without contents. Raises 642 when loaded and 510 for the list of a game.
    void BeginNew();
    /// Takes the place of what the list held. The description counts with the contents.
    void BecomeLoaded(std::string_view description);
    /// What goes along when another list's contents are taken over. The list of a game stays with the game's
    /// own file, which a copy must not exchange for another.
    void TakeStateOf(const GameList& other);
    /// The path of a file in the game directory.
    static std::string GameFile(std::string_view name);

    /// Takes the contents of a file's bytes; false, with the list as it was, when they are not in that form,
    /// for which a fault counts as well.
    virtual bool TakeFile(ByteView bytes) = 0;
    virtual bool TakeText(ByteView bytes, std::int32_t& badLine) = 0;
    /// The bytes of the contents in either form. An error of the list's own number passes as it is.
    virtual ByteArray FileBytes() const = 0;
    virtual ByteArray TextBytes() const = 0;
    /// Empties the contents.
    virtual void Reset() = 0;

    std::string description_;

  private:
    void LoadFromGame();
    void ReadDescription();
    void LoadFromFile(std::string_view loadFile);
    bool TryTake(ByteView bytes, bool asText);
    void Write(const std::string& file, std::int32_t fileType) const;

    const GameListFamily& family_;
    std::string resFile_;
    std::shared_ptr<const GameSession> session_;  // of the game that this belongs to, even when it has ended
    bool isDirty_ = false;
    bool loaded_ = false;
    bool unreadable_ = false;  // the last Load found a file in neither form
    std::int32_t loadErrorLine_ = 0;
};

}  // namespace zorvex
