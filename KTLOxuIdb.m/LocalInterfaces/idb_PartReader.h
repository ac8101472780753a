#pragma once

#include <bio_Ifilter.h>
#include <cls_AttributeType.h>
#include <cls_ReadVisitor.h>

#include <type_traits>

class idb_MementoRead;
class idb_ObjectFrame;
struct idb_PartAttribute;
struct idb_StoredPart;

/// The reader of what one class of the object in a frame has stored: the object's own class, its parent, and
/// so on. Where that is nothing, every attribute is absent. Its collections come from the memento's
/// factories.
class idb_PartReader final : public cls_ReadVisitor
{
public:
    idb_PartReader(idb_ObjectFrame& frame, std::size_t level) : frame_(frame), level_(level) {}

    unsigned TypeId() const override;
    unsigned Version() const override;
    cls_Uid Uid() const override;
    const cls_ReadVisitor& BaseReader() const override;

    bool ReadBool(const cls_FieldHandle& field, bool& value) const override;
    bool ReadChar(const cls_FieldHandle& field, char& value) const override;
    bool ReadInt(const cls_FieldHandle& field, int& value) const override;
    bool ReadFloat(const cls_FieldHandle& field, float& value) const override;
    bool ReadDouble(const cls_FieldHandle& field, double& value) const override;
    bool ReadString(const cls_FieldHandle& field, cow_String& value) const override;
    bool ReadMessage(const cls_FieldHandle& field, atr_String& value) const override;
    bool ReadEnum(const cls_FieldHandle& field, cow_String& name) const override;

protected:
    bool GetObject(const cls_FieldHandle& field, cls_ObjectSink& sink) const override;
    bool GetList(const cls_FieldHandle& field, const cls_PrimSink& elements, int& columns) const override;
    bool GetObjectList(const cls_FieldHandle& field, cls_ObjectSink& sink) const override;
    bool GetMap(const cls_FieldHandle& field, const cls_KeySink& keys,
                const cls_PrimSink& values) const override;
    bool GetObjectMap(const cls_FieldHandle& field, const cls_KeySink& keys,
                      cls_ObjectSink& sink) const override;

private:
    /// Null where nothing is stored.
    const idb_StoredPart* Part() const;
    /// The attribute, checked for its type, or null.
    const idb_PartAttribute* Find(const cls_FieldHandle& field, cls_AttributeType type) const;
    /// The attribute as the memento's current collection; null where it is absent.
    const idb_PartAttribute* Begin(const cls_FieldHandle& field) const;
    template <class T>
    bool ReadSingle(const cls_FieldHandle& field, cls_AttributeType type, T& value) const;
    /// The text in the attribute; one equal to the attribute's former one shares it.
    cow_String ReadText(bio_Ifilter& in, const idb_PartAttribute& attribute) const;
    /// A collection that a factory gave; null raises, since the factory was asked for `asked`.
    template <class P>
    P Given(P reader, const cls_FieldHandle& field, cls_CollectionType asked) const;
    void RequireSingle(const idb_PartAttribute& attribute, const cls_FieldHandle& field) const;
    [[noreturn]] void RefuseCollection(const cls_FieldHandle& field, unsigned recorded,
                                       cls_CollectionType asked) const;
    static void RequireEnd(const bio_Ifilter& in);

    idb_ObjectFrame& frame_;
    std::size_t level_;
};
