// An LZW encoder, for comparison with the expansion.
#pragma once

#include <cstdint>
#include <map>
#include <utility>

#include "zorvex/base/Types.h"

namespace zorvex::fuzz {

class BitWriter {
  public:
    void Put(int code, int width) {
        bits_ |= static_cast<std::uint64_t>(code) << static_cast<unsigned>(count_);
        for (count_ += width; count_ >= 8; count_ -= 8, bits_ >>= 8U)
            bytes_.push_back(static_cast<std::uint8_t>(bits_));
    }
    ByteArray Finish() {
        if (count_ > 0) bytes_.push_back(static_cast<std::uint8_t>(bits_));
        return std::move(bytes_);
    }

  private:
    ByteArray bytes_;
    std::uint64_t bits_ = 0;
    int count_ = 0;
};

/// Data compressed with a growing code width and a reset whenever the table is full, as the interpreter's own
/// V3 files hold it.
inline ByteArray LzwCompressed(ByteView plain) {
    // The reader makes an entry one code later than the writer could, so the width follows what the reader
    // has.
    constexpr int tableSize = 2048;
    BitWriter writer;
    std::map<std::pair<int, int>, int> table;
    int width = 9;
    int readerNext = 0;  // the entry that the reader makes of the next code
    int next = 0;
    int text = -1;
    const auto reset = [&] {
        writer.Put(256, width);
        table.clear();
        width = 9;
        readerNext = 257;  // after a reset the first byte makes no entry
        next = 258;
        text = -1;
    };
    const auto put = [&](int code) {
        writer.Put(code, width);
        if (readerNext > (1 << width) - 2 && width < 11) ++width;
        ++readerNext;
    };
    bool isFull = true;
    for (const std::uint8_t byte : plain) {
        if (std::exchange(isFull, false)) reset();  // only where more data follow
        const auto found = table.find({text, byte});
        if (text < 0) {
            text = byte;
        } else if (found != table.end()) {
            text = found->second;
        } else {
            put(text);
            table[{text, byte}] = next++;
            text = byte;
            if (next == tableSize) {
                put(text);
                text = -1;
                isFull = true;
            }
        }
    }
    if (text >= 0) put(text);
    writer.Put(257, width);
    return writer.Finish();
}

}  // namespace zorvex::fuzz
