#include "zorvex/platform/OverlayFileSystem.h"

#include <algorithm>

#include "zorvex/base/Error.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/Text.h"

namespace zorvex {

namespace {

std::string WithoutEnd(std::string_view path) {
    while (path.size() > 1 && path.back() == '\\')
        path.remove_suffix(1);
    return std::string(path);
}

std::string KeyOf(std::string_view path) {
    return LowerCase(WithoutEnd(path));
}

/// The directory that a path lies in, without a backslash at its end.
std::string DirectoryOf(std::string_view path) {
    return JustPath(WithoutEnd(path), true);
}

}  // namespace

OverlayFileSystem::OverlayFileSystem(std::shared_ptr<FileSystem> beneath, std::string_view root)
    : beneath_(std::move(beneath)), root_(CDir(LowerCase(root))) {}

bool OverlayFileSystem::IsInside(std::string_view path) const {
    return StartsWithNoCase(path, root_) && path.size() > root_.size();
}

const OverlayFileSystem::Node* OverlayFileSystem::NodeOf(std::string_view path) const {
    const auto found = nodes_.find(KeyOf(path));
    if (found == nodes_.end()) return nullptr;
    const std::string name = JustFileName(WithoutEnd(path));
    for (const Node& node : found->second) {
        if (JustFileName(node.path) == name) return &node;
    }
    return nullptr;
}

OverlayFileSystem::Node& OverlayFileSystem::NodeFor(std::string_view path) {
    auto& nodes = nodes_[KeyOf(path)];
    const std::string name = JustFileName(WithoutEnd(path));
    for (Node& node : nodes) {
        if (JustFileName(node.path) == name) return node;
    }
    return nodes.emplace_back(Node{WithoutEnd(path), FileKind::None, {}, Now()});
}

const OverlayFileSystem::Node* OverlayFileSystem::Meant(std::string_view path, std::string& name) const {
    name = path;
    if (!IsInside(path)) return nullptr;
    const auto found = nodes_.find(KeyOf(path));
    if (found == nodes_.end()) return nullptr;
    // Something of this name differs from what lies beneath: the exact name wins, then the first.
    const std::string directory = DirectoryOf(path);
    const std::string wanted = JustFileName(WithoutEnd(path));
    std::vector<DirectoryEntry> entries;
    if (Kind(directory) == FileKind::Directory) entries = List(directory);
    const DirectoryEntry* best = nullptr;
    for (const DirectoryEntry& entry : entries) {
        if (!EqualNoCase(entry.Name, wanted)) continue;
        if (best == nullptr || entry.Name == wanted) best = &entry;
    }
    static const Node nothing;
    if (best == nullptr) return &nothing;
    name = CDir(directory) + best->Name;
    return NodeOf(name);
}

FileKind OverlayFileSystem::Kind(std::string_view path) const {
    std::string name;
    const Node* node = Meant(path, name);
    return node != nullptr ? node->kind : beneath_->Kind(name);
}

std::uint64_t OverlayFileSystem::Size(std::string_view path) const {
    std::string name;
    const Node* node = Meant(path, name);
    if (node == nullptr) return beneath_->Size(name);
    if (node->kind == FileKind::None) RaiseRuntime(reFileNotFound);
    return node->bytes.size();
}

std::vector<DirectoryEntry> OverlayFileSystem::List(std::string_view directory) const {
    if (!IsInside(CDir(directory) + "x")) return beneath_->List(directory);
    const Node* made = NodeOf(directory);
    std::vector<DirectoryEntry> entries;
    if (made == nullptr) entries = beneath_->List(directory);
    const std::string inside = CDir(LowerCase(directory));
    for (auto at = nodes_.lower_bound(inside); at != nodes_.end() && at->first.starts_with(inside); ++at) {
        if (at->first.find('\\', inside.size()) != std::string::npos) continue;
        for (const Node& node : at->second) {
            const std::string name = JustFileName(node.path);
            std::erase_if(entries, [&](const DirectoryEntry& entry) { return entry.Name == name; });
            if (node.kind != FileKind::None) entries.push_back({name, node.kind});
        }
    }
    std::sort(entries.begin(), entries.end(), [](const DirectoryEntry& left, const DirectoryEntry& right) {
        const int order = CompareNoCase(left.Name, right.Name);
        return order != 0 ? order < 0 : left.Name < right.Name;
    });
    return entries;
}

DateTime OverlayFileSystem::LastWriteTime(std::string_view path) const {
    std::string name;
    const Node* node = Meant(path, name);
    if (node == nullptr) return beneath_->LastWriteTime(name);
    if (node->kind == FileKind::None) RaiseRuntime(reFileNotFound);
    return node->time;
}

std::uint64_t OverlayFileSystem::WriteStamp(std::string_view path) const {
    std::string name;
    return Meant(path, name) == nullptr ? beneath_->WriteStamp(name) : FileSystem::WriteStamp(path);
}

ByteArray OverlayFileSystem::Read(std::string_view path) const {
    std::string name;
    const Node* node = Meant(path, name);
    if (node == nullptr) return beneath_->Read(name);
    if (node->kind == FileKind::None) RaiseRuntime(reFileNotFound);
    if (node->kind == FileKind::Directory) RaiseRuntime(rePathFileAccess);
    return node->bytes;
}

ByteArray OverlayFileSystem::ReadAt(std::string_view path, std::uint64_t offset, std::size_t count) const {
    std::string name;
    if (Meant(path, name) == nullptr) return beneath_->ReadAt(name, offset, count);
    const ByteArray bytes = Read(path);
    const auto start = static_cast<std::size_t>(std::min<std::uint64_t>(offset, bytes.size()));
    const std::size_t length = std::min(count, bytes.size() - start);
    const auto from = bytes.begin() + static_cast<std::ptrdiff_t>(start);
    return {from, from + static_cast<std::ptrdiff_t>(length)};
}

ByteArray OverlayFileSystem::ReadPart(std::string_view path, std::uint64_t offset,
                                      const PartLength& length) const {
    std::string name;
    if (Meant(path, name) == nullptr) return beneath_->ReadPart(name, offset, length);
    return FileSystem::ReadPart(path, offset, length);
}

// --- Writing ---
void OverlayFileSystem::RequireDirectoryOf(std::string_view path) const {
    if (Kind(DirectoryOf(path)) != FileKind::Directory) RaiseRuntime(rePathNotFound);
}

OverlayFileSystem::Node& OverlayFileSystem::FileFor(std::string_view path, bool keepBytes) {
    RequireDirectoryOf(path);
    const FileKind kind = Kind(path);
    if (kind == FileKind::Directory) RaiseRuntime(rePathFileAccess);
    std::string name;
    const Node* present = Meant(path, name);
    if (kind == FileKind::None) name = path;
    ByteArray bytes;
    if (keepBytes && kind == FileKind::File && present == nullptr) bytes = beneath_->Read(name);
    if (present == nullptr && kind == FileKind::File) {
        // The file has its own spelling beneath.
        for (const DirectoryEntry& entry : List(DirectoryOf(name))) {
            if (!EqualNoCase(entry.Name, JustFileName(name))) continue;
            name = CDir(DirectoryOf(name)) + entry.Name;
            if (entry.Name == JustFileName(path)) break;
        }
    }
    Node& node = NodeFor(name);
    if (present == nullptr && keepBytes) node.bytes = std::move(bytes);
    node.kind = FileKind::File;
    node.time = Now();
    return node;
}

void OverlayFileSystem::Write(std::string_view path, ByteView bytes) {
    if (!IsInside(path)) return beneath_->Write(path, bytes);
    FileFor(path, false).bytes.assign(bytes.begin(), bytes.end());
}

void OverlayFileSystem::WriteWhole(std::string_view path, ByteView bytes) {
    if (!IsInside(path)) return beneath_->WriteWhole(path, bytes);
    Write(path, bytes);
}

void OverlayFileSystem::WriteAt(std::string_view path, std::uint64_t offset, ByteView bytes) {
    if (!IsInside(path)) return beneath_->WriteAt(path, offset, bytes);
    ByteArray& target = FileFor(path, true).bytes;
    const auto start = static_cast<std::size_t>(offset);
    if (target.size() < start + bytes.size()) target.resize(start + bytes.size());
    std::copy(bytes.begin(), bytes.end(), target.begin() + static_cast<std::ptrdiff_t>(start));
}

void OverlayFileSystem::Append(std::string_view path, ByteView bytes) {
    if (!IsInside(path)) return beneath_->Append(path, bytes);
    ByteArray& target = FileFor(path, true).bytes;
    target.insert(target.end(), bytes.begin(), bytes.end());
}

void OverlayFileSystem::Hide(std::string_view path) {
    std::string name;
    const Node* node = Meant(path, name);
    if (node == nullptr) {
        for (const DirectoryEntry& entry : List(DirectoryOf(name))) {
            if (!EqualNoCase(entry.Name, JustFileName(WithoutEnd(name)))) continue;
            const bool exact = entry.Name == JustFileName(WithoutEnd(path));
            name = CDir(DirectoryOf(name)) + entry.Name;
            if (exact) break;
        }
    }
    Node& hidden = NodeFor(name);
    hidden.kind = FileKind::None;
    hidden.bytes.clear();
}

void OverlayFileSystem::Rename(std::string_view from, std::string_view to) {
    if (!IsInside(from) && !IsInside(to)) return beneath_->Rename(from, to);
    const FileKind kind = Kind(from);
    if (kind == FileKind::None) RaiseRuntime(reFileNotFound);
    if (Kind(to) != FileKind::None && KeyOf(from) != KeyOf(to)) RaiseRuntime(reFileExists);
    if (kind == FileKind::Directory) return MoveDirectory(std::string(from), std::string(to));
    const ByteArray bytes = Read(from);
    RequireDirectoryOf(to);
    Remove(from);
    Write(to, bytes);
}

void OverlayFileSystem::MoveDirectory(const std::string& from, const std::string& to) {
    MakeDirectory(to);
    for (const DirectoryEntry& entry : List(from)) {
        const std::string source = CDir(from) + entry.Name;
        const std::string target = CDir(to) + entry.Name;
        if (entry.Kind == FileKind::Directory) {
            MoveDirectory(source, target);
        } else {
            Rename(source, target);
        }
    }
    Hide(from);
}

void OverlayFileSystem::Replace(std::string_view from, std::string_view to) {
    if (!IsInside(from) && !IsInside(to)) return beneath_->Replace(from, to);
    const ByteArray bytes = Read(from);
    Write(to, bytes);
    if (KeyOf(from) != KeyOf(to)) Remove(from);
}

void OverlayFileSystem::Copy(std::string_view from, std::string_view to) {
    if (!IsInside(from) && !IsInside(to)) return beneath_->Copy(from, to);
    Write(to, Read(from));
}

void OverlayFileSystem::Remove(std::string_view path) {
    if (!IsInside(path)) return beneath_->Remove(path);
    if (Kind(path) != FileKind::File) RaiseRuntime(reFileNotFound);
    Hide(path);
}

void OverlayFileSystem::MakeDirectory(std::string_view path) {
    if (!IsInside(path)) return beneath_->MakeDirectory(path);
    RequireDirectoryOf(path);
    if (Kind(path) != FileKind::None) RaiseRuntime(rePathFileAccess);
    NodeFor(path).kind = FileKind::Directory;
}

void OverlayFileSystem::RemoveDirectory(std::string_view path) {
    if (!IsInside(path)) return beneath_->RemoveDirectory(path);
    if (Kind(path) != FileKind::Directory) RaiseRuntime(rePathNotFound);
    if (!List(path).empty()) RaiseRuntime(rePathFileAccess);
    Hide(path);
}

std::string OverlayFileSystem::UniqueTempFile(std::string_view directory, std::string_view prefix) {
    if (!IsInside(CDir(directory) + "x")) return beneath_->UniqueTempFile(directory, prefix);
    std::string path;
    do {
        path = CDir(directory) + std::string(prefix) + HexPad(++uniqueNames_, 6) + ".tmp";
    } while (Kind(path) != FileKind::None);
    Write(path, {});
    return path;
}

std::string OverlayFileSystem::ShortPath(std::string_view path) const {
    std::string name;
    return Meant(path, name) == nullptr ? beneath_->ShortPath(name) : std::string(path);
}

}  // namespace zorvex
