#include "zorvex/analysis/VerifyGame.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "zorvex/base/Error.h"
#include "zorvex/base/Event.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/Text.h"
#include "zorvex/decompiler/LogDecode.h"
#include "zorvex/game/AGIGame.h"
#include "zorvex/language/AGILogicSourceSettings.h"
#include "zorvex/logic/AGILogics.h"
#include "zorvex/logic/LogCompile.h"
#include "zorvex/picture/AGIPictures.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/sound/AGISounds.h"
#include "zorvex/state/AGIGameEvents.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/view/AGIViews.h"

namespace zorvex {

namespace {

/// The compiler's warnings of what stops an interpreter: commands on resources that the game lacks, divisions
/// by zero and the like.
constexpr std::array stoppers{5010, 5013, 5014, 5015, 5024, 5030, 5037, 5040, 5053, 5061,
                              5064, 5076, 5084, 5085, 5086, 5089, 5091, 5103, 5107};

constexpr std::int32_t undrawable = 8;  // from this error level on a picture is not drawn to its end

std::int32_t NumberOf(const Error& error) {
    return error.Id() > 0 && error.Id() < 6000 ? error.Id() : error.Number();
}

/// Gives the compiler the settings of a check, and the host its own back.
class CheckSettings {
  public:
    explicit CheckSettings(AGIGame& game)
        : settings_(game.LogicSourceSettings()),
          level_(settings_->ErrorLevel()),
          names_(settings_->UseReservedNames()) {
        settings_->ErrorLevel(leMedium);
    }
    CheckSettings(const CheckSettings&) = delete;
    CheckSettings& operator=(const CheckSettings&) = delete;
    ~CheckSettings() {
        Attempt([&] {
            settings_->ErrorLevel(level_);
            UseNames(names_);
        });
    }

    /// What the decompiler writes uses reserved names whatever the game's own setting is.
    void FitTo(const AGILogic& logic) { UseNames(names_ || !FileExists(logic.SourceFile())); }

  private:
    void UseNames(bool on) {
        if (settings_->UseReservedNames() != on) settings_->UseReservedNames(on);
    }

    std::shared_ptr<AGILogicSourceSettings> settings_;
    LogicErrorLevel level_;
    bool names_;
};

/// A message of the compiler, "number|text|line|module" of a warning or "line|module|text" of an error; texts
/// and the names of modules may hold bars of their own in the first and the last field only.
struct SourceMessage {
    std::int32_t number = 0;
    std::int32_t line = 0;
    std::string text;
};

SourceMessage OfWarning(std::string_view warning) {
    const std::size_t beforeModule = warning.rfind('|');
    const std::size_t beforeLine = beforeModule == 0 ? 0 : warning.rfind('|', beforeModule - 1);
    const std::size_t afterNumber = warning.find('|');
    return {static_cast<std::int32_t>(Val(warning)),
            static_cast<std::int32_t>(Val(warning.substr(beforeLine + 1, beforeModule - beforeLine - 1))),
            std::string(warning.substr(afterNumber + 1, beforeLine - afterNumber - 1))};
}

SourceMessage OfError(const Error& error) {
    const std::string& description = error.Description();
    const std::size_t line = description.find('|');
    const std::size_t module = line == std::string::npos ? line : description.find('|', line + 1);
    if (module == std::string::npos) return {NumberOf(error), 0, description};
    const std::string text = description.substr(module + 1);
    return {static_cast<std::int32_t>(Val(text)), std::max(0, static_cast<std::int32_t>(Val(description))),
            text};
}

/// One run over a game.
class Verification {
  public:
    Verification(AGIGame& game, const VerifySettings& settings)
        : game_(game),
          settings_(settings),
          subscription_(game.GameEvents().LogCompWarning.Subscribe(
              [this](const std::string& warning, std::uint8_t /*logic*/) {
                  warnings_.push_back(OfWarning(warning));
              })) {}

    std::vector<GameFault> Run() {
        for (const LoadIssue& issue : game_.LoadIssues())
            faults_.push_back({.IsError = true, .Text = issue.Text, .ErrorNumber = issue.ErrorNumber});
        if (!game_.Logics().Exists(0))
            faults_.push_back(
                {.IsError = true, .Text = "there is no logic 0, which an interpreter runs first"});
        const std::array<ResourceCollectionBase*, 4> kinds{&game_.Logics(), &game_.Pictures(),
                                                           &game_.Sounds(), &game_.Views()};
        for (const ResourceCollectionBase* kind : kinds)
            progress_.Total += static_cast<std::size_t>(kind->Count());
        CheckSettings compiler(game_);
        for (ResourceCollectionBase* kind : kinds) {
            for (std::int32_t number = 0; number < 256; ++number) {
                const std::shared_ptr<GameResource> member = kind->Find(number);
                if (!member) continue;
                if (settings_.Stop.stop_requested()) return std::move(faults_);
                Tell(*member);
                Check(*member, compiler);
            }
        }
        return std::move(faults_);
    }

  private:
    void Tell(const GameResource& resource) {
        progress_.Type = resource.ResType();
        progress_.Number = resource.Number();
        if (settings_.Progress) settings_.Progress(progress_);
        ++progress_.Done;
    }

    void Add(bool isError, const GameResource& resource, std::string text, std::int32_t number,
             std::int32_t line = 0) {
        faults_.push_back({isError, resource.ResType(), resource.Number(), std::move(text), number, line});
    }

    void Check(GameResource& resource, CheckSettings& compiler) {
        const bool wasLoaded = resource.Loaded();
        try {
            if (!wasLoaded) resource.Resource().Load();
            switch (resource.ResType()) {
                case rtLogic: CheckLogic(static_cast<AGILogic&>(resource), wasLoaded, compiler); break;
                case rtPicture: CheckPicture(static_cast<AGIPicture&>(resource), wasLoaded); break;
                default:
                    if (!wasLoaded) resource.Load();
                    break;
            }
        } catch (const Error& error) {
            const std::int32_t number = NumberOf(error);
            Add(true, resource, "error " + std::to_string(number) + ": " + error.Description(), number);
        }
        if (!wasLoaded && resource.Loaded()) resource.Unload();
    }

    void CheckPicture(AGIPicture& picture, bool wasLoaded) {
        if (!wasLoaded) picture.Load();
        const std::int32_t level = picture.BMPErrLevel();
        if (level == 0) return;
        const bool isError = level >= undrawable;
        Add(isError, picture,
            std::string(isError ? "the picture cannot be drawn to its end"
                                : "the picture has anomalies but can be drawn") +
                " (error level " + std::to_string(level) + ")",
            0);
    }

    /// The bytes must decompile; the source, or what was decompiled, must compile.
    void CheckLogic(AGILogic& logic, bool wasLoaded, CheckSettings& compiler) {
        DecodeLogic(logic.Resource().View(), PresentDecodeSettings(), PresentDecodeNames());
        compiler.FitTo(logic);
        if (!wasLoaded) logic.Load();
        warnings_.clear();
        // A logic that a host works on keeps its bytes.
        AGILogic copy;
        if (wasLoaded) copy.SetLogic(logic);
        const auto error = Attempt([&] { CompileLogic(wasLoaded ? copy : logic); });
        for (const SourceMessage& warning : warnings_) {
            // What may stop the interpreter stands perhaps where no player gets to.
            if (std::find(stoppers.begin(), stoppers.end(), warning.number) != stoppers.end())
                AddMessage(logic, warning);
        }
        // A source that does not compile is the author's trouble: the player has the bytes.
        if (error) AddMessage(logic, OfError(*error));
    }

    void AddMessage(const AGILogic& logic, const SourceMessage& message) {
        const std::string place = message.line > 0 ? "line " + std::to_string(message.line) + ": " : "";
        Add(false, logic, "source: " + place + message.text, message.number, message.line);
    }

    AGIGame& game_;
    const VerifySettings& settings_;
    BuildProgress progress_;
    std::vector<GameFault> faults_;
    std::vector<SourceMessage> warnings_;
    Subscription subscription_;
};

}  // namespace

std::string FaultPlace(AGIResType type, std::int32_t number) {
    if (type < rtLogic || type > rtView) return "game";
    return LowerCase(ResTypeNames[type]) + " " + std::to_string(number);
}

std::vector<GameFault> VerifyGame(AGIGame& game, const VerifySettings& settings) {
    return Verification(game, settings).Run();
}

}  // namespace zorvex
