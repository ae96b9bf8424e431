#include "zorvex/picture/PictureCommands.h"

#include "zorvex/picture/PenRules.h"

namespace zorvex {
namespace {

/// One walk over a stream. It consumes what a replay of the stream consumes: some operands are taken
/// whatever they are, others only up to the next command, and the last byte is no command but dfEnd.
class CommandLister {
  public:
    explicit CommandLister(ByteView stream) : stream_(stream) {
        pen_.VisColor = agNone;
        pen_.PriColor = agNone;
    }

    std::vector<PictureCommand> List() {
        while (pos_ < stream_.size()) {
            command_ = {.Position = static_cast<std::int32_t>(pos_),
                        .Code = stream_[pos_],
                        .Arguments = {},
                        .Pen = {},
                        .Faults = 0};
            const bool isLast = pos_ > 0 && pos_ + 1 == stream_.size();
            ++pos_;
            if (isLast) {
                if (command_.Code != dfEnd) command_.Faults = peDataEnds;
            } else if (command_.Code != dfEnd) {
                ReadCommand();
            }
            command_.Pen = pen_;
            commands_.push_back(std::move(command_));
            if (commands_.back().Code == dfEnd) break;
        }
        return std::move(commands_);
    }

  private:
    bool AtEnd() const { return pos_ >= stream_.size(); }

    /// Notes a fault, unless drawing has stopped before it.
    void Note(std::int32_t fault) {
        if ((command_.Faults & peFailure) == 0) command_.Faults |= fault;
    }

    /// Takes the next byte, whatever it is. At the end of the stream it gives 0 and notes the fault.
    std::uint8_t Take() {
        if (AtEnd()) {
            Note(endFault_);
            return 0;
        }
        command_.Arguments.push_back(stream_[pos_]);
        return stream_[pos_++];
    }

    /// True when the next byte is an operand. The last byte of a stream is none that anything is drawn with;
    /// it goes to the command all the same.
    bool HasOperand() {
        if (AtEnd()) {
            Note(endFault_);
            return false;
        }
        if (stream_[pos_] >= FirstPictureCommand) return false;
        if (pos_ + 1 < stream_.size()) return true;
        Take();
        endFault_ = peDataEnds;
        return false;
    }

    void ReadCommand() {
        endFault_ = command_.Code == dfFill ? peFailure : peDataEnds;
        switch (command_.Code) {
            case dfEnableVis: TakeColor(); break;
            case dfDisableVis: pen_.VisColor = agNone; break;
            case dfEnablePri:
                if (!AtEnd()) TakePriorityColor(pen_, stream_[pos_]);
                Take();
                break;
            case dfDisablePri: pen_.PriColor = agNone; break;
            case dfYCorner:
            case dfXCorner: ReadCorner(); break;
            case dfAbsLine: ReadLine(); break;
            case dfRelLine: ReadRelLine(); break;
            case dfFill: ReadFill(); break;
            case dfChangePen:
                if (!AtEnd()) TakePlotPen(pen_, stream_[pos_]);
                Take();
                break;
            case dfPlotPen: ReadPlot(); break;
            default: Note(AtEnd() ? 0 : peCommand); break;
        }
        if (AtEnd()) Note(endFault_);
    }

    void TakeColor() {
        if (!AtEnd()) Note(TakeVisualColor(pen_, stream_[pos_]));
        Take();
    }

    void ReadCorner() {
        Take();
        Take();
        while (HasOperand())
            Take();
    }

    void ReadLine() {
        Take();
        Take();
        while (HasOperand()) {
            Take();
            Take();
        }
    }

    void ReadRelLine() {
        PicturePoint at;
        at.x = Take();
        at.y = Take();
        while (HasOperand()) {
            const PicturePoint way = Displacement(Take());
            at = {at.x + way.x, at.y + way.y};
            if (at.x < 0 || at.x > 255 || at.y < 0 || at.y > 255) Note(peFailure);
        }
    }

    void ReadFill() {
        constexpr std::int32_t farthest = 32767;
        const bool paints = pen_.VisColor < agNone || pen_.PriColor < agNone;
        while (HasOperand()) {
            const std::int32_t x = Take();
            const std::int32_t index = x + PictureWidth * Take();
            if (index > farthest || (paints && index >= PictureSize)) Note(peFailure);
        }
    }

    void ReadPlot() {
        while (HasOperand()) {
            if (pen_.PlotStyle == psSplatter) {
                Take();
                if (!InPlot()) return;
            }
            Take();
            if (!InPlot()) return;
            Take();
        }
    }

    /// True when the next byte goes on with a plot that has begun.
    bool InPlot() {
        if (AtEnd()) Note(peDataEnds);
        return !AtEnd() && stream_[pos_] < FirstPictureCommand;
    }

    ByteView stream_;
    std::size_t pos_ = 0;
    PenStatus pen_;
    PictureCommand command_;
    std::int32_t endFault_ = peDataEnds;
    std::vector<PictureCommand> commands_;
};

}  // namespace

std::vector<PictureCommand> ListPictureCommands(ByteView stream) {
    return CommandLister(stream).List();
}

}  // namespace zorvex
