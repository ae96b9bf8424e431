// The action commands of the logic language, as a host reads them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zorvex/language/AGICommandFunctions.h"

namespace zorvex {

/// The action commands that the game's interpreter version knows; all of them
/// while no game has been opened.
class AGICommands {
  public:
    /// A copy of a command's row. Raises 9, "Subscript out of range", for an
    /// index above Count().
    CommandStruct AGICommand(std::uint8_t index) const;
    CommandStruct operator()(std::uint8_t index) const { return AGICommand(index); }
    /// The highest valid command number.
    std::uint8_t Count() const;

    /// The source of this object's errors.
    const std::string& strErrSource() const { return errSource_; }
    void strErrSource(std::string_view value) { errSource_ = value; }

  private:
    std::string errSource_ = "Zorvex.agiCommandInfo";
};

}  // namespace zorvex
