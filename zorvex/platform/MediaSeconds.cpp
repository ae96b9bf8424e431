#include "zorvex/platform/Media.h"

namespace zorvex {

namespace {

// Reads numbers in sequence and never past the end: what is missing reads as 0 and sets the end.
class ByteReader {
  public:
    explicit ByteReader(ByteView bytes) : bytes_(bytes) {}

    bool AtEnd() const { return pos_ >= bytes_.size(); }
    std::uint8_t Peek() const { return AtEnd() ? std::uint8_t{0} : bytes_[pos_]; }
    std::uint8_t Byte() { return AtEnd() ? std::uint8_t{0} : bytes_[pos_++]; }
    std::uint32_t BigEndian(int count) {
        std::uint32_t value = 0;
        for (int i = 0; i < count; ++i)
            value = value << 8 | Byte();
        return value;
    }
    std::uint32_t LittleEndian(int count) {
        std::uint32_t value = 0;
        for (int i = 0; i < count; ++i)
            value |= static_cast<std::uint32_t>(Byte()) << (8 * i);
        return value;
    }
    std::uint32_t VariableLength() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) {
            const std::uint8_t byte = Byte();
            value = value << 7 | (byte & 127U);
            if (byte < 128) break;
        }
        return value;
    }
    bool Text(std::string_view text) {
        const ByteView rest = bytes_.subspan(std::min(pos_, bytes_.size()));
        if (rest.size() < text.size() || !std::equal(text.begin(), text.end(), rest.begin())) return false;
        pos_ += text.size();
        return true;
    }
    ByteView Take(std::size_t count) {
        const ByteView taken = bytes_.subspan(pos_, std::min(count, bytes_.size() - pos_));
        pos_ += taken.size();
        return taken;
    }

  private:
    ByteView bytes_;
    std::size_t pos_ = 0;
};

// The ticks of a track, at the tempo with which every file begins.
std::uint64_t TrackTicks(ByteView chunk) {
    ByteReader reader(chunk);
    std::uint64_t ticks = 0;
    std::uint8_t status = 0;
    while (!reader.AtEnd()) {
        ticks += reader.VariableLength();
        if (reader.Peek() >= 128) status = reader.Byte();
        if (status == 0xFF) {
            if (reader.Byte() == 0x2F) break;
            reader.Take(reader.VariableLength());
        } else if (status == 0xF0 || status == 0xF7) {
            reader.Take(reader.VariableLength());
        } else {
            const int kind = status >> 4;
            reader.Take(kind == 12 || kind == 13 ? 1 : 2);
        }
    }
    return ticks;
}

double MidiSeconds(ByteReader reader) {
    constexpr double quartersPerSecond = 2;
    reader.BigEndian(4);  // length of the header
    reader.BigEndian(2);  // format
    reader.BigEndian(2);  // tracks
    const std::uint32_t ticksPerQuarter = reader.BigEndian(2);
    std::uint64_t longest = 0;
    while (reader.Text("MTrk"))
        longest = std::max(longest, TrackTicks(reader.Take(reader.BigEndian(4))));
    return ticksPerQuarter == 0 ? 0 : static_cast<double>(longest) / (ticksPerQuarter * quartersPerSecond);
}

double WaveSeconds(ByteReader reader) {
    std::uint32_t bytesPerSecond = 0;
    reader.LittleEndian(4);
    if (!reader.Text("WAVE")) return 0;
    while (!reader.AtEnd()) {
        if (reader.Text("data")) {
            const std::uint32_t length = reader.LittleEndian(4);
            const std::size_t present = reader.Take(length).size();
            return bytesPerSecond == 0 ? 0 : static_cast<double>(present) / bytesPerSecond;
        }
        const bool isFormat = reader.Text("fmt ");
        if (!isFormat) reader.LittleEndian(4);
        ByteReader chunk(reader.Take(reader.LittleEndian(4)));
        if (isFormat) {
            chunk.Take(8);
            bytesPerSecond = chunk.LittleEndian(4);
        }
    }
    return 0;
}

}  // namespace

double MediaSeconds(ByteView file) {
    ByteReader reader(file);
    if (reader.Text("MThd")) return MidiSeconds(reader);
    if (reader.Text("RIFF")) return WaveSeconds(reader);
    return 0;
}

}  // namespace zorvex
