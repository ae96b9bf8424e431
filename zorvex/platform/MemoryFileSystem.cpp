#include "zorvex/platform/MemoryFileSystem.h"

#include <algorithm>

#include "zorvex/base/Error.h"
#include "zorvex/base/PathText.h"
#include "zorvex/base/Text.h"

namespace zorvex {

MemoryFileSystem::MemoryFileSystem() {
    for (const char* path : {"", "\\work", "\\temp"})
        nodes_[path] = {path, FileKind::Directory, {}, {}};
}

std::map<std::string, ByteArray> MemoryFileSystem::All() const {
    std::map<std::string, ByteArray> files;
    for (const auto& [key, node] : nodes_) {
        if (node.kind == FileKind::File) files[node.path] = node.bytes;
    }
    return files;
}

std::string MemoryFileSystem::Text(std::string_view path) const {
    const ByteArray& bytes = FileAt(path).bytes;
    return {bytes.begin(), bytes.end()};
}

std::string MemoryFileSystem::FullPath(std::string_view path) {
    std::string full;
    for (const std::string& part :
         Split(path.starts_with('\\') ? path : "\\work\\" + std::string(path), "\\")) {
        if (!part.empty() && part != ".") full.append("\\").append(part);
    }
    return full;
}

std::string MemoryFileSystem::KeyOf(std::string_view path) {
    return LowerCase(std::string_view(FullPath(path)));
}

const MemoryFileSystem::Node& MemoryFileSystem::FileAt(std::string_view path) const {
    const auto found = nodes_.find(KeyOf(path));
    if (found == nodes_.end()) RaiseRuntime(reFileNotFound);
    if (found->second.kind == FileKind::Directory) RaiseRuntime(rePathFileAccess);
    return found->second;
}

/// A new name can be given only in a directory that exists.
void MemoryFileSystem::RequireDirectoryOf(std::string_view path) const {
    if (Kind(JustPath(KeyOf(path), true)) != FileKind::Directory) RaiseRuntime(reFileNotFound);
}

/// The file of that name, created if need be.
MemoryFileSystem::Node& MemoryFileSystem::FileFor(std::string_view path) {
    const std::string key = KeyOf(path);
    const auto found = nodes_.find(key);
    if (found == nodes_.end()) {
        RequireDirectoryOf(path);
        nodes_[key] = {FullPath(path), FileKind::File, {}, {}};
    } else if (found->second.kind == FileKind::Directory) {
        RaiseRuntime(rePathFileAccess);
    }
    Node& node = nodes_[key];
    node.time = Now();
    node.stamp = ++writes_;
    return node;
}

FileKind MemoryFileSystem::Kind(std::string_view path) const {
    const auto found = nodes_.find(path.empty() ? "" : KeyOf(path));
    return found == nodes_.end() ? FileKind::None : found->second.kind;
}

std::uint64_t MemoryFileSystem::Size(std::string_view path) const {
    return FileAt(path).bytes.size();
}

std::vector<DirectoryEntry> MemoryFileSystem::List(std::string_view directory) const {
    const std::string key = KeyOf(directory);
    if (Kind(key) != FileKind::Directory) RaiseRuntime(reFileNotFound);
    std::vector<DirectoryEntry> entries;
    for (const auto& [path, node] : nodes_) {
        if (!path.empty() && JustPath(path, true) == key)
            entries.push_back({JustFileName(node.path), node.kind});
    }
    return entries;  // the map holds them in the order of their lower-case names
}

DateTime MemoryFileSystem::LastWriteTime(std::string_view path) const {
    return FileAt(path).time;
}

std::uint64_t MemoryFileSystem::WriteStamp(std::string_view path) const {
    return FileAt(path).stamp;
}

ByteArray MemoryFileSystem::Read(std::string_view path) const {
    return FileAt(path).bytes;
}

ByteArray MemoryFileSystem::ReadAt(std::string_view path, std::uint64_t offset, std::size_t count) const {
    const ByteView bytes = FileAt(path).bytes;
    const auto start = static_cast<std::size_t>(std::min<std::uint64_t>(offset, bytes.size()));
    const ByteView part = bytes.subspan(start, std::min(count, bytes.size() - start));
    return {part.begin(), part.end()};
}

void MemoryFileSystem::Write(std::string_view path, ByteView bytes) {
    FileFor(path).bytes.assign(bytes.begin(), bytes.end());
}

void MemoryFileSystem::WriteAt(std::string_view path, std::uint64_t offset, ByteView bytes) {
    ByteArray& file = FileFor(path).bytes;
    const auto start = static_cast<std::size_t>(offset);
    file.resize(std::max(file.size(), start + bytes.size()));
    std::copy(bytes.begin(), bytes.end(), file.begin() + static_cast<std::ptrdiff_t>(start));
}

void MemoryFileSystem::Append(std::string_view path, ByteView bytes) {
    ByteArray& file = FileFor(path).bytes;
    file.insert(file.end(), bytes.begin(), bytes.end());
}

/// Moves a file or a directory with all in it. Every node below keeps the case of its own name.
void MemoryFileSystem::MoveNode(const std::string& from, std::string_view to) {
    const std::string target = FullPath(to);
    if (KeyOf(to).starts_with(from + "\\")) RaiseRuntime(reBadFileName);
    std::map<std::string, Node> moved;
    for (auto it = nodes_.begin(); it != nodes_.end();) {
        if (it->first != from && !it->first.starts_with(from + "\\")) {
            ++it;
            continue;
        }
        Node node = std::move(it->second);
        node.path = target + node.path.substr(from.size());
        moved[LowerCase(std::string_view(node.path))] = std::move(node);
        it = nodes_.erase(it);
    }
    nodes_.merge(moved);
}

void MemoryFileSystem::Rename(std::string_view from, std::string_view to) {
    const std::string source = KeyOf(from);
    if (!nodes_.contains(source)) RaiseRuntime(reFileNotFound);
    if (KeyOf(to) != source && nodes_.contains(KeyOf(to))) RaiseRuntime(reFileExists);
    RequireDirectoryOf(to);
    MoveNode(source, to);
}

void MemoryFileSystem::Replace(std::string_view from, std::string_view to) {
    const std::string source = KeyOf(from);
    FileAt(source);
    if (Kind(to) == FileKind::Directory) RaiseRuntime(rePathFileAccess);
    RequireDirectoryOf(to);
    const auto former = nodes_.find(KeyOf(to));
    if (former == nodes_.end()) return MoveNode(source, to);
    const std::string path = former->second.path;
    if (former->first == source) return;
    nodes_.erase(former);
    MoveNode(source, path);
}

void MemoryFileSystem::Copy(std::string_view from, std::string_view to) {
    const ByteArray bytes = FileAt(from).bytes;
    Write(to, bytes);
}

void MemoryFileSystem::Remove(std::string_view path) {
    FileAt(path);
    nodes_.erase(KeyOf(path));
}

void MemoryFileSystem::MakeDirectory(std::string_view path) {
    const std::string key = KeyOf(path);
    if (nodes_.contains(key)) RaiseRuntime(rePathFileAccess);
    RequireDirectoryOf(path);
    nodes_[key] = {FullPath(path), FileKind::Directory, {}, {}};
}

void MemoryFileSystem::RemoveDirectory(std::string_view path) {
    const std::string key = KeyOf(path);
    if (Kind(key) != FileKind::Directory) RaiseRuntime(reFileNotFound);
    if (!List(key).empty()) RaiseRuntime(reFileExists);
    nodes_.erase(key);
}

std::string MemoryFileSystem::UniqueTempFile(std::string_view directory, std::string_view prefix) {
    std::string path;
    do {
        path = CDir(FullPath(directory)) + std::string(prefix) + std::to_string(++uniqueNames_);
    } while (Kind(path) != FileKind::None);
    FileFor(path);
    return path;
}

}  // namespace zorvex
