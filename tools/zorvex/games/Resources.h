// Naming resources on the command line and in output.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/zorvex/games/OpenedGame.h"

namespace zorvex::tool {

/// "logic", "picture", "sound", "view".
std::string TypeName(AGIResType type);
/// The type of such a name. Raises UsageError.
AGIResType ParseType(const std::string& text);
/// A whole number from 0 to 255. Raises UsageError.
std::uint8_t ParseNumber255(const std::string& text);

/// TYPE or TYPE:NUMBER.
struct Selection {
    AGIResType Type = rtNone;
    std::optional<std::uint8_t> Number;
};
/// Raises UsageError.
Selection ParseSelection(const std::string& text);

/// The name of a resource's file, such as "logic.000" or "picture.012", with an extension behind it if one is
/// given.
std::string ResourceFileName(AGIResType type, std::uint8_t number, const std::string& extension = {});

/// The members of a collection by number.
std::vector<std::shared_ptr<GameResource>> ByNumber(AGIResType type);
/// The four types in the order in which they are listed.
inline constexpr std::array listedTypes{rtLogic, rtPicture, rtSound, rtView};

/// Reads and writes whole files. Raise Error.
ByteArray ReadBytes(const std::string& path);
void WriteBytes(const std::filesystem::path& path, ByteView bytes);
/// Makes a directory for output, with those above it. Raises Error.
void MakeOutputDirectory(const std::filesystem::path& path);
/// The same for the files of all resources, with that extension. Raises UsageError for a path that looks like
/// one of these files.
void MakeDirectoryOfAll(const std::filesystem::path& path, std::string_view extension);

}  // namespace zorvex::tool
