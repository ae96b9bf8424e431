// The lists of a game's resources: one object per used resource number, all the time a game is open.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "zorvex/game/MappedIterator.h"
#include "zorvex/game/Types.h"
#include "zorvex/storage/GameResource.h"

namespace zorvex {

/// In what the four collections differ.
struct CollectionFamily {
    AGIResType type;
    std::string_view errorSource;
    std::int32_t addFailure;
    std::int32_t loadEntryFailure;
    std::int16_t emptyMax;
    bool renumberLoads = false;  // a member is loaded while it gets another number
};

/// What the four collections share. Members are kept in the order in which they were added, not by number.
class ResourceCollectionBase {
  public:
    ResourceCollectionBase(const ResourceCollectionBase&) = delete;
    ResourceCollectionBase& operator=(const ResourceCollectionBase&) = delete;
    virtual ~ResourceCollectionBase() = default;

    /// True when there is a member of that number, loaded or not.
    bool Exists(std::uint8_t number) const { return byNumber_[number] != nullptr; }
    std::int32_t Count() const { return static_cast<std::int32_t>(members_.size()); }
    /// The highest number in use; for an empty collection -1 for logics and 0 for the others.
    std::int16_t Max() const;

    /// Takes a resource out of the game: its directory entry is blanked on disk, its section leaves the
    /// property list. The bytes in the volume stay until their space is used. Raises 617.
    void Remove(std::uint8_t number);
    /// Gives a resource another number; nothing in a volume moves. A default ID follows the number, and with
    /// it a logic's source file. Nothing happens when both numbers are the same. Raises 669 when the new
    /// number is taken and 670 for any failure.
    void Renumber(std::uint8_t oldNumber, std::uint8_t newNumber);

    // --- For the library ---
    const CollectionFamily& Family() const { return family_; }
    /// Registers a resource found in a directory file. Raises 602 for a number in use, passes 502, 505, 506,
    /// 507, 511 and 606 of the resource's load, and wraps any other fault in the family's own number.
    void LoadEntry(std::uint8_t number, std::int32_t volume, std::int32_t loc);
    /// Unloads and removes every member, the last first.
    void ClearCollection();
    /// The member of a number, or none.
    std::shared_ptr<GameResource> Find(std::uint8_t number) const { return byNumber_[number]; }
    /// The members in order.
    const std::vector<std::shared_ptr<GameResource>>& Members() const { return members_; }

  protected:
    explicit ResourceCollectionBase(const CollectionFamily& family) : family_(family) {}

    virtual std::shared_ptr<GameResource> MakeMember() const = 0;
    /// The member of a number; raises 617.
    const std::shared_ptr<GameResource>& Require(std::uint8_t number) const;
    void Insert(std::uint8_t number, std::shared_ptr<GameResource> member);
    /// Adds a new member, a copy of `source` if that is given, and saves it into the game.
    std::shared_ptr<GameResource> AddMember(std::uint8_t number, GameResource* source);
    void Take(std::uint8_t number);

  private:
    const CollectionFamily& family_;
    std::vector<std::shared_ptr<GameResource>> members_;
    std::array<std::shared_ptr<GameResource>, 256> byNumber_;
};

/// A member as the class that its collection is for.
template <class Resource>
std::shared_ptr<Resource> TypedMember(const std::shared_ptr<GameResource>& member) {
    return std::static_pointer_cast<Resource>(member);
}

/// A collection of one resource class.
template <class Resource>
class ResourceCollection : public ResourceCollectionBase {
  public:
    /// The member of a resource number (not a position). Raises 617, "Invalid resource number".
    std::shared_ptr<Resource> Item(std::uint8_t number) const {
        return TypedMember<Resource>(Require(number));
    }

    /// Adds a new resource, or with `source` a copy of it, and saves it into a volume and the property list.
    /// The ID is the default one or that of the source, with "_1", "_2" and so on behind it when it is taken.
    /// Raises 602 for a number in use, and the family's own number for any failure; what failed while saving
    /// stays in the collection.
    std::shared_ptr<Resource> Add(std::uint8_t number, Resource* source = nullptr) {
        return TypedMember<Resource>(AddMember(number, source));
    }

    /// Walks the members in order of insertion.
    using Iterator =
        MappedIterator<std::vector<std::shared_ptr<GameResource>>::const_iterator, TypedMember<Resource>>;
    Iterator begin() const { return Iterator(Members().begin()); }
    Iterator end() const { return Iterator(Members().end()); }

  protected:
    explicit ResourceCollection(const CollectionFamily& family) : ResourceCollectionBase(family) {}
    std::shared_ptr<GameResource> MakeMember() const override { return std::make_shared<Resource>(); }
};

/// The collection of a kind of resource in the library's record; none before the first AGIGame.
ResourceCollectionBase* CollectionOf(AGIResType type);

}  // namespace zorvex
