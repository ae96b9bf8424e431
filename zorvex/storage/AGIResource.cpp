#include "zorvex/storage/AGIResource.h"

#include <cmath>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Faults.h"
#include "zorvex/base/Internal.h"
#include "zorvex/base/PathText.h"
#include "zorvex/platform/FileQueries.h"
#include "zorvex/platform/FileSystem.h"
#include "zorvex/platform/WholeFile.h"
#include "zorvex/state/GameSession.h"
#include "zorvex/state/LibraryState.h"
#include "zorvex/storage/ResourceFunctions.h"
#include "zorvex/storage/VolManager.h"
#include "zorvex/storage/VolumeFiles.h"

namespace zorvex {

void AGIResource::RequireLoaded() const {
    if (!loaded_) RaiseCatalogue(563, ErrorSource);
}

void AGIResource::RaisePosition(std::int32_t id) {
    Library().LastErrorNumber = id;
    RaiseCatalogue(id, ErrorSource);
}

bool AGIResource::Attached() const noexcept {
    return session_ && session_->IsOpen();
}

void AGIResource::RequirePresent() const {
    if (Attached()) session_->RequirePresent(ErrorSource);
}

void AGIResource::RequirePresent(const Internal& /*key*/) const {
    RequirePresent();
}

std::int32_t AGIResource::SizeInVol() const {
    if (!Attached()) return -1;
    RequirePresent();
    if (sizeInVol_ == -1) {
        sizeInVol_ = ReadSizeInVol(volume_, loc_);
        if (sizeInVol_ == -1) RaiseCatalogue(625, ErrorSource);
    }
    return sizeInVol_;
}

std::int32_t AGIResource::Size() {
    if (loaded_) return Length();
    if (unloadedSize_ == -1) {
        Load();
        Unload();
    }
    if (unloadedSize_ == -1) RaiseCatalogue(563, ErrorSource);
    return unloadedSize_;
}

// --- Reading and the marker ---
ByteArray AGIResource::AllData() const {
    RequireLoaded();
    return data_.empty() ? ByteArray(1) : data_;
}

ByteView AGIResource::View() const {
    RequireLoaded();
    return data_;
}

std::uint8_t AGIResource::Data(std::int32_t pos) const {
    RequireLoaded();
    if (pos < 0) RaisePosition(514);
    if (pos >= Length()) RaisePosition(515);
    return At(data_, pos, ErrorSource);
}

void AGIResource::Data(std::int32_t pos, std::uint8_t value) {
    RequireLoaded();
    if (pos < 0) RaisePosition(514);
    if (pos >= Length()) RaisePosition(515);
    At(data_, pos, ErrorSource) = value;
    Change.Raise();
}

void AGIResource::MoveTo(std::int32_t pos) {
    if (pos < 0) RaisePosition(514);
    if (pos >= Length()) RaisePosition(513);
    curPos_ = pos;
}

std::uint8_t AGIResource::ReadByte(std::int32_t pos) {
    RequireLoaded();
    if (pos != MaxResourceSize + 1) MoveTo(pos);
    UpdateEnd();
    if (endOfResource_ || curPos_ > Length()) RaisePosition(513);
    const std::uint8_t value = At(data_, curPos_, ErrorSource);
    ++curPos_;
    UpdateEnd();
    return value;
}

std::int32_t AGIResource::ReadWord(std::int32_t pos, bool msls) {
    RequireLoaded();
    const std::int32_t start = pos == -1 ? curPos_ : pos;
    if (pos != -1) {
        if (pos < 0) RaisePosition(514);
        if (pos >= Length()) RaisePosition(513);
    }
    if (start > Length() - 2) RaiseRuntime(reSubscript, ErrorSource);
    const std::int32_t first = At(data_, start, ErrorSource);
    const std::int32_t second = At(data_, start + 1, ErrorSource);
    curPos_ = start + 2;
    UpdateEnd();
    return msls ? first * 256 + second : second * 256 + first;
}

std::int32_t AGIResource::GetPos() const {
    RequireLoaded();
    return curPos_;
}

void AGIResource::SetPos(std::int32_t pos) {
    RequireLoaded();
    if (pos < 0) RaisePosition(514);
    if (pos > Length()) RaisePosition(513);
    curPos_ = pos;
    UpdateEnd();
}

bool AGIResource::EORes() const {
    RequireLoaded();
    return endOfResource_;
}

// --- Writing ---
void AGIResource::Grow(std::int32_t count) {
    data_.resize(data_.size() + static_cast<std::size_t>(count));
}

void AGIResource::WriteByte(std::uint8_t value, std::int32_t pos) {
    RequireLoaded();
    if (pos != -1) {
        if (pos >= MaxResourceSize) RaisePosition(516);
        if (pos < 0) RaisePosition(514);
        if (pos > Length()) RaisePosition(517);
    }
    const std::int32_t target = pos == -1 ? Length() : pos;
    if (target == Length()) Grow(1);
    At(data_, target, ErrorSource) = value;
    curPos_ = target + 1;
    UpdateEnd();
    Change.Raise();
}

void AGIResource::WriteWord(std::int32_t value, std::int32_t pos, bool msls) {
    RequireLoaded();
    if (pos != -1) {
        if (pos >= MaxResourceSize - 1) RaisePosition(516);
        if (pos < 0) RaisePosition(514);
        if (pos > Length()) RaisePosition(513);
    }
    if (value < 0 || value > 0xFFFF) RaiseCatalogue(557, ErrorSource);
    const std::int32_t target = pos == -1 ? Length() : pos;
    if (target == Length()) {
        Grow(2);
    } else if (target == Length() - 1) {
        Grow(1);
    }
    const auto low = static_cast<std::uint8_t>(value % 256);
    const auto high = static_cast<std::uint8_t>(value / 256);
    At(data_, target, ErrorSource) = msls ? high : low;
    At(data_, target + 1, ErrorSource) = msls ? low : high;
    curPos_ = target + 2;
    UpdateEnd();
    Change.Raise();
}

void AGIResource::InsertData(ByteView newData, std::int32_t insertPos) {
    RequireLoaded();
    if (insertPos != -1 && (insertPos < 0 || insertPos >= Length())) RaiseCatalogue(620, ErrorSource);
    const ByteArray copy(newData.begin(), newData.end());
    const auto at = insertPos == -1 ? data_.end() : data_.begin() + insertPos;
    data_.insert(at, copy.begin(), copy.end());
    Change.Raise();
}

void AGIResource::InsertData(double value, std::int32_t insertPos) {
    RequireLoaded();
    if (!(value >= 0 && value <= 255) || value != std::floor(value))
        RaiseRuntime(reTypeMismatch, ErrorSource);
    const std::uint8_t byte = static_cast<std::uint8_t>(value);
    InsertData(ByteView(&byte, 1), insertPos);
}

void AGIResource::RemoveData(std::int32_t removePos, std::int32_t removeCount) {
    RequireLoaded();
    const std::int32_t count = std::max(removeCount, 1);
    if (removePos < 0 || removePos >= Length()) RaiseCatalogue(620, ErrorSource);
    if (count > Length() - removePos) RaiseRuntime(reSubscript, ErrorSource);
    data_.erase(data_.begin() + removePos, data_.begin() + removePos + count);
    Change.Raise();
}

void AGIResource::Replace(ByteView bytes) {
    data_ = ByteArray(bytes.begin(), bytes.end());
    curPos_ = 0;
    endOfResource_ = false;
}

void AGIResource::SetData(ByteView newData) {
    RequireLoaded();
    Replace(newData);
    Change.Raise();
}

void AGIResource::SetAllData(ByteView bytes) {
    Replace(bytes);
    loaded_ = true;
    Change.Raise();
}

// --- Life ---
void AGIResource::Init(const Internal& /*key*/, std::uint8_t number, std::int32_t volume, std::int32_t loc) {
    number_ = number;
    volume_ = volume;
    loc_ = loc;
    session_ = Library().Session;
}

void AGIResource::Detach(const Internal& /*key*/) noexcept {
    session_.reset();
    sizeInVol_ = -1;
}

void AGIResource::NewResource(bool reset) {
    if (Attached()) RaiseCatalogue(510, ErrorSource);
    if (reset) Unload();
    if (!loaded_) data_.resize(1);
    volume_ = -1;
    loc_ = -1;
    loaded_ = true;
}

void AGIResource::Unload() {
    if (loaded_) unloadedSize_ = Length();
    loaded_ = false;
    data_ = {};
    endOfResource_ = true;
    curPos_ = 0;
}

void AGIResource::Clear() {
    RequireLoaded();
    data_ = {};
    sizeInVol_ = -1;
    curPos_ = 0;
    endOfResource_ = false;
}

void AGIResource::SetRes(const Internal& /*key*/, const AGIResource& source) {
    resType_ = source.resType_;
    resFile_ = source.resFile_;
    if (Attached()) return;
    number_ = source.number_;
    volume_ = source.volume_;
    loc_ = source.loc_;
    if (!source.loaded_ && loaded_) Unload();
    if (!loaded_) unloadedSize_ = source.loaded_ ? source.Length() : source.unloadedSize_;
}

bool AGIResource::Save(std::string_view saveFile) {
    RequireLoaded();
    if (!Attached()) {
        Export(saveFile);
        return true;
    }
    RequirePresent();
    const bool saved = AddToVol(*this, Library().IsV3);
    Library().LastEdit = Now();
    return saved;
}

// --- Files ---
void AGIResource::Export(std::string_view exportFile) {
    if (exportFile.empty()) RaiseCatalogue(599, ErrorSource);
    const std::string path = InnerPath(exportFile);
    const bool wasLoaded = loaded_;
    if (!wasLoaded && Attempt([&] { Load(); })) RaiseCatalogue(601, ErrorSource);
    const auto failed = Attempt([&] { ReplaceWholeFile(path, AllData()); });
    if (!wasLoaded) Unload();
    if (failed) RaiseCatalogue(582, ErrorSource);
    if (!Attached()) resFile_ = path;
}

std::string AGIResource::ImportPath(const Internal& /*key*/, std::string_view importFile) {
    if (importFile.empty()) RaiseCatalogue(604, ErrorSource);
    std::string path = InnerPath(importFile);
    if (!FileExists(path)) RaiseCatalogue(524, ErrorSource, importFile);
    return path;
}

void AGIResource::Import(std::string_view importFile) {
    const std::string path = ImportPath(Internal(), importFile);
    if (loaded_) Unload();
    ByteArray bytes;
    if (Attempt([&] { bytes = Files().Read(path); }) || bytes.empty()) {
        RaiseCatalogue(605, ErrorSource, importFile);
    }
    if (!Attached()) resFile_ = path;
    Replace(bytes);
    loaded_ = true;
    Change.Raise();
}

void AGIResource::Load() {
    if (loaded_) RaiseCatalogue(511, ErrorSource);
    RequirePresent();
    const std::string path = Attached() ? VolumePath(volume_) : resFile_;
    if (path.empty()) RaiseCatalogue(626, ErrorSource);
    const std::string name = JustFileName(path);
    const ByteArray* held = Attached() ? HeldVolume(path) : nullptr;
    curPos_ = 0;
    endOfResource_ = false;
    const bool isV3 = Attached() && Library().IsV3;
    StoredResource stored = held != nullptr ? StoredResourceIn(*held, name, loc_, isV3)
                            : Attached()    ? ReadStoredResource(path, name, loc_, isV3)
                                            : ReadStoredFile(path, name);
    unloadedSize_ = static_cast<std::int32_t>(stored.data.size());
    if (stored.data.empty()) RaiseCatalogue(507, ErrorSource, std::to_string(reSubscript), name);
    if (isV3) ExpandStored(stored, resType_, name);
    data_ = std::move(stored.data);
    loaded_ = true;
}

}  // namespace zorvex
