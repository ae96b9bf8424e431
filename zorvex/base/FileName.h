// The name of one file or directory, checked: what a game says about its files goes through here.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zorvex {

/// A name out of a game (an ID, a directory, a line of a list, an entry of a directory) that can be put
/// behind a directory without leading anywhere else. No text is ever made to fit: it fits or it is none.
/// Paths that a person gives are plain texts and are not held to this.
class FileName {
  public:
    /// The longest name in bytes that the usual file systems take.
    static constexpr std::size_t MaxLength = 255;

    /// Raises 64 for a text that does not fit.
    explicit FileName(std::string_view text);
    static std::optional<FileName> Of(std::string_view text);

    /// True for a text of 1 to 255 bytes that is not "." or ".." and holds no separator of any system
    /// (backslash, slash, colon), no zero byte and no other control character.
    static bool Fits(std::string_view text);
    /// True for a text that fits and that every system takes as a name and no pattern takes for more than
    /// itself: none of * ? " < > | and no blank at its ends.
    static bool FitsEverywhere(std::string_view text);

    const std::string& Text() const noexcept { return text_; }
    /// The path of this name in a directory, which may end in a backslash or not.
    std::string In(std::string_view directory) const;

    friend bool operator==(const FileName& left, const FileName& right) = default;

  private:
    std::string text_;
};

}  // namespace zorvex
