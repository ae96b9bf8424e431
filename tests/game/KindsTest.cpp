// What views, pictures and sounds have in common, on each of them.
#include "tests/support/GameBuilder.h"
#include "zorvex/base/StringList.h"
#include "zorvex/game/AGIGame.h"
#include "zorvex/picture/AGIPictures.h"
#include "zorvex/platform/Media.h"
#include "zorvex/screen/AGIScreenObjects.h"
#include "zorvex/sound/AGISounds.h"
#include "zorvex/view/AGIViews.h"
#include "zorvex/vocab/AGIInventoryObjects.h"
#include "zorvex/vocab/AGIWordList.h"

#include <limits>
#include <thread>

namespace zorvex::test {
namespace {

template <class Resource>
class Kinds : public testing::Test {};

using AllKinds = testing::Types<AGIView, AGIPicture, AGISound>;
TYPED_TEST_SUITE(Kinds, AllKinds);

TYPED_TEST(Kinds, AFileNameBecomesAnIDOfSixtyFourCharacters) {
    const TempDir dir;
    TypeParam object;
    object.Export(dir.Native() + "/" + Repeated(35, "\xC3\xA9x"));
    EXPECT_EQ(object.ID(), Repeated(32, "\xC3\xA9x"));
    object.Import(dir.File(Repeated(35, "\xC3\xA9x")));
    EXPECT_EQ(object.ID(), Repeated(32, "\xC3\xA9x"));
}

/// A game in a directory with two resources of each kind, open until the end of the scope.
class GameOfKinds {
  public:
    GameOfKinds() {
        GameBuilder builder;
        builder.Add(rtLogic, 0, SmallestLogic());
        for (const AGIResType type : {rtPicture, rtSound, rtView}) {
            for (std::size_t number = 1; number <= 2; ++number)
                builder.Add(type, static_cast<int>(number), SampleResource(type, number));
        }
        builder.WriteTo(dir);
        game.OpenGameDIR(dir.Path());
    }
    void Reopen() {
        game.CloseGame();
        game.OpenGameZVG(dir.File("AGI.zvg"));
    }
    template <class Resource>
    std::shared_ptr<Resource> Get(int number) {
        if constexpr (std::is_same_v<Resource, AGIView>) {
            return game.Views().Item(number);
        } else if constexpr (std::is_same_v<Resource, AGIPicture>) {
            return game.Pictures().Item(number);
        } else {
            return game.Sounds().Item(number);
        }
    }

    TempDir dir;
    AGIGame game;
};

TYPED_TEST(Kinds, AnImportInAGameWaitsToBeSaved) {
    GameOfKinds game;
    auto object = game.Get<TypeParam>(1);
    TypeParam source;
    source.Resource().SetAllData(SampleResource(object->ResType(), 5));
    source.Export(game.dir.File("fresh"));
    object->Load();
    object->Import(game.dir.File("fresh"));
    EXPECT_EQ(Face(*object), "fresh loaded dirty");
    object->Save();
    EXPECT_FALSE(object->IsDirty());

    const std::string taken = game.Get<TypeParam>(2)->ID();
    source.Export(game.dir.File(taken));
    object->Import(game.dir.File(taken));
    EXPECT_EQ(object->ID(), "fresh") << "the name is that of another";
    const ByteArray bytes = object->AllData();
    const std::string face = Face(*object);
    EXPECT_ERROR(524, object->Import(game.dir.File("missing")));
    EXPECT_ERROR(604, object->Import(""));
    EXPECT_EQ(Face(*object), face) << "as it was";
    EXPECT_EQ(object->AllData(), bytes);
    object->Unload();
    const std::string unloaded = Face(*object);
    EXPECT_ERROR(524, object->Import(game.dir.File("missing")));
    EXPECT_EQ(Face(*object), unloaded);

    object.reset();
    game.Reopen();
    object = game.Get<TypeParam>(1);
    object->Load();
    EXPECT_EQ(object->ID(), "fresh");
    EXPECT_EQ(object->AllData(), bytes);
}

TYPED_TEST(Kinds, ReadingAndExportingInAGameSaveNothing) {
    GameOfKinds game;
    const auto object = game.Get<TypeParam>(1);
    object->Load();
    EXPECT_FALSE(object->IsDirty());
    TypeParam other;
    if constexpr (std::is_same_v<TypeParam, AGISound>) other.Track(1)->Notes()->Add(190, 30, 0);
    other.Export(game.dir.File("other"));
    const ByteArray changed = other.AllData();  // in the form that a save gives them
    object->SetData(changed);
    if constexpr (std::is_same_v<TypeParam, AGIView>) object->Loops();
    if constexpr (std::is_same_v<TypeParam, AGISound>) {
        object->Track(0)->Muted(true);
        object->Length();
        object->MIDIData();
        object->Export(game.dir.File("out.ass"), sfScript);
    }
    object->Load();
    object->Export(game.dir.File("out"));
    EXPECT_TRUE(object->DataDirty());
    EXPECT_EQ(object->AllData(), changed);
    if constexpr (std::is_same_v<TypeParam, AGISound>) {
        EXPECT_TRUE(object->Track(0)->Muted()) << "settings stay as well";
    }
    object->Save();
    EXPECT_FALSE(object->IsDirty());
    object->Unload();
    object->Load();
    EXPECT_EQ(object->AllData(), changed);
}

TYPED_TEST(Kinds, ASaveWritesEachFileThatIsAnother) {
    const TempDir dir;
    TypeParam object;
    object.Resource().SetAllData(SampleResource(object.ResType(), 3));
    object.Save(dir.File("first"));
    EXPECT_FALSE(object.IsDirty());
    object.Save(dir.File("second"));
    EXPECT_EQ(dir.Read("second"), dir.Read("first"));
    dir.Remove("second");
    object.Save(dir.Native() + "/second");
    EXPECT_FALSE(dir.Exists("second")) << "it has come from there and has not changed";
    if constexpr (std::is_same_v<TypeParam, AGISound>) {
        object.Save(dir.File("tune.ass"));
        EXPECT_TRUE(dir.Exists("tune.ass"));
    }
}

TEST(KindsInGames, ListsGivenToAGameWaitToBeSaved) {
    GameOfKinds game;
    AGIWordList words;
    words.NewWords();
    words.AddWord("lamp", 20);
    words.Description("of the cellar");
    words.Save(game.dir.File("words"));
    AGIInventoryObjects items;
    items.NewObjects();
    items.Add("lamp", 3);
    items.Description("of the sailor");
    items.Save(game.dir.File("items"));
    game.game.VocabularyWords()->SetWords(words);
    game.game.InventoryObjects()->SetObjects(items);
    EXPECT_TRUE(game.game.VocabularyWords()->IsDirty());
    EXPECT_TRUE(game.game.InventoryObjects()->IsDirty());
    game.game.VocabularyWords()->Save();
    game.game.InventoryObjects()->Save();
    game.Reopen();
    EXPECT_TRUE(game.game.VocabularyWords()->WordExists("lamp"));
    EXPECT_EQ(game.game.VocabularyWords()->Description(), "of the cellar");
    EXPECT_EQ(game.game.InventoryObjects()->Item(1)->ItemName(), "lamp");
    EXPECT_EQ(game.game.InventoryObjects()->Description(), "of the sailor");
}

TEST(KindsInGames, ListsThatCannotBeReadCanBeBegunAnew) {
    GameOfKinds game;
    for (const bool clear : {true, false}) {
        game.game.CloseGame();
        game.dir.Write("OBJECT", Bytes("scrap"));
        RaisedId([&] { game.game.OpenGameZVG(game.dir.File("AGI.zvg")); });  // with warnings
        AGIInventoryObjects& items = *game.game.InventoryObjects();
        ASSERT_FALSE(items.Loaded());
        if (clear) {
            items.Clear();
        } else {
            items.NewObjects();
        }
        items.Add("lamp", 3);
        items.Save();
        game.Reopen();
        EXPECT_EQ(game.game.InventoryObjects()->Item(1)->Room(), 3);
        EXPECT_ERROR(642, game.game.InventoryObjects()->NewObjects());
        game.game.InventoryObjects()->Unload();
        EXPECT_ERROR(510, game.game.InventoryObjects()->NewObjects());
        EXPECT_ERROR(563, game.game.InventoryObjects()->Clear());
    }
}

TEST(KindsInGames, ErrorsTellTheirSource) {
    const TempDir dir;
    const std::string nowhere = dir.File("no\\such\\file");
    AGIWordList words;
    words.NewWords();
    words.AddWord("caf\x82", 20);
    AGIInventoryObjects items;
    items.NewObjects();
    for (int i = 0; i < 200; ++i)
        items.Add(std::string(200, 'x'), 1);
    AGISound sound;
    sound.Track(3)->Notes()->Add(1023, 1, 1);
    AGICel cel;
    const auto sourceOf = [](auto step) {
        const auto error = RaisedBy(step);
        return error ? error->Source() : "nothing raised";
    };
    EXPECT_EQ(sourceOf([&] { words.Save(dir.File("w")); }), "ZORVEX.AGIWordList");
    EXPECT_EQ(sourceOf([&] { items.Save(dir.File("i")); }), "ZORVEX.agiObjectFile");
    EXPECT_EQ(sourceOf([&] { items.Save(nowhere, 1); }), "ZORVEX.agiObjectFile");
    EXPECT_EQ(sourceOf([&] { sound.Save(dir.File("s")); }), "ZORVEX.agiSound");
    EXPECT_EQ(sourceOf([&] { AGISound().Export(nowhere, sfMIDI); }), "ZORVEX.agiSound");
    EXPECT_EQ(sourceOf([&] { cel.CelData(1, 0); }), "ZORVEX.AGICel");
}

// --- Numbers ---

/// Numbers that narrowing would make 0 or another number that is one.
constexpr std::array<AnyInteger, 6> tooLarge{256,
                                             65536,
                                             AnyInteger{1} << 32,
                                             (AnyInteger{1} << 32) + 1,
                                             AnyInteger{1} << 62,
                                             std::numeric_limits<AnyInteger>::max()};
constexpr std::array<AnyInteger, 3> tooSmall{-1, -256, std::numeric_limits<AnyInteger>::min()};

std::vector<AnyInteger> NoNumbers() {
    std::vector<AnyInteger> numbers(tooLarge.begin(), tooLarge.end());
    numbers.insert(numbers.end(), tooSmall.begin(), tooSmall.end());
    return numbers;
}

TEST(Numbers, ReachPicturesWhole) {
    AGIPicture picture;
    for (const AnyInteger number : NoNumbers()) {
        for (const auto& [x, y] : {std::pair(number, AnyInteger{0}), {AnyInteger{0}, number}}) {
            EXPECT_EQ(RaisedId([&, x = x, y = y] { picture.VisPixel(x, y); }), 621) << number;
            EXPECT_EQ(RaisedId([&, x = x, y = y] { picture.PixelPriority(x, y); }), 621) << number;
            EXPECT_EQ(RaisedId([&, x = x, y = y] { picture.ObjOnWater(x, y, 1); }), 621) << number;
        }
    }
    for (const AnyInteger number : tooLarge) {
        EXPECT_EQ(picture.PixelControl(159, 0, number), agRed);
        picture.DrawPos(number);
        EXPECT_EQ(picture.DrawPos(), 0);
    }
    for (const AnyInteger number : tooSmall) {
        EXPECT_EQ(RaisedId([&] { picture.PixelControl(0, 0, number); }), 6);
        EXPECT_EQ(RaisedId([&] { picture.PriBase(number); }), 6);
        picture.DrawPos(number);
        EXPECT_EQ(picture.DrawPos(), -1);
    }
}

TEST(Numbers, ReachViewsWhole) {
    AGIView view;
    AGILoops& loops = *view.Loops();
    AGICels& cels = *loops.Item(0)->Cels();
    const auto last = [](auto& list) { return list.Item(list.Count() - 1); };
    for (const AnyInteger number : NoNumbers()) {
        const auto cel = cels.Add(number, number, number);
        EXPECT_EQ(cel, last(cels)) << number;
        EXPECT_EQ(cel->Width(), 1);
        const auto loop = loops.Add(number);
        EXPECT_EQ(loop, last(loops)) << number;
        EXPECT_EQ(RaisedId([&] { cels.Item(number); }), 9);
        EXPECT_EQ(RaisedId([&] { cels.Remove(number); }), 9);
        EXPECT_EQ(RaisedId([&] { loops.Item(number); }), 9);
        EXPECT_EQ(RaisedId([&] { loops.Remove(number); }), 9);
        EXPECT_NE(RaisedId([&] { view.SetMirror(number, 0); }), 0);
        EXPECT_NE(RaisedId([&] { view.SetMirror(0, number); }), 0);
        EXPECT_EQ(RaisedId([&] { cels.Item(0)->Height(number); }), 532);
        EXPECT_EQ(RaisedId([&] { cels.Item(0)->CelData(number, 0); }), 9);
    }
    view.SetMirror(1, 0);
    const auto mirrored = view.Loops()->Item(1)->Cels()->Item(0);
    for (const AnyInteger number : NoNumbers())
        EXPECT_EQ(RaisedId([&] { mirrored->CelData(number, 0); }), 9) << number;
    EXPECT_EQ(RaisedId([] { CelPixels(1 << 16, 1 << 15); }), 7);
    EXPECT_EQ(RaisedId([] { CelPixels(1, tooLarge.back()); }), 7);
}

TEST(Numbers, ReachSoundsAndListsWhole) {
    AGISound sound;
    AGINotes& notes = *sound.Track(0)->Notes();
    AGIInventoryObjects items;
    items.NewObjects();
    AGIWordList words;
    words.NewWords();
    AGIScreenObjects object;
    for (const AnyInteger number : NoNumbers()) {
        EXPECT_EQ(RaisedId([&] { sound.Track(number); }), 9);
        EXPECT_EQ(RaisedId([&] { sound.TPQN(number); }), 380);
        EXPECT_EQ(RaisedId([&] { notes.Item(number); }), 9);
        EXPECT_EQ(RaisedId([&] { notes.Remove(number); }), 9);
        const auto note = notes.Add(1, 2, 3, number);
        EXPECT_EQ(note, notes.Item(notes.Count() - 1)) << number;
        EXPECT_EQ(RaisedId([&] { notes.Item(0)->Attenuation(number); }), 6);
        EXPECT_EQ(RaisedId([&] { sound.Track(0)->Instrument(number); }), 6);
        EXPECT_EQ(RaisedId([&] { items.Item(number); }), 9);
        EXPECT_EQ(RaisedId([&] { items.Item(0)->Room(number); }), 6);
        EXPECT_EQ(RaisedId([&] { items.Add("lamp", number); }), 6);
        EXPECT_EQ(RaisedId([&] { items.MaxScreenObjects(number); }), 6);
        EXPECT_EQ(RaisedId([&] { words.Item(number); }), 9);
        EXPECT_EQ(RaisedId([&] { words.Group(0)->Word(number); }), 574);
        EXPECT_EQ(RaisedId([&] { object.CurLoop(number); }), 6);
        if (number == 256) continue;  // may be a group
        EXPECT_FALSE(words.GroupExists(number));
        EXPECT_EQ(RaisedId([&] { words.AddWord("lamp", number); }), 581);
        EXPECT_EQ(RaisedId([&] { words.AddGroup(number); }), 575);
        EXPECT_EQ(RaisedId([&] { words.GroupN(number); }), 575);
        EXPECT_EQ(RaisedId([&] { words.RenumberGroup(1, number); }), 575);
    }
    EXPECT_EQ(items.Count() + words.WordCount(), 4);
}

// --- What the whole program shares ---

TEST(Shared, BitmapsAreReleasedWhereTheyWereMade) {
    const auto first = MakeMemoryBitmaps();
    const auto second = MakeMemoryBitmaps();
    const auto before = UseBitmaps(first);
    {
        AGICel cel;
        AGICel other;
        AGIPicture picture;
        const std::int32_t context = cel.CelBMP();
        picture.VisualBMP();
        UseBitmaps(second);
        EXPECT_EQ(other.CelBMP(), context) << "services number their handles by themselves";
        EXPECT_TRUE(Bitmaps().Look(picture.PriorityBMP()));
        EXPECT_EQ(first->LiveHandles(), 2U) << "of the cel; the picture's have moved";
        cel.Clear();
        EXPECT_EQ(first->LiveHandles(), 0U);
        EXPECT_TRUE(Bitmaps().Look(context)) << "it is another cel's here";
    }
    EXPECT_EQ(second->LiveHandles(), 0U);
    UseBitmaps(before);
}

TEST(Shared, TheFormThatPlaysSurvivesNewLibraries) {
    const auto before = UseMedia(MakeSilentMedia());
    int ended = 0;
    {
        AGISound sound;
        const auto subscription = sound.SoundComplete.Subscribe([&](bool) { ++ended; });
        sound.Track(0)->Notes()->Add(100, 2, 0);
        sound.PlaySound();
        {
            const AGIGame first;
            const AGIGame second;
            AGISound other;
            EXPECT_ERROR(629, other.PlaySound());
        }
        PumpNotices(std::chrono::milliseconds(5000));
        EXPECT_EQ(ended, 1);
        auto game = std::make_unique<AGIGame>();
        sound.PlaySound();
        game.reset();
        sound.StopSound();
    }
    PumpNotices();
    EXPECT_EQ(ended, 1);
    UseMedia(before);
}

/// Works with objects of this thread only, the way a host would.
std::string WorkOfAThread(int seed) {
    std::string seen;
    for (int round = 0; round < 40; ++round) {
        AGIView view;
        const auto cel = view.Loops()->Item(0)->Cels()->Item(0);
        cel->Width(1 + (seed + round) % 160);
        const auto look = Bitmaps().Look(cel->CelBMP());
        seen += look ? std::to_string(look->Header.Width) : "?";
        AGIPicture picture;
        picture.SetPictureData(ByteArray{0xF0, 1, 0xF8, 0, 0, 0xFF});
        seen += picture.VisualBMP() != 0 ? std::to_string(picture.VisPixel(9, 9)) : "?";
        StringList lines;
        lines.Add("one");
        AGISound sound;
        sound.Track(0)->Notes()->Add(100, 1, 0);
        if (RaisedId([&] { sound.PlaySound(); }) == 0) sound.StopSound();
        PumpNotices();
        seen += std::to_string(sound.MIDIData().size()) + " ";
    }
    return seen;
}

TEST(Shared, ThreadsWorkWithObjectsOfTheirOwn) {
    const auto before = UseMedia(MakeSilentMedia());
    const std::size_t handles = Bitmaps().LiveHandles();
    const std::string alone = WorkOfAThread(7);
    std::array<std::string, 4> seen;
    std::vector<std::thread> threads;
    for (std::string& one : seen)
        threads.emplace_back([&one] { one = WorkOfAThread(7); });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::string& one : seen)
        EXPECT_EQ(one, alone);
    EXPECT_EQ(Bitmaps().LiveHandles(), handles);
    UseMedia(before);
}

}  // namespace
}  // namespace zorvex::test
