// The byte buffer behind every resource of a game.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zorvex/game/Event.h"
#include "zorvex/game/Types.h"

namespace zorvex {

/// The largest position that a write may name, less one: explicit positions stay below this.
inline constexpr std::int32_t MaxResourceSize = 65530;

/// The bytes of one resource, the place where they live, and a position marker for reading and writing in
/// sequence. The buffer knows nothing of what the bytes mean; it tells its owner of each change through the
/// Change event.
///
/// Every member that reads or writes bytes or the marker raises 563 on a buffer that is not loaded, before
/// anything else. Positions are 0-based. Errors carry the source "ZORVEX.agiResource".
class AGIResource {
  public:
    static constexpr std::string_view ErrorSource = "ZORVEX.agiResource";

    /// Raised after each change of content by InsertData, RemoveData, SetData, Data, WriteByte, WriteWord,
    /// SetAllData and Import; not by Load, Unload, Clear and Save.
    zorvex::Event<> Change;

    /// True for a resource that belongs to the open game.
    bool InGame() const { return inGame_; }
    std::uint8_t Number() const { return number_; }
    AGIResType ResType() const { return resType_; }
    bool Loaded() const { return loaded_; }
    /// Volume number and offset of the header; -1 outside a game.
    std::int32_t Volume() const { return inGame_ ? volume_ : -1; }
    std::int32_t Loc() const { return inGame_ ? loc_ : -1; }
    /// The file of a stand-alone resource; "" in a game.
    std::string ResFile() const { return inGame_ ? std::string() : resFile_; }
    /// The number of data bytes that the resource takes in its volume, read from the volume once; -1 outside
    /// a game. Raises 625 when the volume holds no header at its place.
    std::int32_t SizeInVol() const;
    /// The number of bytes. Needs no load when it is known; else loads and unloads once, whose errors pass.
    std::int32_t Size();

    /// Inserts bytes before a position, or appends them at -1. Raises 620. The marker stays.
    void InsertData(ByteView newData, std::int32_t insertPos = -1);
    /// As above for one value; raises 13 unless it is a whole number from 0 to 255.
    void InsertData(double value, std::int32_t insertPos = -1);
    /// Removes bytes; a count below 1 counts as 1. Raises 620; 9 when the count exceeds what is there.
    void RemoveData(std::int32_t removePos, std::int32_t removeCount = 1);
    /// Replaces all bytes; the marker goes to the start.
    void SetData(ByteView newData);
    /// A copy of the bytes. After Clear this is one zero byte.
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

    /// Makes a stand-alone resource loaded and placeless; with `reset` its bytes are dropped first. Raises
    /// 510 in a game.
    void NewResource(bool reset = false);
    /// Writes the bytes to a file, loading them for the time of the call if need be. Raises 599, 601, 582.
    void Export(std::string_view exportFile);

    // --- For the classes of the library ---
    /// Puts the buffer in the open game.
    void Init(std::uint8_t number, std::int32_t volume, std::int32_t loc);
    void InGame(bool value) { inGame_ = value; }
    void Number(std::uint8_t value) { number_ = value; }
    void ResFile(std::string_view value) { resFile_ = value; }
    void ResType(AGIResType value) { resType_ = value; }
    void Size(std::int32_t value) { size_ = value; }
    void SizeInVol(std::int32_t value) { sizeInVol_ = value; }
    void Volume(std::int32_t value) { volume_ = value; }
    void Loc(std::int32_t value) { loc_ = value; }

    /// Reads the bytes from the volume or the file and expands them. Raises 511, 626, 606, and 502, 505, 506,
    /// 507.
    void Load();
    void Unload();
    /// Leaves a loaded buffer without bytes.
    void Clear();
    /// In a game: writes the buffer into a volume and its directory entry. Else exports it.
    void Save(std::string_view saveFile = {});
    /// Reads a file as the whole content. Raises 604, 524, 605.
    void Import(std::string_view importFile);
    /// Takes everything but the bytes from another buffer.
    void SetRes(const AGIResource& source);
    /// As SetData, and needs no load.
    void SetAllData(ByteView bytes);
    /// Writes one byte at a position, at most at the end, or appends it at -1. Raises 514, 516, 517.
    void WriteByte(std::uint8_t value, std::int32_t pos = -1);
    /// Writes a 16-bit value, low byte first unless `msls`. Raises 513, 514, 516, 557.
    void WriteWord(std::int32_t value, std::int32_t pos = -1, bool msls = false);

  private:
    void RequireLoaded() const;
    [[noreturn]] static void RaisePosition(std::int32_t id);
    void MoveTo(std::int32_t pos);
    void Grow(std::int32_t count);
    void Replace(ByteView bytes);
    void UpdateEnd() { endOfResource_ = curPos_ == size_; }

    std::uint8_t number_ = 0;
    AGIResType resType_ = rtLogic;
    std::string resFile_;
    std::int32_t volume_ = -1;
    std::int32_t loc_ = -1;
    bool loaded_ = false;
    bool inGame_ = false;
    std::int32_t size_ = 1;
    mutable std::int32_t sizeInVol_ = -1;
    ByteArray data_ = ByteArray(1);
    bool endOfResource_ = false;
    std::int32_t curPos_ = 0;
};

}  // namespace zorvex
