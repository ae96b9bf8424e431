#include "tests/support/RealGames.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"
#include "zorvex/vocab/ObjectFile.h"
#include "zorvex/vocab/WordsFile.h"

namespace zorvex::test {

TEST(RealGamesVocabulary, WordsAndItemsAreThoseExpected) {
    SKIP_WITHOUT_GAMES();
    for (const std::string& game : RealGames()) {
        SCOPED_TRACE(game);
        const std::string directory = RealGame(game);
        const auto expected = ExpectedOf(game);

        AGIWordList words;
        words.Load(directory + "/WORDS.TOK");
        auto foundWords = nlohmann::json::array();
        for (const AGIWord& word : words)
            foundWords.push_back({word.WordText, word.Group});
        EXPECT_EQ(foundWords, expected["words"]);
        const auto decoded = DecodeWordsFile(Files().Read(words.ResFile()));
        EXPECT_EQ(DecodeWordsFile(EncodeWordsFile(*decoded)), decoded);

        AGIInventoryObjects items;
        items.Load(directory + "/OBJECT");
        const ByteArray bytes = Files().Read(items.ResFile());
        EXPECT_EQ(EncodeObjectFile(*DecodeObjectFile(bytes)), bytes);
        auto foundItems = nlohmann::json::array();
        for (const auto& item : items)
            foundItems.push_back({item->ItemName(), item->Room()});
        EXPECT_EQ(foundItems, expected["objects"]["items"]);
        EXPECT_EQ(items.MaxScreenObjects(), expected["objects"]["maxScreenObjects"]);
        EXPECT_EQ(items.Encrypted(), expected["objects"]["encrypted"]);
        EXPECT_EQ(items.AmigaOBJ(), expected["objects"]["amiga"]);
    }
}

}  // namespace zorvex::test
