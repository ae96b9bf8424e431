// The test commands of the logic language, as a host reads them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zorvex/language/AGICommandFunctions.h"

namespace zorvex {

/// The commands that may stand in an `if`; the same in every interpreter
/// version. `said` has an argument count of 0 here: in a logic a count byte and
/// words of 16 bits follow it.
class AGITestCommands {
  public:
    /// A copy of a command's row. Raises 9, "Subscript out of range", for an
    /// index above Count().
    CommandStruct TestCmd(std::uint8_t index) const;
    CommandStruct operator()(std::uint8_t index) const { return TestCmd(index); }
    /// The highest valid command number.
    std::uint8_t Count() const;

    /// The source of this object's errors.
    const std::string& strErrSource() const { return errSource_; }
    void strErrSource(std::string_view value) { errSource_ = value; }

  private:
    std::string errSource_ = "Zorvex.agiTestCommands";
};

}  // namespace zorvex
