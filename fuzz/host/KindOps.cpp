// What the host does with a resource of each kind, and with the parts of it that it keeps.
#include "fuzz/Check.h"
#include "fuzz/host/Host.h"

namespace zorvex::fuzz {

void Host::EditLogic(Held& held) {
    static const std::array<std::string, 10> sources{
        "return();",
        "v1 = 3;\r\nreturn();",
        "#message 1 \"one\"\nprint(m1);\nreturn();",
        "if (said(\"look\")) { v200 = 7; }\nreturn();",
        "load.view(View1);\ndraw(o1);\nreturn();",
        "#include \"more.txt\"\nreturn();",
        "goto Nowhere;",
        "set(Logic1);\nadd.to.pic(View2, 0, 0, 1, 1, 4, 4);\nreturn();",
        "",
        "x"};
    auto& logic = static_cast<AGILogic&>(*held.Object);
    switch (input_.Below(8)) {
        case 0:
        case 1: Try([&] { logic.SourceText(input_.Of(sources)); }); break;
        case 2:
        case 3:
            if (Try([&] { logic.Compile(); }) && KeyOf(held)) {
                FUZZ_CHECK(!logic.DataDirty());
                NoteBytes(held);
            }
            break;
        case 4: Try([&] { logic.SaveSource(logic.InGame() ? "" : OutFile(), input_.Flag()); }); break;
        case 5: Try([&] { logic.IsRoom(input_.Flag()); }); break;
        case 6: Try([&] { logic.Compiled(); }); break;
        default: Try([&] { logic.SourceFile(OutFile()); }); break;
    }
}

void Host::EditPicture(AGIPicture& picture) {
    const std::int32_t number = input_.Number();
    const auto x = static_cast<std::uint8_t>(number);
    switch (input_.Below(14)) {
        case 0: Try([&] { FUZZ_CHECK(picture.VisData().size() == 160 * 168); }); break;
        case 1: Try([&] { picture.PriPixel(x, x); }); break;
        case 2: Try([&] { picture.PixelControl(x, 5, x); }); break;
        case 3: Try([&] { picture.ObjOnWater(5, x, x); }); break;
        case 4: Try([&] { picture.DrawPos(number); }); break;
        case 5: Try([&] { picture.StepDraw(input_.Flag()); }); break;
        case 6: Try([&] { picture.CurrentToolStatus(); }); break;
        case 7: Try([&] { picture.BkgdImgFile(input_.Text()); }); break;
        case 8: Try([&] { picture.BkgdShow(input_.Flag()); }); break;
        case 9: Try([&] { picture.BkgdTrans(number); }); break;
        case 10: Try([&] { picture.PriBase(x); }); break;
        case 11: Try([&] { picture.SetPictureData(input_.Bytes()); }); break;
        case 12: Try([&] { picture.VisualBMP(); }); break;
        default: Try([&] { picture.BkgdPosition(input_.Text()); }); break;
    }
}

// --- Views ---
void Host::EditView(AGIView& view) {
    switch (input_.Below(6)) {
        case 0: Try([&] { view.ViewDescription(input_.Text()); }); break;
        case 1: Try([&] { view.SetMirror(input_.Number(), input_.Number()); }); break;
        case 2: Try([&] { static_cast<void>(view.ViewDescription()); }); break;
        default:
            if (Try([&] { loops_ = view.Loops(); })) EditLoops(*loops_);
            break;
    }
}

void Host::EditLoops(AGILoops& loops) {
    std::shared_ptr<AGILoop> loop;
    const std::int32_t at = input_.Number();
    switch (input_.Below(8)) {
        case 0: Try([&] { loops.Add(static_cast<std::uint8_t>(at)); }); break;
        case 1: Try([&] { loops.Remove(at); }); break;
        case 2: Try([&] { loops.SetMirror(at, input_.Number()); }); break;
        case 3:
            if (Try([&] { loop = loops.Item(at); })) loop->UnMirror();
            break;
        case 4: Try([&] { loops.Item(at)->CopyLoop(*loops.Item(input_.Number())); }); break;
        default:
            if (!Try([&] { loop = loops.Item(at); })) break;
            Try([&] {
                const auto cels = loop->Cels();
                if (input_.Below(3) == 0) cels->Add(input_.Byte(), input_.Number(), input_.Number());
                if (input_.Below(5) == 0) cels->Remove(input_.Number());
                cel_ = cels->Item(input_.Number());
            });
            if (cel_) EditCel(*cel_);
            break;
    }
}

void Host::EditCel(AGICel& cel) {
    const std::int32_t number = input_.Number();
    switch (input_.Below(8)) {
        case 0: Try([&] { cel.Width(number); }); break;
        case 1: Try([&] { cel.Height(number); }); break;
        case 2: Try([&] { cel.TransColor(static_cast<AGIColors>(number & 31)); }); break;
        case 3: Try([&] { cel.CelData(number, 0, static_cast<AGIColors>(input_.Byte() % 18)); }); break;
        case 4: Try([&] { cel.AllCelData(CelPixels(number, 1)); }); break;
        case 5: Try([&] { cel.Clear(); }); break;
        case 6: Try([&] { cel.CelBMP(); }); break;
        default: Try([&] { cel.CopyCel(AGICel()); }); break;
    }
}

// --- Sounds ---
void Host::EditSound(AGISound& sound) {
    switch (input_.Below(8)) {
        case 0: Try([&] { sound.Key(input_.Number()); }); break;
        case 1: Try([&] { sound.TPQN(input_.Number()); }); break;
        case 2: Try([&] { sound.Length(); }); break;
        case 3: Try([&] { sound.MIDIData(); }); break;
        default:
            if (Try([&] { track_ = sound.Track(static_cast<std::int32_t>(input_.Below(5))); }))
                EditTrack(*track_);
            break;
    }
}

void Host::EditTrack(AGITrack& track) {
    const auto notes = track.Notes();
    const std::int32_t number = input_.Number();
    switch (input_.Below(10)) {
        case 0: Try([&] { track.Instrument(number); }); break;
        case 1: Try([&] { track.Muted(input_.Flag()); }); break;
        case 2: Try([&] { track.Visible(input_.Flag()); }); break;
        case 3: Try([&] { notes->Clear(); }); break;
        case 4: Try([&] { notes->Remove(number); }); break;
        case 5:
            if (note_) Try([&] { note_->Duration(number); });
            break;
        case 6:
            if (note_) Try([&] { note_->FreqDivisor(number); });
            break;
        case 7: Try([&] { note_ = notes->Item(number); }); break;
        default:
            Try([&] { note_ = notes->Add(input_.Number(), number, input_.Number(), number / 2 - 5); });
            break;
    }
}

/// Parts that outlive what they were taken from.
void Host::EditKeptParts() {
    switch (input_.Below(4)) {
        case 0:
            if (loops_) EditLoops(*loops_);
            break;
        case 1:
            if (cel_) EditCel(*cel_);
            break;
        case 2:
            if (track_) EditTrack(*track_);
            break;
        default:
            if (note_) Try([&] { note_->Attenuation(input_.Number()); });
            break;
    }
}

}  // namespace zorvex::fuzz
