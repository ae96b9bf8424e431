// Thousands of random edits, of logics with their source files too, watched by a model in memory and a reader
// of its own.
#include <cstdlib>
#include <random>

#include "tests/support/StorageTest.h"

namespace zorvex::test {
namespace {

/// ZORVEX_STORM gives the number of edits of each generation.
int EditCount() {
    const char* wanted = std::getenv("ZORVEX_STORM");
    return wanted == nullptr ? 1500 : std::atoi(wanted);
}

class Storm {
  public:
    Storm(const std::string& v3ID, unsigned seed) : id_(v3ID), random_(seed) {
        GameBuilder builder(id_);
        builder.Add(rtLogic, 0, SmallestLogic()).WriteInto(gameDir);
        Files().MakeDirectory(gameDir + "src");
        game_.OpenGameDIR(gameDir);
        Compile(*game_.Logics().Item(0));
    }

    void Run(int edits) {
        for (int n = 1; n <= edits && !testing::Test::HasFailure(); ++n) {
            Edit();
            if (n % 100 == 0) Check(n);
        }
    }

  private:
    std::size_t Pick(std::size_t below) { return random_() % below; }

    void Edit() {
        const std::array types{rtLogic, rtPicture, rtSound, rtView};
        const AGIResType type = types[Pick(4)];
        const auto number = static_cast<std::uint8_t>(Pick(24));
        ResourceCollectionBase& collection = *CollectionOf(type);
        if (!collection.Exists(number)) {
            Add(type, number);
        } else if (Pick(4) == 0) {
            collection.Remove(number);
            model_.erase({type, number});
        } else if (const auto target = static_cast<std::uint8_t>(Pick(24));
                   Pick(3) == 0 && !collection.Exists(target)) {
            collection.Renumber(number, target);
            auto entry = model_.extract({type, number});
            entry.key().second = target;
            model_.insert(std::move(entry));
            if (type == rtLogic) sources_[target] = sources_[number];
        } else {
            Save(*collection.Find(number));
        }
    }

    void Add(AGIResType type, std::uint8_t number) {
        if (type == rtLogic) game_.Logics().Add(number);
        if (type == rtPicture) game_.Pictures().Add(number);
        if (type == rtSound) game_.Sounds().Add(number);
        if (type == rtView) game_.Views().Add(number);
        Save(*CollectionOf(type)->Find(number));
    }

    void Save(GameResource& resource) {
        if (resource.ResType() == rtLogic) return Compile(static_cast<AGILogic&>(resource));
        const ByteArray bytes = SampleResource(resource.ResType(), Pick(Pick(8) == 0 ? 30000 : 600));
        resource.Resource().SetAllData(bytes);
        resource.Resource().Save();
        resource.Unload();
        model_[{resource.ResType(), resource.Number()}] = bytes;
    }

    void Compile(AGILogic& logic) {
        std::string source;
        for (std::size_t n = Pick(Pick(8) == 0 ? 900 : 30); n > 0; --n)
            source += "v" + std::to_string(n % 256) + " = " + std::to_string(Pick(256)) + ";\r\n";
        logic.Load();
        logic.SourceText(source + "return();");
        logic.SaveSource();
        logic.Compile();
        model_[{rtLogic, logic.Number()}] = logic.AllData();
        sources_[logic.Number()] = logic.SourceText();
        logic.Unload();
    }

    void Check(int edits) {
        EXPECT_EQ(Difference(ReadModel(gameDir, id_), model_), "") << "after " << edits;
        game_.CloseGame();
        game_.OpenGameZVG(gameDir + (id_.empty() ? "AGI.zvg" : id_ + ".zvg"));
        EXPECT_EQ(Difference(LoadedModel(), model_), "") << "after " << edits;
        for (const auto& logic : game_.Logics()) {
            logic->Load();
            EXPECT_EQ(logic->SourceText(), sources_[logic->Number()]) << "after " << edits;
            EXPECT_TRUE(logic->Compiled()) << logic->ID() << " after " << edits;
            logic->Unload();
        }
    }

    std::string id_;
    std::mt19937 random_;
    AGIGame game_;
    Model model_;
    std::map<int, std::string> sources_;
};

TEST(Storm, EditsNeverLoseOrOverlapAResource) {
    for (const std::string id : {"", "TST"}) {
        const MemoryFiles files;
        Storm(id, 7).Run(EditCount());
    }
}

}  // namespace
}  // namespace zorvex::test
