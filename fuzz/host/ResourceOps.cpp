// What the host does with resources as such, in a game and by themselves.
#include "fuzz/Check.h"
#include "fuzz/host/Host.h"

namespace zorvex::fuzz {

std::string Host::OutFile() {
    static const std::array<std::string, 16> names{outDir + "a.bin", outDir + "b.ass",
                                                   outDir + "c.mid", outDir + "d.wav",
                                                   outDir + "e.agw", outDir + "f.ago",
                                                   outDir + "g.lgc", outDir + "h.agv",
                                                   outDir + "a.bin", outDir + "b.ass",
                                                   outDir + "h.agv", "\\nowhere\\x",
                                                   "\\out",          "",
                                                   "/out/up.bin",    outDir + "WORDS.TOK"};
    return input_.Of(names);
}

// --- What is kept ---
Held& Host::Keep(Held held) {
    constexpr std::size_t most = 12;
    if (held_.size() >= most) held_.erase(held_.begin() + static_cast<std::ptrdiff_t>(input_.Below(most)));
    held_.push_back(std::move(held));
    return held_.back();
}

Held* Host::Pick(std::optional<AGIResType> type) {
    std::vector<Held*> fitting;
    for (Held& held : held_) {
        if (!type || held.Object->ResType() == *type) fitting.push_back(&held);
    }
    return fitting.empty() ? nullptr : fitting[input_.Byte() % fitting.size()];
}

std::optional<Key> Host::KeyOf(const Held& held) {
    if (held.Home != static_cast<int>(present_) || !held.Object->Attached() || !Present().IsOpen()) return {};
    return Key{held.Object->ResType(), held.Object->Number()};
}

void Host::NoteBytes(const Held& held) {
    const auto key = KeyOf(held);
    if (!key) return;
    Saved& saved = SavedOf(*key);
    saved.Bytes = {BytesOf(*held.Object)};
    saved.MayBeAbsent = false;
    if (saved.IDs.empty()) saved.IDs = {held.Object->ID()};
}

void Host::TakeMember() {
    const auto type = static_cast<AGIResType>(input_.Below(4));
    const ResourceCollectionBase& collection = CollectionIn(Game(), type);
    auto member = collection.Find(input_.ResourceNumber());
    if (!member && !collection.empty()) member = collection.Members()[input_.Byte() % collection.size()];
    if (!member) return;
    Held& held = Keep({member, static_cast<int>(present_)});
    if (input_.Below(4) != 0) Try([&] { held.Object->Load(); });
}

/// Asks every resource of the game what it is.
void Host::Walk() {
    for (const auto& logic : Game().Logics())
        Try([&] { logic->Compiled(); });
    for (const auto& picture : Game().Pictures())
        Try([&] { picture->SizeInVol(); });
    for (const auto& sound : Game().Sounds())
        Try([&] { sound->Length(); });
    for (const auto& view : Game().Views())
        Try([&] { view->Size(); });
}

// --- The collections ---
void Host::AddResource() {
    const auto type = static_cast<AGIResType>(input_.Below(4));
    const std::int32_t number = input_.ResourceNumber();
    Held* source = input_.Flag() ? Pick(type) : nullptr;
    GameResource* object = source != nullptr ? source->Object.get() : nullptr;
    const ResourceCollectionBase& collection = CollectionIn(Game(), type);
    const bool before = collection.Exists(number);
    std::shared_ptr<GameResource> added;
    const bool done = Try([&] {
        if (type == rtLogic) added = Game().Logics().Add(number, static_cast<AGILogic*>(object));
        if (type == rtPicture) added = Game().Pictures().Add(number, static_cast<AGIPicture*>(object));
        if (type == rtSound) added = Game().Sounds().Add(number, static_cast<AGISound*>(object));
        if (type == rtView) added = Game().Views().Add(number, static_cast<AGIView*>(object));
    });
    FUZZ_CHECK(done ? !before : before == collection.Exists(number));
    if (!done || !Present().IsOpen()) return;
    FUZZ_CHECK(added->Loaded() && added->InGame() && !added->DataDirty());
    const Held& held = Keep({added, static_cast<int>(present_)});
    NoteBytes(held);
    SavedOf({type, number}).IDs = {added->ID()};
}

void Host::RemoveResource() {
    const auto type = static_cast<AGIResType>(input_.Below(4));
    const std::int32_t number = input_.ResourceNumber();
    ResourceCollectionBase& collection = CollectionIn(Game(), type);
    if (!Try([&] { collection.Remove(number); })) return;
    FUZZ_CHECK(!collection.Exists(number));
    Present().OnDisk.Resources.erase({type, number});
}

void Host::RenumberResource() {
    const auto type = static_cast<AGIResType>(input_.Below(4));
    const std::int32_t from = input_.ResourceNumber();
    const std::int32_t to = input_.ResourceNumber();
    ResourceCollectionBase& collection = CollectionIn(Game(), type);
    if (!Try([&] { collection.Renumber(from, to); }) || from == to) return;
    FUZZ_CHECK(!collection.Exists(from) && collection.Exists(to));
    auto entry = Present().OnDisk.Resources.extract({type, from});
    if (entry.empty()) return;
    entry.key().second = to;
    entry.mapped().IDs = {collection.Find(to)->ID()};
    Present().OnDisk.Resources.insert(std::move(entry));
}

void Host::NewObject() {
    switch (input_.Below(4)) {
        case 0: Keep({std::make_shared<AGILogic>()}); break;
        case 1: Keep({std::make_shared<AGIPicture>()}); break;
        case 2: Keep({std::make_shared<AGISound>()}); break;
        default: Keep({std::make_shared<AGIView>()}); break;
    }
}

// --- One resource ---
void Host::EditResource() {
    Held* held = Pick();
    if (held == nullptr) return TakeMember();
    // What a handler does may move the list of what is kept.
    Held copy = *held;
    GameResource& resource = *copy.Object;
    switch (input_.Below(20)) {
        case 0: Try([&] { resource.Load(); }); break;
        case 1: Try([&] { resource.Unload(); }); break;
        case 2: Try([&] { resource.Clear(); }); break;
        case 3:
        case 4:
        case 5: SaveResource(copy); break;
        case 6: NameResource(copy); break;
        case 7:
        case 8: EditBytes(resource); break;
        case 9: CopyResource(copy); break;
        case 10:
        case 11: ImportExport(copy); break;
        case 12: Try([&] { resource.Description(input_.Text()); }); break;
        default:
            switch (resource.ResType()) {
                case rtLogic: EditLogic(copy); break;
                case rtPicture: EditPicture(static_cast<AGIPicture&>(resource)); break;
                case rtSound: EditSound(static_cast<AGISound&>(resource)); break;
                default: EditView(static_cast<AGIView&>(resource)); break;
            }
            break;
    }
}

void Host::EditBytes(GameResource& resource) {
    const std::int32_t pos = input_.Number();
    switch (input_.Below(12)) {
        case 0: Try([&] { resource.InsertData(input_.Bytes(), pos); }); break;
        case 1: Try([&] { resource.InsertData(static_cast<double>(input_.Number()) / 2, pos); }); break;
        case 2: Try([&] { resource.RemoveData(pos, input_.Number()); }); break;
        case 3: Try([&] { resource.SetData(input_.Bytes()); }); break;
        case 4: Try([&] { resource.Data(pos, input_.Byte()); }); break;
        case 5: Try([&] { resource.ReadByte(pos); }); break;
        case 6: Try([&] { resource.ReadWord(pos, input_.Flag()); }); break;
        case 7: Try([&] { resource.SetPos(pos); }); break;
        case 8: Try([&] { resource.Resource().WriteByte(input_.Byte(), pos); }); break;
        case 9: Try([&] { resource.Resource().WriteWord(input_.Number(), pos, input_.Flag()); }); break;
        case 10: Try([&] { resource.NewResource(input_.Flag()); }); break;
        default: Try([&] { resource.Resource().SetAllData(input_.Bytes()); }); break;
    }
}

void Host::SaveResource(Held& held) {
    GameResource& resource = *held.Object;
    const auto key = KeyOf(held);
    if (input_.Below(8) == 0) {
        bool written = false;
        Try([&] { written = resource.Resource().Save(OutFile()); });
        if (key && written) NoteBytes(held);
        return;
    }
    const bool dataWaits = resource.DataDirty();
    const bool nameWaits = resource.WritePropState();
    const bool saved = Try([&] { resource.Save(resource.Attached() ? "" : OutFile()); });
    if (!key || !KeyOf(held)) return;
    if (nameWaits && !resource.WritePropState()) SavedOf(*key).IDs = {resource.ID()};
    FUZZ_CHECK(!saved || !resource.DataDirty());
    if (saved && dataWaits) NoteBytes(held);
}

void Host::NameResource(Held& held) {
    GameResource& resource = *held.Object;
    const std::string before = resource.ID();
    const bool done = Try([&] { resource.ID(input_.Text()); });
    const auto key = KeyOf(held);
    if (!done || !key) return;
    const auto saved = Present().OnDisk.Resources.find(*key);
    if (saved == Present().OnDisk.Resources.end()) return;
    // The same name again is not written, though the list may still have another.
    if (resource.ID() == before) {
        if (!saved->second.IDs.empty()) saved->second.IDs.insert(before);
    } else {
        saved->second.IDs = {resource.ID()};
    }
}

void Host::CopyResource(Held& held) {
    Held* from = Pick(held.Object->ResType());
    if (from == nullptr) return;
    const std::shared_ptr<GameResource> source = from->Object;
    const bool wasAttached = held.Object->Attached();
    const std::int32_t number = held.Object->Number();
    Try([&] { held.Object->CopyFrom(*source); });
    FUZZ_CHECK(held.Object->Attached() == wasAttached);
    FUZZ_CHECK(!wasAttached || held.Object->Number() == number);
}

void Host::ImportExport(Held& held) {
    const std::string file = OutFile();
    const bool flag = input_.Flag();
    const bool in = input_.Flag();
    GameResource& resource = *held.Object;
    switch (resource.ResType()) {
        case rtLogic: {
            auto& logic = static_cast<AGILogic&>(resource);
            Try([&] { in ? logic.Import(file, flag) : logic.Export(file, flag); });
            break;
        }
        case rtPicture: {
            auto& picture = static_cast<AGIPicture&>(resource);
            Try([&] { in ? picture.Import(file) : picture.Export(file, flag); });
            break;
        }
        case rtSound: {
            auto& sound = static_cast<AGISound&>(resource);
            const auto format = static_cast<SoundFormat>(input_.Below(5));
            Try([&] { in ? sound.Import(file) : sound.Export(file, format, flag); });
            break;
        }
        default: {
            auto& view = static_cast<AGIView&>(resource);
            Try([&] { in ? view.Import(file) : view.Export(file, flag); });
            break;
        }
    }
    const auto key = KeyOf(held);
    if (!key) return;
    const auto saved = Present().OnDisk.Resources.find(*key);
    if (saved != Present().OnDisk.Resources.end() && !saved->second.IDs.empty())
        saved->second.IDs.insert(resource.ID());
}

}  // namespace zorvex::fuzz
