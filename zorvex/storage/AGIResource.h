// The byte buffer behind every resource of a game.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "zorvex/base/Event.h"
#include "zorvex/base/Types.h"
#include "zorvex/storage/ResourceLimits.h"

namespace zorvex {

class GameSession;
class Internal;

/// The bytes of one resource, the place where they live, and a position marker for reading and writing in
/// sequence. The buffer knows nothing of what the bytes mean; it tells its owner of each change through the
/// Change event.
///
/// Every member that reads or writes bytes or the marker raises 563 on a buffer that is not loaded, before
/// anything else. Positions are 0-based. Errors carry the source "ZORVEX.agiResource".
///
/// A buffer that belongs to the open game is attached to it until the game is closed, the resource is
/// removed, or the game's AGIGame or workspace goes; then it is a stand-alone buffer that keeps its bytes.
/// While it is attached, what reaches the game (Load, Save, Size, SizeInVol) raises 91 in another workspace.
class AGIResource {
  public:
    static constexpr std::string_view ErrorSource = ResourceErrorSource;

    /// Raised after each change of content by InsertData, RemoveData, SetData, Data, WriteByte, WriteWord,
    /// SetAllData and Import; not by Load, Unload, Clear and Save.
    zorvex::Event<> Change;

    /// True for a resource that belongs to the open game.
    bool InGame() const { return Attached(); }
    /// The same, whatever workspace is current.
    bool Attached() const noexcept;
    std::uint8_t Number() const { return number_; }
    AGIResType ResType() const { return resType_; }
    bool Loaded() const { return loaded_; }
    /// Volume number and offset of the header; -1 outside a game.
    std::int32_t Volume() const { return Attached() ? volume_ : -1; }
    std::int32_t Loc() const { return Attached() ? loc_ : -1; }
    /// The file of a stand-alone resource as an inner path; "" in a game.
    std::string ResFile() const { return Attached() ? std::string() : resFile_; }
    /// The number of data bytes that the resource takes in its volume, read from the volume once; -1 outside
    /// a game. Raises 625 when the volume holds no header at its place.
    std::int32_t SizeInVol() const;
    /// The number of bytes: while loaded, that of the bytes that are there; else what was known last. Needs
    /// no load when it is known; else loads and unloads once, whose errors pass.
    std::int32_t Size();

    /// Inserts bytes before a position, or appends them at -1. Raises 620. The marker stays.
    void InsertData(ByteView newData, std::int32_t insertPos = -1);
    /// As above for one value; raises 13 unless it is a whole number from 0 to 255.
    void InsertData(double value, std::int32_t insertPos = -1);
    /// Removes bytes; a count below 1 counts as 1. Raises 620; 9 when the count exceeds what is there.
    void RemoveData(std::int32_t removePos, std::int32_t removeCount = 1);
    /// Replaces all bytes; the marker goes to the start.
    void SetData(ByteView newData);
    /// A copy of the bytes; for an empty buffer, as after Clear, one zero byte.
    ByteArray AllData() const;
    /// The bytes in place, valid until the next change. Size() of them.
    ByteView View() const;
    /// One byte; raises 514 below 0 and 515 at or past the end. The marker stays.
    std::uint8_t Data(std::int32_t pos) const;
    void Data(std::int32_t pos, std::uint8_t value);

    /// The byte at a position, or at the marker (the default), which moves behind it. Raises 513 and 514.
    std::uint8_t ReadByte(std::int32_t pos = MaxResourceSize + 1);
    /// The 16-bit value at a position, or at the marker (-1), low byte first unless `msls`. Raises 513, 514;
    /// 9 when only one byte is left.
    std::int32_t ReadWord(std::int32_t pos = -1, bool msls = false);
    std::int32_t GetPos() const;
    /// Moves the marker, at most to the end. Raises 513 and 514.
    void SetPos(std::int32_t pos);
    /// True when the marker stands at the end.
    bool EORes() const;

    /// Makes a stand-alone resource loaded and placeless. Loaded bytes stay, unless `reset` drops them; where
    /// none are loaded there is one zero byte. Raises 510 in a game.
    void NewResource(bool reset = false);
    /// Writes the bytes to a file, loading them for the time of the call if need be. The path may use either
    /// separator. Raises 599, 601, 582.
    void Export(std::string_view exportFile);

    /// Reads the bytes from the volume or the file and expands them. Raises 511, 626, 606, and 502, 505, 506,
    /// 507.
    void Load();
    void Unload();
    /// Leaves a loaded buffer without bytes.
    void Clear();
    /// In a game: writes the buffer into a volume and its directory entry; false when the entry could not be
    /// written, so that the game still has the former bytes. Else exports it.
    bool Save(std::string_view saveFile = {});
    /// Reads a file as the whole content. Raises 604, 524, 605.
    void Import(std::string_view importFile);
    /// As SetData, and needs no load.
    void SetAllData(ByteView bytes);
    /// Writes one byte at a position, at most at the end, or appends it at -1. Raises 514, 516, 517.
    void WriteByte(std::uint8_t value, std::int32_t pos = -1);
    /// Writes a 16-bit value, low byte first unless `msls`. Raises 513, 514, 516, 557.
    void WriteWord(std::int32_t value, std::int32_t pos = -1, bool msls = false);

    // --- For the library ---
    /// Puts the buffer in the open game.
    void Init(const Internal& key, std::uint8_t number, std::int32_t volume, std::int32_t loc);
    /// Takes the buffer out of its game; the bytes stay.
    void Detach(const Internal& key) noexcept;
    /// Raises 91 when the game that this belongs to is not that of the present workspace.
    void RequirePresent(const Internal& key) const;
    void Number(const Internal& /*key*/, std::uint8_t value) { number_ = value; }
    void ResFile(const Internal& /*key*/, std::string_view value) { resFile_ = value; }
    void ResType(const Internal& /*key*/, AGIResType value) { resType_ = value; }
    /// The size of bytes that are not loaded; -1: unknown.
    void Size(const Internal& /*key*/, std::int32_t value) { unloadedSize_ = value; }
    void SizeInVol(const Internal& /*key*/, std::int32_t value) { sizeInVol_ = value; }
    void Volume(const Internal& /*key*/, std::int32_t value) { volume_ = value; }
    void Loc(const Internal& /*key*/, std::int32_t value) { loc_ = value; }
    /// The inner path of a file to import. Raises 604 without a name and 524 when it is not there.
    static std::string ImportPath(const Internal& key, std::string_view importFile);
    /// Takes type and file from another buffer, and outside a game its number; a resource of a game keeps its
    /// number and place.
    void SetRes(const Internal& key, const AGIResource& source);

  private:
    void RequireLoaded() const;
    void RequirePresent() const;
    std::int32_t Length() const { return static_cast<std::int32_t>(data_.size()); }
    [[noreturn]] static void RaisePosition(std::int32_t id);
    void MoveTo(std::int32_t pos);
    void Grow(std::int32_t count);
    void Replace(ByteView bytes);
    void UpdateEnd() { endOfResource_ = curPos_ == Length(); }

    std::uint8_t number_ = 0;
    AGIResType resType_ = rtLogic;
    std::string resFile_;
    std::int32_t volume_ = -1;
    std::int32_t loc_ = -1;
    bool loaded_ = false;
    std::shared_ptr<const GameSession> session_;  // of the game that this belongs to, even when it has ended
    std::int32_t unloadedSize_ = 1;               // what Size tells while the bytes are not there
    mutable std::int32_t sizeInVol_ = -1;
    ByteArray data_;
    bool endOfResource_ = false;
    std::int32_t curPos_ = 0;
};

}  // namespace zorvex
