#include "zorvex/decompiler/Disassembly.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "zorvex/language/AGICommandFunctions.h"
#include "zorvex/language/ArgumentMarkers.h"
#include "zorvex/language/LogicFormat.h"

namespace zorvex {

namespace {

class Disassembler {
  public:
    explicit Disassembler(ByteView data) : data_(data), commands_(CommandCatalogue()) {
        if (std::cmp_less(data.size(), LogicCodeStart)) return;
        const std::size_t codeLength = data[0] + 256U * data[1];
        end_ = std::min(codeLength + LogicCodeStart, data.size());
    }

    std::vector<LogicInstruction> Run() {
        while (pos_ < end_) {
            const std::size_t start = pos_;
            text_.clear();
            if (inTests_) {
                ReadInTests();
            } else {
                ReadStatement();
            }
            list_.push_back(
                {static_cast<std::int32_t>(start), static_cast<std::int32_t>(pos_ - start), text_});
        }
        return std::move(list_);
    }

  private:
    std::uint8_t Byte() { return data_[pos_++]; }

    /// Runs a step that needs some bytes, or takes what is left of the code.
    template <class Step>
    void With(std::size_t count, Step&& step) {
        if (end_ - pos_ >= count) {
            step();
        } else {
            pos_ = end_;
            text_ += "...";
        }
    }

    void ReadStatement() {
        const std::uint8_t command = Byte();
        if (command == lbIf) {
            text_ = "if";
            inTests_ = true;
        } else if (command == lbGoto) {
            text_ = "goto ";
            With(2, [this] {
                const auto distance = static_cast<std::int16_t>(Word());
                text_ += std::to_string(static_cast<std::int32_t>(pos_) + distance);
            });
        } else if (command < ActionCommandRows) {
            ReadCommand(commands_.ActionCommandTable[command]);
        } else {
            text_ = "unknown command " + std::to_string(command);
        }
    }

    void ReadInTests() {
        const std::uint8_t byte = Byte();
        if (byte == lbIf) {
            text_ = "then, up to ";
            inTests_ = false;
            inOr_ = false;
            With(2, [this] {
                const std::int32_t length = Word();
                text_ += std::to_string(static_cast<std::int32_t>(pos_) + length);
            });
        } else if (byte == lbOr) {
            inOr_ = !inOr_;
            text_ = inOr_ ? "  or (" : "  )";
        } else if (byte == lbNot) {
            text_ = "  not";
        } else {
            text_ = "  ";
            ReadTest(byte);
        }
    }

    void ReadTest(std::uint8_t test) {
        if (test == SaidCommand) {
            text_ += "said(";
            With(1, [this] { ReadWords(Byte()); });
        } else if (test < TestCommandRows) {
            ReadCommand(commands_.TestCommandTable[test]);
        } else {
            text_ += "unknown test " + std::to_string(test);
        }
    }

    void ReadWords(std::size_t count) {
        With(2 * count, [this, count] {
            for (std::size_t i = 0; i < count; ++i) {
                if (i != 0) text_ += ", ";
                text_ += std::to_string(Word());
            }
            text_ += ')';
        });
    }

    void ReadCommand(const CommandStruct& command) {
        text_ += command.Name + '(';
        With(command.ArgCount, [this, &command] {
            for (std::size_t i = 0; i < command.ArgCount; ++i) {
                if (i != 0) text_ += ", ";
                const ArgTypeEnum type = command.ArgType[i];
                const int value = Byte();
                text_ += ArgTypePrefixes[type];
                text_ += std::to_string(type == atWord ? value + 1 : value);
            }
            text_ += ')';
        });
    }

    std::int32_t Word() {
        const std::int32_t low = Byte();
        return low + 256 * Byte();
    }

    const ByteView data_;
    const CommandTables& commands_;
    std::size_t pos_ = LogicCodeStart;
    std::size_t end_ = 0;
    bool inTests_ = false;
    bool inOr_ = false;
    std::string text_;
    std::vector<LogicInstruction> list_;
};

}  // namespace

std::vector<LogicInstruction> DisassembleLogic(ByteView data) {
    return Disassembler(data).Run();
}

}  // namespace zorvex
