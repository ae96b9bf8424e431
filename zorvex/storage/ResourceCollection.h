// The lists of a game's resources: one object per used resource number, all the time a game is open.
#pragma once

#include <array>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string_view>
#include <type_traits>
#include <vector>

#include "zorvex/base/Checked.h"
#include "zorvex/base/Types.h"
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

/// The members of a collection in the order in which they were added, and by number. A walk keeps the order
/// that it began with.
struct MemberTable {
    using List = std::vector<std::shared_ptr<GameResource>>;

    std::shared_ptr<const List> Members = std::make_shared<List>();
    std::array<std::shared_ptr<GameResource>, 256> ByNumber;

    bool Has(const std::shared_ptr<GameResource>& member) const {
        return ByNumber[member->Number()] == member;
    }
};

/// Walks a collection. Members that leave it during the walk are not met any more, those that stay are met
/// exactly once, and those that come are left to the next walk. The walk may outlive the collection.
template <class Resource>
class MemberIterator {
  public:
    using value_type = std::shared_ptr<Resource>;
    using difference_type = std::ptrdiff_t;
    using iterator_category = std::input_iterator_tag;
    using reference = const value_type&;
    using pointer = const value_type*;

    MemberIterator() = default;
    explicit MemberIterator(std::shared_ptr<const MemberTable> table)
        : table_(std::move(table)), members_(table_->Members) {
        Settle();
    }

    reference operator*() const { return present_; }
    pointer operator->() const { return &present_; }
    MemberIterator& operator++() {
        ++at_;
        Settle();
        return *this;
    }
    void operator++(int) { ++*this; }
    /// Only the comparison with the end means anything.
    bool operator==(const MemberIterator& other) const { return present_ == other.present_; }

  private:
    void Settle() {
        while (at_ < members_->size() && !table_->Has((*members_)[at_]))
            ++at_;
        present_ = at_ < members_->size() ? std::static_pointer_cast<Resource>((*members_)[at_]) : nullptr;
    }

    std::shared_ptr<const MemberTable> table_;
    std::shared_ptr<const MemberTable::List> members_;
    std::size_t at_ = 0;
    value_type present_;
};

/// What the four collections share. Members are kept in the order in which they were added, not by number.
///
/// A collection lives as long as its AGIGame, over any number of games; while no game is open it is empty.
/// Members that take a number of a resource take any integer: one outside 0 to 255 is the number of no
/// resource. What changes a game raises 91 while the collection's AGIGame is not that of the present
/// workspace, and while its game is still being opened.
class ResourceCollectionBase {
  public:
    ResourceCollectionBase(const ResourceCollectionBase&) = delete;
    ResourceCollectionBase& operator=(const ResourceCollectionBase&) = delete;
    virtual ~ResourceCollectionBase() = default;

    /// True when there is a member of that number, loaded or not.
    bool Exists(std::integral auto number) const { return MemberAt(number) != nullptr; }
    std::int32_t Count() const { return static_cast<std::int32_t>(size()); }
    std::size_t size() const { return table_->Members->size(); }
    bool empty() const { return size() == 0; }
    /// The highest number in use; for an empty collection -1 for logics and 0 for the others.
    std::int16_t Max() const;

    /// Takes a resource out of the game: its directory entry is blanked on disk, its section leaves the
    /// property list. The bytes in the volume stay until their space is used. An object of it that a host
    /// keeps stands alone from then on. Raises 617.
    void Remove(std::integral auto number) { RemoveMember(NumberOr(number, 617)); }
    /// Gives a resource another number; nothing in a volume moves. A default ID follows the number, and with
    /// it a logic's source file. Nothing happens when both numbers are the same. Raises 669 when the new
    /// number is taken, 9 when it is none, and 670 for any failure.
    void Renumber(std::integral auto oldNumber, std::integral auto newNumber) {
        if (std::cmp_equal(oldNumber, newNumber)) return;
        RenumberMember(NumberOr(oldNumber, 670), NumberOr(newNumber, 0));
    }

    // --- For the library ---
    const CollectionFamily& Family() const { return family_; }
    /// Registers a resource found in a directory file. Raises 602 for a number in use, passes 502, 505, 506,
    /// 507, 511 and 606 of the resource's load, and wraps any other fault in the family's own number.
    void LoadEntry(const Internal& key, std::uint8_t number, std::int32_t volume, std::int32_t loc);
    /// Removes every member, the last first; they leave the game.
    void ClearCollection(const Internal& key) noexcept;
    /// The members in order.
    const MemberTable::List& Members() const { return *table_->Members; }

    /// The member of a number, or none.
    std::shared_ptr<GameResource> Find(std::integral auto number) const { return MemberAt(number); }

  protected:
    explicit ResourceCollectionBase(const CollectionFamily& family) : family_(family) {}

    virtual std::shared_ptr<GameResource> MakeMember() const = 0;
    const std::shared_ptr<MemberTable>& Table() const { return table_; }
    /// The member of a number, or none.
    template <std::integral Number>
    const std::shared_ptr<GameResource>& MemberAt(Number number) const {
        static const std::shared_ptr<GameResource> none;
        return std::cmp_less(number, 0) || std::cmp_greater(number, 255)
                   ? none
                   : table_->ByNumber[static_cast<std::size_t>(number)];
    }
    /// The member of a number; raises 617.
    template <std::integral Number>
    const std::shared_ptr<GameResource>& Require(Number number) const {
        const auto& member = MemberAt(number);
        if (!member) RaiseUnknown(617);
        return member;
    }
    /// The first member of an ID, or none.
    std::shared_ptr<GameResource> MemberOfID(std::string_view id) const;
    /// Adds a new member, a copy of `source` if that is given, and saves it into the game.
    std::shared_ptr<GameResource> AddMember(std::uint8_t number, GameResource* source);
    /// A number that is one; else raises the error of that id, or 9 for 0.
    template <std::integral Number>
    std::uint8_t NumberOr(Number number, std::int32_t id) const {
        if (std::cmp_less(number, 0) || std::cmp_greater(number, 255)) RaiseUnknown(id);
        return static_cast<std::uint8_t>(number);
    }

  private:
    [[noreturn]] void RaiseUnknown(std::int32_t id) const;
    void RequirePresent() const;
    /// As `RequirePresent`, and raises 91 while the game is still being opened.
    void RequireEditable() const;
    /// True for the number of a directory entry that was left though its resource cannot be read.
    bool IsLeft(std::uint8_t number) const;
    void Insert(std::uint8_t number, std::shared_ptr<GameResource> member);
    void Take(std::uint8_t number);
    /// The list to change: a copy where a walk holds the present one.
    MemberTable::List& Changed();
    void RemoveMember(std::uint8_t number);
    void RenumberMember(std::uint8_t oldNumber, std::uint8_t newNumber);

    const CollectionFamily& family_;
    std::shared_ptr<MemberTable> table_ = std::make_shared<MemberTable>();
};

/// A collection of one resource class.
template <class Resource>
class ResourceCollection : public ResourceCollectionBase {
  public:
    using value_type = std::shared_ptr<Resource>;

    /// The member of a resource number (not a position). Raises 617, "Invalid resource number".
    std::shared_ptr<Resource> Item(std::integral auto number) const {
        return std::static_pointer_cast<Resource>(Require(number));
    }
    /// The member of a resource number, or null.
    std::shared_ptr<Resource> Find(std::integral auto number) const {
        return std::static_pointer_cast<Resource>(MemberAt(number));
    }
    /// The first member of an ID (host text; ASCII case counts for nothing), or null.
    std::shared_ptr<Resource> FindByID(std::string_view id) const {
        return std::static_pointer_cast<Resource>(MemberOfID(id));
    }

    /// Adds a new resource, or with `source` a copy of it, and saves it into a volume and the property list.
    /// The ID is the default one or that of the source, with "_1", "_2" and so on behind it when it is taken.
    /// Raises 602 for a number in use, 9 for a number outside 0 to 255, and the family's own number for any
    /// failure; what failed while saving stays in the collection.
    std::shared_ptr<Resource> Add(std::integral auto number, Resource* source = nullptr) {
        return std::static_pointer_cast<Resource>(AddMember(NumberOr(number, 0), source));
    }

    /// Walks the members in order of insertion; elements bind to `auto&`. The collection may be changed
    /// during the walk.
    using Iterator = MemberIterator<Resource>;
    Iterator begin() const { return Iterator(Table()); }
    Iterator end() const { return {}; }
    /// The members by number: a list of its own, which a change of the collection leaves as it is.
    std::vector<std::shared_ptr<Resource>> ByNumber() const {
        std::vector<std::shared_ptr<Resource>> members;
        members.reserve(size());
        for (const auto& member : Table()->ByNumber) {
            if (member) members.push_back(std::static_pointer_cast<Resource>(member));
        }
        return members;
    }

  protected:
    ResourceCollection(const Internal& /*key*/, const CollectionFamily& family)
        : ResourceCollectionBase(family) {}
    std::shared_ptr<GameResource> MakeMember() const override { return std::make_shared<Resource>(); }
};

/// The collection of a kind of resource in the library's record; none before the first AGIGame.
ResourceCollectionBase* CollectionOf(AGIResType type);

}  // namespace zorvex
