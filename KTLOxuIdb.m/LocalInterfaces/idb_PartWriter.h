#pragma once

#include <cls_AttributeType.h>
#include <cls_WriteVisitor.h>

#include <cstdint>
#include <vector>

class bio_Ofilter;
class cls_ClassMetadata;
class idb_MementoWrite;
class idb_WriteFrame;
struct cls_Attribute;

/// The writer of one part of the object in a frame. A part goes into the stream whole, the base part before
/// it, so an object writes its base part before its own attributes. Its collections come from the memento's
/// factories.
class idb_PartWriter final : public cls_WriteVisitor
{
public:
    idb_PartWriter(idb_WriteFrame& frame, std::size_t index) : frame_(frame), index_(index) {}

    void Reset() const;
    /// Ends the part and, where it was used, its base part before it.
    void Close() const;
    /// The class that was announced; null for none.
    const cls_ClassMetadata* Record() const { return announced_ ? record_ : nullptr; }
    std::uint32_t ClassIndex() const { return classIndex_; }

    bool Announce(unsigned typeId, const cls_Uid& uid) const override;
    const cls_WriteVisitor& BaseWriter() const override;
    void WriteBool(const cls_FieldHandle& field, bool value) const override;
    void WriteChar(const cls_FieldHandle& field, char value) const override;
    void WriteInt(const cls_FieldHandle& field, int value) const override;
    void WriteFloat(const cls_FieldHandle& field, float value) const override;
    void WriteDouble(const cls_FieldHandle& field, double value) const override;
    void WriteString(const cls_FieldHandle& field, const cow_String& value) const override;
    void WriteMessage(const cls_FieldHandle& field, const atr_String& value) const override;
    void WriteEnum(const cls_FieldHandle& field, const cow_String& name) const override;

protected:
    void PutObject(const cls_FieldHandle& field, const cls_ObjectSource& object) const override;
    void PutList(const cls_FieldHandle& field, const cls_PrimSpan& elements, int columns) const override;
    void PutSharedList(const cls_FieldHandle& field, const cls_PrimList& list, int columns) const override;
    void PutObjectList(const cls_FieldHandle& field,
                       std::span<const cls_ObjectSource> objects) const override;
    void PutMap(const cls_FieldHandle& field, const cls_KeySpan& keys,
                const cls_PrimSpan& values) const override;
    void PutObjectMap(const cls_FieldHandle& field, const cls_KeySpan& keys,
                      std::span<const cls_ObjectSource> objects) const override;

private:
    /// Emits the part's head, once, behind its base part.
    void Open() const;
    /// The declared attribute; one that is not declared, of another type or written before is refused.
    const cls_Attribute& Declared(const cls_FieldHandle& field, cls_AttributeType type) const;
    void BeginCollection(const cls_FieldHandle& field, cls_CollectionType asked) const;
    void RequireCollection(const cls_Attribute& attribute, cls_CollectionType asked) const;
    /// The head of the attribute declared last, into bytes of its size; what is behind it.
    unsigned char* StoreHead(unsigned char* at, const cls_Attribute& attribute, std::uint64_t length) const;
    /// Ends the collection begun last, and its writer with it.
    void EndCollection() const;
    template <class T>
    void WriteSingle(const cls_FieldHandle& field, cls_AttributeType type, const T& value) const;

    // A visitor's operations are const; what they change is the state of the writing.
    idb_WriteFrame& frame_;
    std::size_t index_;
    mutable bool announced_ = false;
    mutable bool baseUsed_ = false;
    mutable bool opened_ = false;
    mutable unsigned typeId_ = 0; // stays from object to object, with what was found for it
    mutable const cls_ClassMetadata* record_ = nullptr;
    mutable std::uint32_t classIndex_ = 0;
    mutable cls_Uid uid_ = cls_Uid::Null();
    mutable std::size_t lengthAt_ = 0;
    mutable std::size_t attributeLengthAt_ = 0;
    // Of the body, where part and attribute begin that the lengths are of.
    mutable std::size_t begin_ = 0;
    mutable std::size_t attributeBegin_ = 0;
    mutable std::vector<std::size_t> written_; // attributes, by place
    mutable bool inOrder_ = true;              // each behind the one before it
};
