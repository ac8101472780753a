#pragma once

#include <idb_PartReader.h>
#include <idb_StoredMemento.h>

#include <deque>
#include <vector>

/// One attribute of a part and where its payload lies.
struct idb_PartAttribute
{
    std::uint16_t index = 0; ///< in its class
    std::uint16_t type = 0;
    std::uint16_t collection = 0;
    bio_Ifilter payload;
};

/// What one class of an object has stored.
struct idb_StoredPart
{
    std::uint32_t classIndex = 0;
    cls_Uid uid = cls_Uid::Null();
    std::size_t firstAttribute = 0;
    std::size_t attributeCount = 0;
};

/// The body of one object taken apart, while the object is built. Serves one object after another, so that
/// nothing is allocated for each.
class idb_ObjectFrame
{
public:
    explicit idb_ObjectFrame(idb_MementoRead& memento) : memento_(memento) {}
    idb_ObjectFrame(const idb_ObjectFrame&) = delete;
    idb_ObjectFrame& operator=(const idb_ObjectFrame&) = delete;

    /// Takes the body apart, on the memento's budget. What disagrees with itself or with the classes raises
    /// idb_MementoException, data that is not there bio_DataException.
    void Open(idb_StoredMemento& stored, const idb_MementoLimits& limits, std::uint32_t number);

    idb_MementoRead& Memento() const { return memento_; }
    const idb_StoredMemento& Stored() const { return *stored_; }
    std::uint32_t Number() const { return number_; }
    /// The class of the object.
    const idb_StoredClass& Class() const { return stored_->ClassOf(number_); }
    /// What the object's own class (0) has stored, or its parent (1) and so on; null where that is nothing.
    const idb_StoredPart* Part(std::size_t level) const
    {
        return level < levels_.size() && levels_[level] >= 0
                   ? &parts_[static_cast<std::size_t>(levels_[level])]
                   : nullptr;
    }
    /// How many levels there are down to the last part.
    std::size_t Levels() const { return levels_.size(); }
    const idb_StoredClass& ClassOf(const idb_StoredPart& part) const
    {
        return stored_->Classes()[part.classIndex];
    }
    /// The attribute of that name, or null.
    const idb_PartAttribute* Find(const idb_StoredPart& part, const cls_FieldHandle& field) const;
    /// The reader of a level; those from Levels() on have nothing.
    const idb_PartReader& Reader(std::size_t level);

private:
    void OpenPart(bio_Ifilter& in);
    void FindLevels();

    idb_MementoRead& memento_;
    idb_StoredMemento* stored_ = nullptr;
    std::uint32_t number_ = 0;
    std::vector<idb_StoredPart> parts_; // base first
    std::vector<int> levels_;           // by level, the place in parts_ or -1
    std::vector<idb_PartAttribute> attributes_;
    std::vector<std::uint64_t> seen_; // by attribute index, the last part that had it
    std::uint64_t partsSeen_ = 0;
    std::vector<std::uint32_t> bases_;   // by class index, 1 more than the index of the base found good last
    std::deque<idb_PartReader> readers_; // by level
    std::vector<const idb_PartReader*> readerPlaces_;
};
