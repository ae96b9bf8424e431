// The value types shared by the whole library: byte containers and the enumerations of the class model.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace zorvex {

/// An owned run of bytes.
using ByteArray = std::vector<std::uint8_t>;
/// A read-only view of bytes owned by somebody else.
using ByteView = std::span<const std::uint8_t>;

/// An index, a place, a size or another number as an argument. Every integer fits in without a loss that
/// could make it a valid one, and the member that takes it checks it as a whole.
using AnyInteger = std::int64_t;

/// Kinds of resources and of other files of a game. Sound stands before view here, while a V3 directory file
/// holds views before sounds.
enum AGIResType : std::uint8_t {
    rtLogic = 0,
    rtPicture = 1,
    rtSound = 2,
    rtView = 3,
    rtObjects = 4,
    rtWords = 5,
    rtLayout = 6,
    rtMenu = 7,
    rtGlobals = 8,
    rtGame = 9,
    rtText = 10,
    rtWarnings = 11,
    rtNone = 255
};

/// The sixteen AGI colours in EGA order, then "no colour". A cel's pixel is one such value.
enum AGIColors : std::uint8_t {
    agBlack = 0,
    agBlue,
    agGreen,
    agCyan,
    agRed,
    agMagenta,
    agBrown,
    agLtGray,
    agDkGray,
    agLtBlue,
    agLtGreen,
    agLtCyan,
    agLtRed,
    agLtMagenta,
    agYellow,
    agWhite,
    agNone = 16
};

/// Directions in which a screen object moves.
enum ObjDirection : std::uint8_t {
    odStopped = 0,
    odUp,
    odUpRight,
    odRight,
    odDownRight,
    odDown,
    odDownLeft,
    odLeft,
    odUpLeft
};

/// Progress of a game load, see AGIGameEvents::LoadStatus. The library itself never raises lsInitialize.
enum ELStatus : std::uint8_t {
    lsInitialize = 0,
    lsDecompiling = 1,
    lsPropertyFile = 2,
    lsResources = 3,
    lsFinalizing = 4
};

/// Progress and problems of a game compile, see AGIGameEvents::CompileGameStatus.
enum ECStatus : std::uint8_t {
    csCompWords = 0,
    csCompObjects = 1,
    csAddResource = 2,
    csDoneAdding = 3,
    csCompileComplete = 4,
    csWarning = 5,
    csResError = 6,
    csLogicError = 7,
    csCanceled = 8
};

/// What a name or an argument of a logic command stands for.
enum ArgTypeEnum : std::uint8_t {
    atNum = 0,
    atVar = 1,
    atFlag = 2,
    atMsg = 3,
    atSObj = 4,
    atIObj = 5,
    atStr = 6,
    atWord = 7,
    atCtrl = 8,
    atDefStr = 9,
    atVocWrd = 10
};

/// How strictly the compiler treats a doubtful source: as an error, with a warning, or not at all.
enum LogicErrorLevel : std::uint8_t { leHigh = 0, leMedium = 1, leLow = 2 };

/// A name defined for a value in logic source. All texts are game text.
struct TDefine {
    std::string Name;
    std::string Default;
    std::string Value;
    ArgTypeEnum Type = atNum;
    std::string Comment;

    bool operator==(const TDefine&) const = default;
};

/// One word of the vocabulary: its text (game text) and the number of its group.
struct AGIWord {
    std::string WordText;
    std::int32_t Group = 0;

    bool operator==(const AGIWord&) const = default;
};

/// A free span of a volume file, for hosts. No member of the library uses it.
struct FreeSpaceInfo {
    std::uint8_t VOL = 0;
    std::int32_t Start = 0;
    std::int32_t End = 0;
};

}  // namespace zorvex
