// A logic: compiled bytes and the source text that they come from.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zorvex/storage/GameResource.h"

namespace zorvex {

/// One logic, alone or of the open game. It leads a double life: compiled bytes in its buffer, and source
/// text in a file of its own, in the game's resource directory under the logic's ID. Two check sums tell
/// whether they agree, and a logic whose source file is missing gets one by decompiling.
///
/// A new logic stands alone, is loaded and holds the smallest logic, a single `return`. A logic of a game
/// begins unloaded; SourceText exists only while it is loaded. Source text is host text in memory and one
/// byte a character on disk. Errors carry the source "Zorvex.Logic".
class AGILogic : public GameResource {
  public:
    static constexpr std::string_view ErrorSource = "Zorvex.Logic";

    AGILogic();

    using GameResource::Description;
    using GameResource::ID;

    /// The name of the logic. In a game it is unique among the logics without regard to case, and names the
    /// source file: SourceFile follows a new name, the file itself stays where it was. Raises 667 for an
    /// empty and 623 for a taken name, 686 for any other fault.
    void ID(std::string_view value) override;

    /// Gives the logic a name and, in a game, moves its source file along; a logic without one gets just the
    /// name. Raises what ID raises, 58 when another file has the new name, and what the move raises; then all
    /// is as it was.
    void Rename(std::string_view value);

    /// True for a room. Logic 0 of a game never is one: the getter gives False and the setter raises 450. In
    /// a game a new value goes to the property list at once.
    bool IsRoom() const;
    void IsRoom(bool value);

    /// True when the bytes come from the present source text. Reads the source file once when nothing is
    /// known of it yet; the faults of that pass.
    bool Compiled();
    /// The check sum of the source that the bytes were compiled from; 0 outside a game.
    std::int32_t CompiledCRC() const { return InGame() ? compiledCRC_ : 0; }
    /// The check sum of SourceText; 0 while it is not known.
    std::int32_t CRC() const { return crc_; }

    /// The source text. Raises 563 when not loaded. Lines end in CR, LF or both; those
    /// of a text that the library makes in both.
    const std::string& SourceText() const;
    /// Stores the text without the carriage returns at its end. Needs no load: the text then waits for
    /// SaveSource, or for Load, which keeps it.
    void SourceText(std::string_view value);
    /// True when SourceText differs from the file.
    bool SourceDirty() const { return sourceDirty_; }
    /// The path of the source file; in a game always resource directory, ID and extension, where the setter
    /// raises 450.
    std::string SourceFile() const;
    void SourceFile(std::string_view value);
    /// Writes the source text to a file, by default to SourceFile in a game; loads the logic for the time of
    /// the call if need be. Outside a game the logic takes its ID from the file name. With `exporting` only
    /// the file is written. Raises 599 without a name, 582 when the file cannot be put in place, 663 for any
    /// other fault.
    void SaveSource(std::string_view saveFile = {}, bool exporting = false);

    /// Compiles the source text into the bytes and saves them in the game. Raises 618 outside a game, 563
    /// when not loaded, 546 without text, and the compiler's own error, which changes nothing.
    void Compile();

    /// Takes everything from another logic but the place in a game.
    void SetLogic(AGILogic& copyLogic);
    /// Writes the bytes to a file. Raises 668 outside a game and 563 when not loaded.
    void Export(std::string_view exportFile, bool resetDirty = true);
    /// Reads a stand-alone logic from a source file or from a file of bytes, which is then decompiled; when
    /// that fails, the source text is empty. Raises 510 in a game and the faults of the read.
    void Import(std::string_view importFile, bool asSource);

    /// In a game: bytes or properties are not saved. Outside: the source text is not saved.
    bool IsDirty() const override;
    /// Reads the bytes unless they are loaded, and the source text. Raises 502 when the source file cannot be
    /// read and what the decompiler raises when there is none; a logic that was not loaded then stays so.
    void Load() override;
    void Unload() override;
    /// Makes this the smallest logic, in source and, in a game, in bytes. Raises 563 in a game when not
    /// loaded.
    void Clear() override;
    /// In a game: properties to the list, changed bytes to a volume. Outside: a changed source text to a
    /// file. Raises 563.
    void Save(std::string_view saveFile = {}) override;

    // --- For the library ---
    void CopyFrom(GameResource& source) override { SetLogic(static_cast<AGILogic&>(source)); }
    void WriteNumberedProperties() const override;
    void DefaultIDFollowed(std::string_view oldID) override;
    void SetIDField(std::string_view value) override;
    void CompiledCRC(std::int32_t value) { compiledCRC_ = value; }
    /// The bytes now come from the present source text.
    void NoteCompiled();

  protected:
    void ReadOwnProperties() override;
    void WriteFirstProperties() override;
    bool IDsIgnoreCase() const override { return true; }
    void IDChanged() override;
    bool IsOtherDescription(std::string_view value) const override;

  private:
    std::string GameSourceFile() const;
    std::string FindSourceFile();
    void LoadSource(bool forceDecompile);
    std::string ReadSource(const std::string& file) const;
    std::string DecompiledText() const;
    void StoreSource(const std::string& saveFile);
    void WriteCRC() const;
    void WriteCompiledCRC() const;

    bool isRoom_ = false;
    std::string sourceFile_;
    std::string sourceText_;
    std::int32_t crc_ = 0;
    std::int32_t compiledCRC_ = -1;
    bool sourceDirty_ = false;
    bool textWaits_ = false;  // the text was set while the logic was not loaded
};

}  // namespace zorvex
