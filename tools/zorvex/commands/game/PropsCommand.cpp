// zorvex props: the properties of a game.
#include <algorithm>
#include <array>
#include <cstdio>

#include "tools/zorvex/commands/Commands.h"
#include "tools/zorvex/console/Json.h"
#include "tools/zorvex/games/OpenedGame.h"
#include "zorvex/base/Text.h"

namespace zorvex::tool {

namespace {

struct PropsOptions {
    std::string Game;
    std::vector<std::string> Settings;
    bool Json = false;
};

void Declare(Declaration& command, PropsOptions& options) {
    DeclareGame(command, options.Game);
    command.Option("settings", options.Settings, "KEY to print one property, KEY=VALUE to set one");
    DeclareJson(command, options.Json);
}

/// A property: its name, how it is read, and how it is set (not at all for some).
struct Property {
    std::string_view name;
    std::string (*read)(AGIGame&);
    void (*write)(AGIGame&, const std::string&);
};

std::int32_t ToNumber(const std::string& value) {
    const auto number = ParseLong(value);
    if (!number) throw UsageError("'" + value + "' is no number");
    return *number;
}

bool ToBool(const std::string& value) {
    const auto flag = ParseBool(value);
    if (!flag) throw UsageError("'" + value + "' is neither True nor False");
    return *flag;
}

const std::array properties{
    Property{"id", [](AGIGame& game) { return game.GameID(); },
             [](AGIGame& game, const std::string& value) { game.GameID(value); }},
    Property{"interpreterVersion", [](AGIGame& game) { return game.InterpreterVersion(); }, nullptr},
    Property{"description", [](AGIGame& game) { return game.GameDescription(); },
             [](AGIGame& game, const std::string& value) { game.GameDescription(value); }},
    Property{"author", [](AGIGame& game) { return game.GameAuthor(); },
             [](AGIGame& game, const std::string& value) { game.GameAuthor(value); }},
    Property{"about", [](AGIGame& game) { return game.GameAbout(); },
             [](AGIGame& game, const std::string& value) { game.GameAbout(value); }},
    Property{"gameVersion", [](AGIGame& game) { return game.GameVersion(); },
             [](AGIGame& game, const std::string& value) { game.GameVersion(value); }},
    Property{"lastEdit", [](AGIGame& game) { return DateText(game.LastEdit()); }, nullptr},
    Property{"resourceDirectory", [](AGIGame& game) { return game.ResDirName(); },
             [](AGIGame& game, const std::string& value) { game.ResDirName(value); }},
    Property{"platformType", [](AGIGame& game) { return std::to_string(game.PlatformType()); },
             [](AGIGame& game, const std::string& value) { game.PlatformType(ToNumber(value)); }},
    Property{"platform", [](AGIGame& game) { return game.Platform(); },
             [](AGIGame& game, const std::string& value) { game.Platform(value); }},
    Property{"platformOptions", [](AGIGame& game) { return game.PlatformOpts(); },
             [](AGIGame& game, const std::string& value) { game.PlatformOpts(value); }},
    Property{"dosExecutable", [](AGIGame& game) { return game.DOSExec(); },
             [](AGIGame& game, const std::string& value) { game.DOSExec(value); }},
    Property{"useLE", [](AGIGame& game) { return std::string(BoolText(game.UseLE())); },
             [](AGIGame& game, const std::string& value) { game.UseLE(ToBool(value)); }},
    Property{
        "useReservedNames",
        [](AGIGame& game) { return std::string(BoolText(game.LogicSourceSettings()->UseReservedNames())); },
        [](AGIGame& game, const std::string& value) {
            game.LogicSourceSettings()->UseReservedNames(ToBool(value));
        }},
};

const Property& Find(const std::string& name) {
    for (const Property& property : properties) {
        if (EqualNoCase(property.name, name)) return property;
    }
    std::string names;
    for (const Property& property : properties)
        names += " " + std::string(property.name);
    throw UsageError("there is no property '" + name + "'; the properties are" + names);
}

struct Setting {
    const Property* property;
    std::string value;
    bool isSet;
};

Setting ParseSetting(const std::string& text) {
    const std::size_t equals = text.find('=');
    const bool isSet = equals != std::string::npos;
    const Property& property = Find(text.substr(0, equals));
    if (isSet && property.write == nullptr) {
        throw UsageError(std::string(property.name) + " cannot be set here" +
                         (property.name == "interpreterVersion" ? "; use zorvex convert" : ""));
    }
    return {&property, isSet ? text.substr(equals + 1) : "", isSet};
}

int Run(const PropsOptions& options) {
    std::vector<Setting> settings;
    for (const std::string& text : options.Settings)
        settings.push_back(ParseSetting(text));
    const bool changes =
        std::any_of(settings.begin(), settings.end(), [](const Setting& s) { return s.isSet; });
    OpenedGame opened(options.Game, changes ? Access::Change : Access::Look);
    AGIGame& game = opened.Game();
    Json shown = Json::object();
    for (const Setting& setting : settings) {
        if (setting.isSet) setting.property->write(game, setting.value);
        if (!setting.isSet) shown[std::string(setting.property->name)] = setting.property->read(game);
    }
    if (changes) game.SaveProperties();
    if (settings.empty()) {
        for (const Property& property : properties)
            shown[std::string(property.name)] = property.read(game);
    }
    if (options.Json) {
        PrintJson(shown);
    } else if (settings.size() == 1 && !changes) {
        std::printf("%s\n", settings.front().property->read(game).c_str());
    } else {
        for (const auto& [name, value] : shown.items()) {
            std::printf("%s=%s\n", name.c_str(), value.get<std::string>().c_str());
        }
    }
    return exitDone;
}

}  // namespace

void AddPropsCommand(CommandLine& line) {
    AddCommand<PropsOptions>(line,
                             {"props", "Prints or sets the properties of a game.",
                              "  zorvex props mygame                       all properties\n"
                              "  zorvex props mygame author                one of them\n"
                              "  zorvex props mygame author='A. Author'    sets it"},
                             Declare, Run);
}

}  // namespace zorvex::tool
