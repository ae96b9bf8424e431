// The inventory of a game: the items that a player may carry.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/game/Types.h"
#include "zorvex/vocab/AGIInventoryItem.h"
#include "zorvex/vocab/InventoryData.h"

namespace zorvex {

/// A list of 1 to 256 items. The position of an item is its number in logics; so removing one that is not the
/// last only blanks it.
///
/// The inventory of the open game is kept in the file OBJECT of the game directory, its description in the
/// game's property file. One that a host creates by itself is kept in a file of OBJECT's form or in a text
/// file (".ago"), which also holds the description. The contents count only while the list is loaded:
/// NewObjects, Load and SetObjects load it, Unload empties it. Every member that needs the contents raises
/// 563 before anything else on a list that is not loaded.
///
/// The list keeps Unique of every item up to date; a change of a name costs one walk over the items.
class AGIInventoryObjects {
  public:
    static constexpr std::string_view ErrorSource = "ZORVEX.agiObjectFile";

    AGIInventoryObjects();
    ~AGIInventoryObjects();
    AGIInventoryObjects(const AGIInventoryObjects&) = delete;
    AGIInventoryObjects& operator=(const AGIInventoryObjects&) = delete;

    // --- The list as a whole ---
    /// Begins a stand-alone list with one item "?". Raises 642 when loaded and 510 for the list of a game.
    void NewObjects();
    /// Reads the list. That of a game comes from OBJECT in the game directory, whose path `loadFile` then
    /// holds; a stand-alone list from the file given, in either form: the text form is tried first for a name
    /// that ends in ".ago" and last for any other. Raises 511 when loaded, 599 without a name, 524 for a file
    /// that is not there, 692 for one in neither form; after an error the list is empty and not loaded.
    void Load(std::string& loadFile);
    void Load(std::string_view loadFile = {});
    /// Writes the list. That of a game goes to its file; a stand-alone list goes to the file given, or to
    /// ResFile, as OBJECT (file type 0) or as text (1), and ResFile becomes that file. A list that has not
    /// changed since it was written to the same file as OBJECT is not written again. Raises 616 and 615
    /// without a file name and 674 for any fault while OBJECT is written.
    void Save(std::string_view saveFile = {}, std::int32_t fileType = 0);
    /// Writes the list as OBJECT (file type 0) or as text (1); another type writes nothing. A stand-alone
    /// list takes the name as its ResFile and, with `resetDirty`, counts as saved. Raises as Save does.
    void Export(std::string_view exportFile, std::int32_t fileType, bool resetDirty = true);
    /// Takes over the items, the settings, the description, the file and the unsaved state of another list;
    /// whether this one belongs to a game stays. Raises 563 when the other is not loaded.
    void SetObjects(const AGIInventoryObjects& newObjects);
    /// Leaves one item "?" in room 0 and the settings of a new list.
    void Clear();
    void Unload();

    bool Loaded() const { return loaded_; }
    /// True for the inventory of the open game.
    bool InGame() const { return inGame_; }
    /// True when something has changed since the last save.
    bool IsDirty() const { return isDirty_; }
    void IsDirty(bool value) { isDirty_ = value; }
    /// The file last read or written, as an inner path. The setter raises 680 for the list of a game.
    std::string ResFile() const { return resFile_; }
    void ResFile(std::string_view value);
    /// At most 1024 characters of host text. In a game a new value goes to the property list at once; the
    /// setter never makes the list dirty.
    std::string Description() const;
    void Description(std::string_view value);

    // --- Settings ---
    /// How many screen objects a game may use at once, besides ego.
    std::uint8_t MaxScreenObjects() const;
    void MaxScreenObjects(std::uint8_t value);
    /// Whether the file is scrambled.
    bool Encrypted() const;
    void Encrypted(bool value);
    /// Whether the file is in the Amiga's form, with records of 4 bytes. It can only be turned off: the list
    /// becomes dirty, and that of a game is saved in the other form after its file has been copied to
    /// OBJECT.amg. Turning it on does nothing.
    bool AmigaOBJ() const { return amigaOBJ_; }
    void AmigaOBJ(bool value);

    // --- Items ---
    std::int16_t Count() const;
    /// The item of a number from 0. Raises 9.
    std::shared_ptr<AGIInventoryItem> Item(std::int32_t index) const;
    /// Adds an item at the end. Raises 569 for the 257th and 571 for any other fault.
    std::shared_ptr<AGIInventoryItem> Add(std::string_view newItem, std::uint8_t room);
    /// Removes the last item, if there are at least two; any other stays in its place as "?" in room 0.
    /// Raises 9.
    void Remove(std::int32_t index);

    /// Walks the items in order of their numbers.
    using Iterator = std::vector<std::shared_ptr<AGIInventoryItem>>::const_iterator;
    Iterator begin() const;
    Iterator end() const;

    // --- For the library ---
    /// Makes this the inventory of the open game, kept in OBJECT of the game directory.
    void JoinGame(bool loaded);
    void LeaveGame() { inGame_ = false; }
    /// The items, loaded or not.
    const std::vector<std::shared_ptr<AGIInventoryItem>>& Items() const { return items_; }

  private:
    void RequireLoaded() const;
    void Reset();
    std::shared_ptr<AGIInventoryItem> Append(std::string_view name, std::uint8_t room);
    void Take(const InventoryData& data);
    InventoryData Contents() const;
    void LoadFromGame();
    void LoadFromFile(std::string_view loadFile);
    void WriteObjectFile(const std::string& file) const;
    void WriteObjectText(const std::string& file) const;

    std::vector<std::shared_ptr<AGIInventoryItem>> items_;
    std::string resFile_;
    std::string description_;
    std::uint8_t maxScreenObjects_ = 16;
    bool encrypted_ = false;
    bool amigaOBJ_ = false;
    bool inGame_ = false;
    bool isDirty_ = false;
    bool loaded_ = false;
};

}  // namespace zorvex
