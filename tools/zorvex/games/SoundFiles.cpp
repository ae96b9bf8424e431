#include "tools/zorvex/games/SoundFiles.h"

#include "tools/zorvex/console/Command.h"
#include "tools/zorvex/games/Resources.h"

namespace zorvex::tool {

namespace {

/// The samples and sequences, which Import does not take: the first word is 1 or 2.
bool IsIIgs(const ByteArray& bytes) {
    return bytes.size() >= 2 && bytes[1] == 0 && (bytes[0] == 1 || bytes[0] == 2);
}

}  // namespace

std::shared_ptr<AGISound> SoundOfFile(const std::string& path) {
    const ByteArray bytes = ReadBytes(path);
    auto sound = std::make_shared<AGISound>();
    try {
        if (IsIIgs(bytes)) {
            sound->SetData(bytes);
            sound->Load();
        } else {
            sound->Import(path);
            sound->Track(0);
        }
    } catch (const Error& error) {
        std::string where = path;
        if (sound->ImportErrorLine() > 0) where += ":" + std::to_string(sound->ImportErrorLine());
        throw Error(error.Number(), error.Source(), where + ": " + error.Description());
    }
    return sound;
}

SoundSource::SoundSource(const std::string& path) {
    if (NamesGame(path)) {
        game_ = std::make_unique<OpenedGame>(path, Access::Look);
    } else {
        file_ = SoundOfFile(path);
    }
}

std::shared_ptr<AGISound> SoundSource::Sound(const std::optional<std::uint8_t>& number) const {
    if (!IsGame()) return file_;
    if (!number) throw UsageError("which sound of the game? Give its number");
    return game_->Game().Sounds().Item(*number);
}

std::vector<std::shared_ptr<AGISound>> SoundSource::All() const {
    if (!IsGame()) return {file_};
    std::vector<std::shared_ptr<AGISound>> sounds;
    for (const auto& member : ByNumber(rtSound))
        sounds.push_back(std::static_pointer_cast<AGISound>(member));
    return sounds;
}

}  // namespace zorvex::tool
