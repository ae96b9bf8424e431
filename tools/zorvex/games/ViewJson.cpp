#include "tools/zorvex/games/ViewJson.h"

#include "tools/zorvex/console/Console.h"
#include "tools/zorvex/games/CelImport.h"
#include "tools/zorvex/games/Resources.h"
#include "zorvex/base/CodePage.h"
#include "zorvex/base/Text.h"

namespace zorvex::tool {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t maxDescription = 255;
constexpr char32_t noBreakSpace = 0xA0;
constexpr std::string_view digits = "0123456789ABCDEF";

// --- Text ---

/// Game text as JSON text, one character a byte and none for two bytes, so that it can be read back.
std::string JsonTextOf(std::string_view gameText) {
    std::string text;
    for (const char character : gameText) {
        const auto byte = static_cast<std::uint8_t>(character);
        AppendCharacter(text, byte < 128 ? byte : byte == 255 ? noBreakSpace : CodePageCharacter(byte));
    }
    return text;
}

std::string GameTextOf(std::string_view text) {
    std::string gameText;
    while (!text.empty()) {
        const char32_t character = TakeCharacter(text);
        const std::uint8_t byte = character == noBreakSpace ? std::uint8_t{255}
                                  : character < 128         ? static_cast<std::uint8_t>(character)
                                                            : CharToByte(character);
        gameText += static_cast<char>(byte);
    }
    return gameText;
}

// --- Writing ---

Json RowsOf(const AGICel& cel) {
    Json rows = Json::array();
    const CelPixels pixels = cel.AllCelData();
    for (std::int32_t y = 0; y < pixels.Height(); ++y) {
        std::string row;
        for (const AGIColors color : pixels.Row(y))
            row += digits[color];
        rows.push_back(std::move(row));
    }
    return rows;
}

/// The JSON of a view; `addPixels(json, cel, loop number, cel number)` says what the cel looks like.
template <class AddPixels>
Json ViewTo(AGIView& view, AddPixels addPixels) {
    Json json{{"description", JsonTextOf(view.ViewDescription())}, {"loops", Json::array()}};
    for (const auto& loop : *view.Loops()) {
        const bool isMirror = loop->Mirrored() && loop->MirrorLoop() < loop->Index();
        Json item{{"mirrorOf", isMirror ? Json(loop->MirrorLoop()) : Json()}, {"cels", Json::array()}};
        const std::shared_ptr<AGICels> cels = loop->Cels();
        for (std::int32_t i = 0; i < cels->Count(); ++i) {
            const std::shared_ptr<AGICel> cel = cels->Item(i);
            Json cell{{"width", cel->Width()},
                      {"height", cel->Height()},
                      {"transparentColor", int{cel->TransColor()}}};
            addPixels(cell, *cel, loop->Index(), i);
            item["cels"].push_back(std::move(cell));
        }
        json["loops"].push_back(std::move(item));
    }
    return json;
}

// --- Reading ---

[[noreturn]] void RaiseAt(const std::string& place, const std::string& text) {
    RaiseText(5, "zorvex", place + ": " + text);
}

const Json& Array(const Json& object, const char* key, const std::string& place) {
    if (!object.is_object() || !object.contains(key) || !object[key].is_array()) {
        RaiseAt(place, std::string("\"") + key + "\" must be there as a list");
    }
    return object[key];
}

/// A whole number in a range, or nothing where the key is absent or null.
std::optional<std::int32_t> Number(const Json& object, const char* key, std::int32_t least, std::int32_t most,
                                   const std::string& place) {
    if (!object.contains(key) || object[key].is_null()) return std::nullopt;
    const Json& value = object[key];
    if (!value.is_number_integer() || value < least || value > most) {
        RaiseAt(place, std::string("\"") + key + "\" must be a whole number from " + std::to_string(least) +
                           " to " + std::to_string(most));
    }
    return value.get<std::int32_t>();
}

/// Runs a step of the library and tells the place when it fails.
template <class Step>
void TellPlace(const std::string& place, Step step) {
    try {
        step();
    } catch (const Error& error) {
        throw Error(error.Number(), error.Source(), place + ": " + error.Description());
    }
}

CelPixels PixelsOf(const Json& rows, const std::string& place) {
    if (rows.empty() || !rows[0].is_string()) RaiseAt(place, "\"rows\" must hold texts");
    const std::size_t width = rows[0].get<std::string>().size();
    if (width < 1 || width > AGICel::MaxWidth || rows.size() > AGICel::MaxHeight) {
        RaiseAt(place, "a cel is 1 to 160 pixels wide and 1 to 168 high");
    }
    CelPixels pixels(static_cast<std::int32_t>(width), static_cast<std::int32_t>(rows.size()));
    for (std::int32_t y = 0; y < pixels.Height(); ++y) {
        const Json& row = rows[static_cast<std::size_t>(y)];
        const std::string text = row.is_string() ? UpperCase(row.get<std::string>()) : std::string();
        if (text.size() != width || text.find_first_not_of(digits) != std::string::npos) {
            RaiseAt(place,
                    "row " + std::to_string(y) + " must be " + std::to_string(width) + " hexadecimal digits");
        }
        std::ranges::transform(text, pixels.Row(y).begin(),
                               [](char digit) { return static_cast<AGIColors>(digits.find(digit)); });
    }
    return pixels;
}

/// One reading of a view's JSON.
class ViewReader {
  public:
    ViewReader(const Json& json, const fs::path& directory) : json_(json), directory_(directory) {}

    std::unique_ptr<AGIView> Read() {
        const Json& loops = Array(json_, "loops", "view");
        if (loops.empty() || loops.size() > AGILoops::MaxLoops) RaiseAt("view", "a view has 1 to 255 loops");
        across_ = static_cast<std::size_t>(Number(json_, "pixelWidth", 1, 16, "view").value_or(1));
        for (std::size_t i = 1; i < loops.size(); ++i)
            view_->Loops()->Add();
        for (std::size_t i = 0; i < loops.size(); ++i) {
            if (MirrorOf(i)) continue;
            AGILoop loop;
            ReadCels(i, loop);
            view_->Loops()->Item(static_cast<std::int32_t>(i))->CopyLoop(loop);
        }
        for (std::size_t i = 0; i < loops.size(); ++i) {
            if (const auto source = MirrorOf(i)) MakeMirror(i, *source);
        }
        ReadDescription();
        return std::move(view_);
    }

  private:
    static std::string Place(std::size_t loop) { return "loop " + std::to_string(loop); }

    std::optional<std::int32_t> MirrorOf(std::size_t loop) const {
        const auto last = static_cast<std::int32_t>(json_["loops"].size()) - 1;
        return Number(json_["loops"][loop], "mirrorOf", 0, last, Place(loop));
    }

    void ReadCels(std::size_t number, AGILoop& loop) const {
        std::size_t i = 0;
        for (const Json& cel : Array(json_["loops"][number], "cels", Place(number))) {
            const std::string place = Place(number) + ", cel " + std::to_string(i++);
            if (!cel.is_object()) RaiseAt(place, "a cel must be an object");
            TellPlace(place, [&] { AddCel(cel, *loop.Cels(), place); });
        }
    }

    void AddCel(const Json& cel, AGICels& cels, const std::string& place) const {
        const auto transparent = Number(cel, "transparentColor", 0, 15, place);
        ImportedCel imported;
        if (cel.contains("rows")) {
            imported.Pixels = PixelsOf(Array(cel, "rows", place), place);
            imported.TransColor = static_cast<AGIColors>(transparent.value_or(0));
            RequireSize(cel, imported.Pixels, place);
        } else {
            if (!cel.contains("file") || !cel["file"].is_string())
                RaiseAt(place, "\"rows\" or \"file\" must be there");
            const ReadImage image =
                DecodePng(ReadBytes((directory_ / cel["file"].get<std::string>()).string()));
            std::optional<AGIColors> wanted;
            if (transparent) wanted = static_cast<AGIColors>(*transparent);
            imported = CelOfImage(image, across_, wanted);
        }
        const CelPixels& pixels = imported.Pixels;
        cels.Add(255, pixels.Width(), pixels.Height(), imported.TransColor)->AllCelData(pixels);
    }

    static void RequireSize(const Json& cel, const CelPixels& pixels, const std::string& place) {
        if (Number(cel, "width", 1, AGICel::MaxWidth, place).value_or(pixels.Width()) != pixels.Width() ||
            Number(cel, "height", 1, AGICel::MaxHeight, place).value_or(pixels.Height()) != pixels.Height()) {
            RaiseAt(place, "\"width\" and \"height\" are not those of the rows");
        }
    }

    void MakeMirror(std::size_t number, std::int32_t source) const {
        const auto target = static_cast<std::int32_t>(number);
        TellPlace(Place(number), [&] { view_->SetMirror(target, source); });
        if (!json_["loops"][number].contains("cels") || json_["loops"][number]["cels"].empty()) return;
        bool same = false;
        try {
            AGILoop own;
            ReadCels(number, own);
            same = ShowTheSame(*own.Cels(), *view_->Loops()->Item(target)->Cels());
        } catch (const Error&) {  // what cannot be read is not the same
        }
        if (same) return;
        SayWarning(Place(number) + " mirrors loop " + std::to_string(source) +
                   "; cels of its own that differ are not taken");
    }

    static bool ShowTheSame(const AGICels& left, const AGICels& right) {
        if (left.Count() != right.Count()) return false;
        for (std::int32_t i = 0; i < left.Count(); ++i) {
            if (left.Item(i)->TransColor() != right.Item(i)->TransColor()) return false;
            if (!(left.Item(i)->AllCelData() == right.Item(i)->AllCelData())) return false;
        }
        return true;
    }

    void ReadDescription() const {
        if (!json_.contains("description") || json_["description"].is_null()) return;
        if (!json_["description"].is_string()) RaiseAt("view", "\"description\" must be a text");
        const std::string text = GameTextOf(json_["description"].get<std::string>());
        if (text.size() > maxDescription) RaiseAt("view", "a description has at most 255 characters");
        view_->ViewDescription(text);
    }

    const Json& json_;
    const fs::path& directory_;
    std::size_t across_ = 1;
    std::unique_ptr<AGIView> view_ = std::make_unique<AGIView>();
};

std::string ThreeDigits(std::int32_t number) {
    const std::string text = std::to_string(number);
    return std::string(3 - std::min<std::size_t>(3, text.size()), '0') + text;
}

}  // namespace

std::string CelFileName(std::int32_t loop, std::int32_t cel) {
    return "loop." + ThreeDigits(loop) + ".cel." + ThreeDigits(cel) + ".png";
}

Json JsonOfView(AGIView& view) {
    return ViewTo(
        view, [](Json& json, const AGICel& cel, std::int32_t, std::int32_t) { json["rows"] = RowsOf(cel); });
}

Json CelListOf(AGIView& view, std::size_t across) {
    Json json = ViewTo(view, [](Json& cell, const AGICel&, std::int32_t loop, std::int32_t cel) {
        cell["file"] = CelFileName(loop, cel);
    });
    json["pixelWidth"] = across;
    return json;
}

std::unique_ptr<AGIView> ViewFromJson(const Json& json, const fs::path& directory) {
    return ViewReader(json, directory).Read();
}

Json GuessedCelList(const fs::path& directory, std::size_t across) {
    Json json{{"pixelWidth", across}, {"loops", Json::array()}};
    for (std::int32_t loop = 0; fs::exists(directory / CelFileName(loop, 0)); ++loop) {
        Json item{{"cels", Json::array()}};
        for (std::int32_t cel = 0; fs::exists(directory / CelFileName(loop, cel)); ++cel) {
            item["cels"].push_back({{"file", CelFileName(loop, cel)}});
        }
        json["loops"].push_back(std::move(item));
    }
    return json;
}

}  // namespace zorvex::tool
