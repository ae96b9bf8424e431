#include "zorvex/decompiler/LogDecode.h"

#include "zorvex/base/CodePage.h"
#include "zorvex/base/StringList.h"
#include "zorvex/decompiler/DecodeRun.h"
#include "zorvex/language/AGILogicSourceSettings.h"
#include "zorvex/language/MessageSection.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/ResourceCollection.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"

namespace zorvex {

namespace {

class GameDecodeNames : public DecodeNames {
  public:
    std::optional<std::string> ResourceID(AGIResType type, std::uint8_t number) const override {
        const ResourceCollectionBase* collection = CollectionOf(type);
        if (collection == nullptr || !collection->Exists(number)) return std::nullopt;
        return TextToGame(collection->Find(number)->ID());
    }
    bool HasVocabulary() const override { return Library().GameLoaded; }
    std::optional<std::string> GroupName(std::int32_t group) const override {
        const AGIWordList* words = Library().VocabularyWords.get();
        if (words == nullptr || !words->Loaded() || !words->GroupExists(group)) return std::nullopt;
        return words->GroupN(group)->GroupName();
    }
    bool HasItems() const override {
        const LibraryState& library = Library();
        return library.GameLoaded && library.InventoryObjects && library.InventoryObjects->Loaded();
    }
    std::optional<ItemName> Item(std::uint8_t number) const override {
        const AGIInventoryObjects& items = *Library().InventoryObjects;
        if (number >= items.Count()) return std::nullopt;
        const std::shared_ptr<AGIInventoryItem> item = items.Item(number);
        return ItemName{item->ItemName(), item->Unique()};
    }
};

}  // namespace

DecodeSettings PresentDecodeSettings() {
    const LibraryState& library = Library();
    const AGILogicSourceSettings builtIn;
    const AGILogicSourceSettings& present =
        library.LogicSourceSettings ? *library.LogicSourceSettings : builtIn;
    DecodeSettings settings;
    settings.ErrorLevel = present.ErrorLevel();
    settings.SpecialSyntax = present.SpecialSyntax();
    settings.ElseAsGoto = present.ElseAsGoto();
    settings.ShowAllMessages = present.ShowAllMessages();
    settings.NamesAsText = present.ReservedAsText() && present.UseReservedNames();
    settings.WrapWidth = present.WrapWidth();
    settings.InterpreterVersion = library.InterpreterVersion;
    return settings;
}

const DecodeNames& PresentDecodeNames() {
    static const GameDecodeNames names;
    return names;
}

std::string TextOfLiteral(std::string_view literal) {
    ByteArray bytes;
    AppendMessageBytes(literal.substr(1, literal.size() - 2), bytes);
    return {bytes.begin(), bytes.end()};
}

DecodedLogic DecodeLogic(ByteView data, const DecodeSettings& settings, const DecodeNames& names) {
    return DecodeRun(data, settings, names).Run();
}

std::shared_ptr<StringList> DecodeLogic(ByteView data) {
    auto text = std::make_shared<StringList>();
    text->Assign(DecodeLogic(data, PresentDecodeSettings(), PresentDecodeNames()).Lines);
    return text;
}

}  // namespace zorvex
