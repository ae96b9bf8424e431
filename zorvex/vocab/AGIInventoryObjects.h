// The inventory of a game: the items that a player may carry.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zorvex/base/Types.h"
#include "zorvex/vocab/AGIInventoryItem.h"
#include "zorvex/vocab/GameList.h"
#include "zorvex/vocab/InventoryData.h"

namespace zorvex {

/// A list of 1 to 256 items. The position of an item is its number in logics; so removing one that is not the
/// last only blanks it. The inventory of the open game is kept in the file OBJECT, the text form in files
/// ".ago". Load raises 692 for a file in neither form. An empty list has one item "?" in room 0.
///
/// The list keeps Unique of every item up to date; a change of a name costs one walk over the items.
class AGIInventoryObjects : public GameList {
  public:
    static constexpr std::string_view ErrorSource = InventoryErrorSource;

    AGIInventoryObjects();
    ~AGIInventoryObjects() override;

    // --- The list as a whole, besides what all lists have ---
    /// Begins a stand-alone list with one item "?" and the settings of a new list. Raises 642 when loaded and
    /// 510 for the list of a game.
    void NewObjects();
    /// Takes over the items, the settings and the description of another list, and outside a game its file
    /// and its unsaved state. The list of a game then waits to be saved; its description goes to the property
    /// list. Raises 563 when the other is not loaded.
    void SetObjects(const AGIInventoryObjects& newObjects);
    /// As for all lists. Raises 615 without a file name, whatever the type, and 674 for any fault while
    /// OBJECT is written.
    void Save(std::string_view saveFile = {}, std::int32_t fileType = 0) override;
    /// As for all lists, but a stand-alone list written as text counts as saved in any case.
    void Export(std::string_view exportFile, std::int32_t fileType, bool resetDirty = true) override;

    // --- Settings ---
    /// How many screen objects a game may use at once, besides ego: 0 to 255. Raises 6.
    std::uint8_t MaxScreenObjects() const;
    void MaxScreenObjects(AnyInteger value);
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
    std::shared_ptr<AGIInventoryItem> Item(AnyInteger index) const;
    /// Adds an item at the end. Raises 569 for the 257th, 6 for a room that is none, and 571 for
    /// any other fault.
    std::shared_ptr<AGIInventoryItem> Add(std::string_view newItem, AnyInteger room);
    /// Removes the last item, if there are at least two; any other stays in its place as "?" in room 0.
    /// Raises 9.
    void Remove(AnyInteger index);

    /// Walks the items in order of their numbers.
    using Iterator = std::vector<std::shared_ptr<AGIInventoryItem>>::const_iterator;
    Iterator begin() const;
    Iterator end() const;
    /// The number of items, as Count.
    std::size_t size() const { return static_cast<std::size_t>(Count()); }
    bool empty() const { return size() == 0; }

    // --- For the library ---
    /// The items, loaded or not.
    const std::vector<std::shared_ptr<AGIInventoryItem>>& Items() const { return items_; }

  private:
    std::shared_ptr<AGIInventoryItem> Append(std::string_view name, std::uint8_t room);
    void Take(const InventoryData& data);
    bool TakeDecoded(const std::optional<InventoryData>& data);
    InventoryData Contents() const;

    bool TakeFile(ByteView bytes) override;
    bool TakeText(ByteView bytes, std::int32_t& badLine) override;
    ByteArray FileBytes() const override;
    ByteArray TextBytes() const override;
    void Reset() override;

    std::vector<std::shared_ptr<AGIInventoryItem>> items_;
    std::uint8_t maxScreenObjects_ = 16;
    bool encrypted_ = false;
    bool amigaOBJ_ = false;
};

}  // namespace zorvex
