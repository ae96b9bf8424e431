// What the four resource classes share: the buffer, the name, the description, and the place in a game.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "zorvex/base/Types.h"
#include "zorvex/storage/AGIResource.h"

namespace zorvex {

/// The base of AGILogic, AGIPicture, AGISound and AGIView. It owns the buffer and offers the buffer's
/// interface as its own, keeps ID and description, and binds the object to an entry of the open game.
class GameResource {
  public:
    virtual ~GameResource() = default;
    GameResource(const GameResource&) = delete;
    GameResource& operator=(const GameResource&) = delete;

    /// The buffer itself; it lives as long as this object.
    AGIResource& Resource() { return resource_; }
    const AGIResource& Resource() const { return resource_; }

    // --- The buffer's interface, see AGIResource ---
    bool InGame() const { return resource_.InGame(); }
    bool Attached() const noexcept { return resource_.Attached(); }
    std::uint8_t Number() const { return resource_.Number(); }
    AGIResType ResType() const { return resource_.ResType(); }
    bool Loaded() const { return resource_.Loaded(); }
    std::int32_t Volume() const { return resource_.Volume(); }
    std::int32_t Loc() const { return resource_.Loc(); }
    std::string ResFile() const { return resource_.ResFile(); }
    std::int32_t SizeInVol() const { return resource_.SizeInVol(); }
    std::int32_t Size() { return resource_.Size(); }
    void InsertData(ByteView newData, std::int32_t insertPos = -1) {
        resource_.InsertData(newData, insertPos);
    }
    void InsertData(double value, std::int32_t insertPos = -1) { resource_.InsertData(value, insertPos); }
    void RemoveData(std::int32_t removePos, std::int32_t removeCount = 1) {
        resource_.RemoveData(removePos, removeCount);
    }
    void SetData(ByteView newData) { resource_.SetData(newData); }
    /// The bytes in place, without a copy; valid until the next change of them. Raises 563.
    ByteView View() const { return resource_.View(); }
    ByteArray AllData() const { return resource_.AllData(); }
    std::uint8_t Data(std::int32_t pos) const { return resource_.Data(pos); }
    void Data(std::int32_t pos, std::uint8_t value) { resource_.Data(pos, value); }
    std::uint8_t ReadByte(std::int32_t pos = MaxResourceSize + 1) { return resource_.ReadByte(pos); }
    std::int32_t ReadWord(std::int32_t pos = -1, bool msls = false) { return resource_.ReadWord(pos, msls); }
    std::int32_t GetPos() const { return resource_.GetPos(); }
    void SetPos(std::int32_t pos) { resource_.SetPos(pos); }
    bool EORes() const { return resource_.EORes(); }
    void NewResource(bool reset = false) { resource_.NewResource(reset); }

    // --- Name and state ---
    /// The name of the resource, at most 64 characters, unique among its kind in a game. Host text. The
    /// setter cuts the value, and in a game writes it to the property list at once. Raises 667 for an empty
    /// and 623 for a taken name.
    const std::string& ID() const { return id_; }
    virtual void ID(std::string_view value);
    /// At most 1024 characters of host text; in a game a new value goes to the property list at once.
    const std::string& Description() const { return description_; }
    virtual void Description(std::string_view value);
    /// True when something has changed since the last save.
    virtual bool IsDirty() const = 0;

    /// Reads the bytes, and for most kinds what they mean. Does nothing to one that is loaded but what its
    /// class tells.
    virtual void Load() = 0;
    virtual void Unload() = 0;
    /// Makes this the smallest resource of its kind. Raises 563 when not loaded.
    virtual void Clear() = 0;
    /// In a game: settings to the property list, bytes to a volume. A stand-alone object goes to the file.
    virtual void Save(std::string_view saveFile = {}) = 0;

    /// The longest ID, in characters.
    static constexpr std::size_t MaxIDLength = 64;

    // --- For the library ---
    /// Binds the object to a directory entry of the open game. With an ID in the property list the list knows
    /// the resource and nothing is read from the volume; else the bytes are loaded once to learn their size,
    /// whose errors pass, and ID and size are written to the list.
    void InitInGame(const Internal& key, std::uint8_t number, std::int32_t volume, std::int32_t loc);
    /// Takes the object out of its game: it stands alone from now on, and what it holds stays.
    void Detach(const Internal& key) noexcept { resource_.Detach(key); }
    /// Takes the contents of another object of the same class.
    virtual void CopyFrom(GameResource& source) = 0;
    /// Writes the settings that go along when the resource gets another number.
    virtual void WriteNumberedProperties() const = 0;
    /// After a default ID has followed the resource's new number.
    virtual void DefaultIDFollowed(std::string_view /*oldID*/) {}
    /// Stores the name without checks.
    virtual void SetIDField(std::string_view value) { StoreID(value); }
    /// Notes the size of the bytes in the property list.
    void WriteSize() { WriteKey("Size", std::to_string(resource_.Size())); }
    bool DataDirty() const { return dataDirty_; }
    void DataDirty(bool value) { dataDirty_ = value; }
    bool WritePropState() const { return writePropState_; }
    void WritePropState(bool value) { writePropState_ = value; }
    /// "Logic", "Picture", "Sound" or "View": the head of default IDs and property sections.
    std::string_view TypeWord() const;
    /// The section of the property list: type word and number.
    std::string Section() const;
    /// "Logics", "Pictures", "Sounds" or "Views": the group of that section.
    std::string Group() const;

  protected:
    GameResource(AGIResType type, std::string_view errorSource);

    std::string_view ErrorSource() const { return errorSource_; }
    void RequireLoaded() const;
    /// Sets the ID as the base does, and turns a fault that it does not name into 686.
    void SetIDOrRaise686(std::string_view value);
    /// The name of a file becomes the ID: outside a game without checks; in a game a name that another
    /// resource has, or that the setter refuses, leaves the old one.
    void TakeFileName(std::string_view path);
    /// Reads a file as the bytes. Raises 604 without a name and 524 for a file that is not there, which both
    /// leave the object as it was, and 605 for a file that gives no bytes, which unloads it.
    void ImportBytes(std::string_view path);
    /// After the contents of a file have become those of this object: the file's name becomes the ID. In a
    /// game they wait to be saved; a stand-alone object is what the file holds.
    void Imported(std::string_view path);
    /// True when a save to a file, or into the game, has something to write: what has changed, or for a
    /// stand-alone object a file other than the one that it came from.
    bool HasToWrite(std::string_view saveFile) const;
    /// Writes a key of this resource's section, in its group or in none. Nothing happens outside a game.
    void WriteKey(std::string_view key, std::string_view value, bool inGroup = true) const;

    /// Reads the settings that a class keeps of its own, when the property list knows the resource.
    virtual void ReadOwnProperties() {}
    /// Writes the settings with which a resource that the list does not know begins.
    virtual void WriteFirstProperties() {}
    /// True when names that differ only in case count as the same.
    virtual bool IDsIgnoreCase() const { return false; }
    /// After a new name has been stored.
    virtual void IDChanged() {}
    /// True when this description is to be taken as another than the present one.
    virtual bool IsOtherDescription(std::string_view value) const { return value != description_; }

    std::string description_;

  private:
    void StoreID(std::string_view value);

    AGIResource resource_;
    std::string_view errorSource_;
    std::string id_;
    bool dataDirty_ = false;
    bool writePropState_ = false;
};

}  // namespace zorvex
