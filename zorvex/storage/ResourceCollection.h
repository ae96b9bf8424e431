// The lists of a game's resources: one object per used resource number, all the time a game is open.
#pragma once

#include <array>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string_view>
#include <vector>

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

    // --- For the library
    // -------------------------------------------------------------------------------------------

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
    void Take(std::uint8_t number);

  private:
    const CollectionFamily& family_;
    std::vector<std::shared_ptr<GameResource>> members_;
    std::array<std::shared_ptr<GameResource>, 256> byNumber_;
};

/// A collection of one resource class.
template <class Resource>
class ResourceCollection : public ResourceCollectionBase {
  public:
    /// The member of a resource number (not a position). Raises 617, "Invalid resource number".
    std::shared_ptr<Resource> Item(std::uint8_t number) const {
        return std::static_pointer_cast<Resource>(Require(number));
    }

    /// Walks the members in order of insertion.
    class Iterator {
      public:
        using Inner = std::vector<std::shared_ptr<GameResource>>::const_iterator;
        using iterator_category = std::input_iterator_tag;
        using value_type = std::shared_ptr<Resource>;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = value_type;

        explicit Iterator(Inner inner) : inner_(inner) {}
        value_type operator*() const { return std::static_pointer_cast<Resource>(*inner_); }
        Iterator& operator++() {
            ++inner_;
            return *this;
        }
        Iterator operator++(int) { return Iterator(inner_++); }
        bool operator==(const Iterator&) const = default;

      private:
        Inner inner_;
    };
    Iterator begin() const { return Iterator(Members().begin()); }
    Iterator end() const { return Iterator(Members().end()); }

  protected:
    explicit ResourceCollection(const CollectionFamily& family) : ResourceCollectionBase(family) {}
    std::shared_ptr<GameResource> MakeMember() const override { return std::make_shared<Resource>(); }
};

/// The collection of a kind of resource in the library's record; none before the first AGIGame.
ResourceCollectionBase* CollectionOf(AGIResType type);

}  // namespace zorvex
