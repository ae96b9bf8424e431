// How the library reports a failure: one exception type with a number, a source and a description.
#pragma once

#include <cstdint>
#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>

#include "zorvex/base/ErrorKind.h"

namespace zorvex {

/// A catalogue error's number is this base plus its id.
inline constexpr std::int32_t ObjectErrorBase = static_cast<std::int32_t>(0x80040000U);

/// Numbers of plain run-time errors, raised without ObjectErrorBase.
enum RuntimeError : std::int32_t {
    reInvalidCall = 5,
    reOverflow = 6,
    reOutOfMemory = 7,
    reSubscript = 9,
    reTypeMismatch = 13,
    reInternal = 51,
    reFileNotFound = 53,
    reFileAlreadyOpen = 55,
    reDeviceIO = 57,
    reFileExists = 58,
    reDiskFull = 61,
    reInputPastEnd = 62,
    reBadFileName = 64,
    rePermissionDenied = 70,
    rePathFileAccess = 75,
    rePathNotFound = 76,
    reObjectNotSet = 91,
    reInvalidPropertyValue = 380,
    reReadOnlyProperty = 450
};

/// The only exception that crosses a function of the library.
class Error : public std::exception {
  public:
    Error(std::int32_t number, std::string source, std::string description);

    /// ObjectErrorBase plus a catalogue id, or a plain run-time number.
    std::int32_t Number() const { return number_; }
    /// Where the error was raised: a class's or module's fixed text.
    const std::string& Source() const { return source_; }
    /// The message, with its placeholders filled. Host text.
    const std::string& Description() const { return description_; }
    /// Number() less ObjectErrorBase: the catalogue id of a catalogue error; meaningless for a plain number.
    std::int32_t Id() const;
    /// True when this is the catalogue error of that id, or the plain run-time error of that number.
    bool Is(std::int32_t id) const { return Id() == id || number_ == id; }
    /// What sort of trouble it is.
    ErrorKind Kind() const;
    /// Number, ":" and description, the form in which wrapping errors quote an error.
    std::string NumberAndText() const;

    const char* what() const noexcept override { return description_.c_str(); }

  private:
    std::int32_t number_;
    std::string source_;
    std::string description_;
};

/// The catalogue's text of an id; %1, %2 ... are replaced by the fillers given, in every place and in one
/// pass, so that a "%2" inside a filler stays. A placeholder without a filler stays as well. An unknown id
/// gives an empty text.
std::string CatalogueText(std::int32_t id, std::initializer_list<std::string_view> fillers = {});

/// Raises ObjectErrorBase + id with the catalogue's text.
[[noreturn]] void RaiseFromCatalogue(std::int32_t id, std::string_view source,
                                     std::initializer_list<std::string_view> fillers);

/// Raises the catalogue error of that id, its placeholders filled.
template <class... Fillers>
[[noreturn]] void RaiseCatalogue(std::int32_t id, std::string_view source, const Fillers&... fillers) {
    RaiseFromCatalogue(id, source, {std::string_view(fillers)...});
}

/// Raises a plain run-time error with its usual text.
[[noreturn]] void RaiseRuntime(std::int32_t number, std::string_view source = {});

/// Raises an error whose number or description is not the catalogue's own pairing.
[[noreturn]] void RaiseText(std::int32_t number, std::string_view source, std::string_view description);

/// The usual text of a plain run-time number.
std::string_view RuntimeText(std::int32_t number);

/// Inside a catch block: the exception in flight as an Error. What the standard library throws is translated.
Error CurrentError();

}  // namespace zorvex
