// The bytes of a fuzz input, taken one decision at a time. An input that has run out answers 0.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "zorvex/base/Types.h"

namespace zorvex::fuzz {

class Input {
  public:
    explicit Input(ByteView bytes) : rest_(bytes) {}

    bool AtEnd() const { return rest_.empty(); }
    std::uint8_t Byte() {
        if (rest_.empty()) return 0;
        const std::uint8_t byte = rest_.front();
        rest_ = rest_.subspan(1);
        return byte;
    }
    std::size_t Below(std::size_t bound) { return Byte() % bound; }
    bool Flag() { return (Byte() & 1U) != 0; }
    /// Mostly small, at times at the edge of what a number can be.
    std::int32_t Number() {
        constexpr std::array<std::int32_t, 16> edges{-1,    0,     1,          159,        160,   168,
                                                     254,   255,   256,        1023,       32767, 65530,
                                                     65535, 65536, 2147483647, -2147483647};
        const std::uint8_t byte = Byte();
        return byte < 200 ? byte % 32 : edges[byte % edges.size()];
    }
    /// A number of a resource, mostly one of a few.
    std::int32_t ResourceNumber() {
        const std::uint8_t byte = Byte();
        return byte < 240 ? byte % 8 : byte < 250 ? 250 + byte % 6 : 256 - 257 * (byte % 2);
    }
    ByteArray Bytes() {
        const std::size_t length = Byte() % 24;
        ByteArray bytes;
        for (std::size_t i = 0; i < length && !rest_.empty(); ++i)
            bytes.push_back(Byte());
        return bytes;
    }
    /// One of the choices of a table.
    template <class Table>
    auto Of(const Table& table) -> decltype(table[0]) {
        return table[Byte() % std::size(table)];
    }
    /// Texts as hosts have them: plain, empty, long, with what a file of lines must hold together.
    std::string Text() {
        static const std::array<std::string, 20> texts{"",
                                                       "a",
                                                       "Picture1",
                                                       "Logic1",
                                                       "logic5",
                                                       "two words",
                                                       " edge ",
                                                       "a\"b",
                                                       "a\\b",
                                                       "x\r\ny",
                                                       "\xC3\xA9t\xC3\xA9",
                                                       "::End",
                                                       "[General]",
                                                       "#",
                                                       "key = 1",
                                                       "..\\up",
                                                       "\xFF\xFE",
                                                       "C:\\x",
                                                       std::string(70, 'n'),
                                                       std::string(1100, 'z')};
        const std::uint8_t byte = Byte();
        if (byte < 200) return texts[byte % texts.size()];
        const ByteArray bytes = Bytes();
        return {bytes.begin(), bytes.end()};
    }

  private:
    ByteView rest_;
};

}  // namespace zorvex::fuzz
