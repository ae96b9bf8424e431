#include "zorvex/base/Error.h"

#include <array>
#include <new>
#include <stdexcept>
#include <system_error>

#include "zorvex/base/ErrorCatalogue.h"

namespace zorvex {

namespace {

struct RuntimeMessage {
    std::int32_t number;
    std::string_view text;
};

constexpr std::array runtimeMessages{
    RuntimeMessage{reInvalidCall, "Invalid procedure call or argument"},
    RuntimeMessage{reOverflow, "Overflow"},
    RuntimeMessage{reOutOfMemory, "Out of memory"},
    RuntimeMessage{reSubscript, "Subscript out of range"},
    RuntimeMessage{reTypeMismatch, "Type Mismatch"},
    RuntimeMessage{reInternal, "Internal error"},
    RuntimeMessage{reFileNotFound, "File not found"},
    RuntimeMessage{reFileAlreadyOpen, "File already open"},
    RuntimeMessage{reDeviceIO, "Device I/O error"},
    RuntimeMessage{reFileExists, "File already exists"},
    RuntimeMessage{reDiskFull, "Disk full"},
    RuntimeMessage{reInputPastEnd, "Input past end of file"},
    RuntimeMessage{reBadFileName, "Bad file name"},
    RuntimeMessage{rePermissionDenied, "Permission denied"},
    RuntimeMessage{rePathFileAccess, "Path/File access error"},
    RuntimeMessage{rePathNotFound, "Path not found"},
    RuntimeMessage{reObjectNotSet, "Object is not part of the present library or of an open game"},
    RuntimeMessage{reInvalidPropertyValue, "Invalid property Value"},
    RuntimeMessage{reReadOnlyProperty, "Can't assign to read-only property"},
};

}  // namespace

Error::Error(std::int32_t number, std::string source, std::string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {}

std::int32_t Error::Id() const {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(number_) -
                                     static_cast<std::uint32_t>(ObjectErrorBase));
}

ErrorKind Error::Kind() const {
    const ErrorKind kind = KindOfError(Id());
    return kind == ErrorKind::Other ? KindOfError(number_) : kind;
}

std::string Error::NumberAndText() const {
    return std::to_string(number_) + ":" + description_;
}

std::string CatalogueText(std::int32_t id, std::initializer_list<std::string_view> fillers) {
    const std::string_view entry = CatalogueEntry(id);
    std::string text;
    std::size_t taken = 0;
    for (std::size_t at = entry.find('%'); at != std::string_view::npos; at = entry.find('%', at + 1)) {
        const char digit = at + 1 < entry.size() ? entry[at + 1] : '0';
        const auto index = static_cast<std::size_t>(digit - '1');
        if (digit < '1' || index >= fillers.size()) continue;
        text += entry.substr(taken, at - taken);
        text += fillers.begin()[index];
        taken = at + 2;
    }
    text += entry.substr(taken);
    return text;
}

void RaiseFromCatalogue(std::int32_t id, std::string_view source,
                        std::initializer_list<std::string_view> fillers) {
    throw Error(ObjectErrorBase + id, std::string(source), CatalogueText(id, fillers));
}

void RaiseRuntime(std::int32_t number, std::string_view source) {
    throw Error(number, std::string(source), std::string(RuntimeText(number)));
}

void RaiseText(std::int32_t number, std::string_view source, std::string_view description) {
    throw Error(number, std::string(source), std::string(description));
}

std::string_view RuntimeText(std::int32_t number) {
    for (const RuntimeMessage& message : runtimeMessages) {
        if (message.number == number) return message.text;
    }
    return "Application-defined or object-defined error";
}

Error CurrentError() {
    const auto runtime = [](std::int32_t number) {
        return Error(number, "", std::string(RuntimeText(number)));
    };
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return runtime(reOutOfMemory);
    } catch (const std::length_error&) {
        return runtime(reOutOfMemory);
    } catch (const std::out_of_range&) {
        return runtime(reSubscript);
    } catch (const std::exception& error) {
        return Error(reInternal, "", error.what());
    } catch (...) {
        return runtime(reInternal);
    }
}

}  // namespace zorvex
