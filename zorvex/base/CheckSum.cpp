#include "zorvex/base/CheckSum.h"

#include <array>

namespace zorvex {

namespace {

constexpr std::array<std::uint32_t, 256> MakeCrcTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t n = 0; n < 256; ++n) {
        std::uint32_t value = n;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0 ? (value >> 1U) ^ 0xEDB88320U : value >> 1U;
        table[n] = value;
    }
    return table;
}

constexpr std::array<std::uint32_t, 256> crcTable = MakeCrcTable();

template <class Bytes>
std::int32_t Crc32Of(const Bytes& bytes) {
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const auto byte : bytes)
        crc = crcTable[(crc ^ static_cast<std::uint8_t>(byte)) & 0xFFU] ^ (crc >> 8U);
    return static_cast<std::int32_t>(~crc);
}

}  // namespace

std::int32_t CRC32(ByteView bytes) {
    return Crc32Of(bytes);
}
std::int32_t CRC32(std::string_view bytes) {
    return Crc32Of(bytes);
}

}  // namespace zorvex
