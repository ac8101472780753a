#pragma once

#include <cls_WriteVisitor.h>
#include <idb_MementoLimits.h>
#include <idb_WriteListObj.h>
#include <idb_WriteListPrim.h>
#include <idb_WriteMapInt2Obj.h>
#include <idb_WriteMapInt2Prim.h>
#include <idb_WriteMapString2Obj.h>
#include <idb_WriteMapString2Prim.h>
#include <oxu_Export.h>

#include <cstdint>
#include <memory>
#include <vector>

class cls_ClassMetadata;

/// Writes a memento, into memory or as a file: a writer visitor whose attributes are the objects that the
/// memento holds by name.
///
///     idb_MementoWrite memento(cow_String("session.oxm"));
///     memento.Add("value", value);
///     memento.Finish();
///
/// A body that is shared is stored once, and the memento keeps it shared until it ends, so that an edit in
/// between detaches and is stored as another object; of a plain pointer the owner promises that. What could
/// not be read back is refused by name: interface objects and wrappers of scripting objects, classes without
/// metadata, cycles, what goes beyond the limits. Refusals raise idb_MementoException, or what the object
/// itself raises; from then on the memento is failed and Finish raises the same again.
///
/// A file is written whole by Finish or not at all; a memento that ends without Finish writes nothing.
class OXU_EXPORT idb_MementoWrite : public cls_WriteVisitor
{
public:
    /// Into memory: see Bytes().
    explicit idb_MementoWrite(const idb_MementoLimits& limits = idb_MementoLimits());
    /// Into the file, which Finish makes or replaces.
    explicit idb_MementoWrite(const cow_String& path, const idb_MementoLimits& limits = idb_MementoLimits());
    ~idb_MementoWrite() override;

    /// The object under a name of its own: what a handle or pointer refers to, null allowed, or a value.
    template <class T>
    void Add(const cow_String& name, const T& object)
    {
        RequireName(name);
        const cls_FieldHandle field = {0, name.AsCharPtr()};
        if constexpr (cls_Handle<T> || std::is_pointer_v<T>)
            WriteShared(field, object);
        else
            WriteObject(field, object);
    }
    /// Ends the memento: nothing can be added from then on. Reports every failure, also one that a destructor
    /// met. A second call does nothing, or raises the failure again.
    void Finish();
    /// The memento, once it is finished. Empty for a file.
    const std::vector<unsigned char>& Bytes() const;
    std::vector<unsigned char> TakeBytes();

    /// Whether the attribute `name` of the class now being written is declared with a collection type that
    /// matches (cls_CollectionsMatch). Where it is not, standard error is told; an attribute that is not
    /// declared counts as a single one there.
    [[nodiscard]] bool CheckCollectionType(cls_CollectionType asked, const cow_String& name) const;
    /// A writer over the stream of the object now being written, kept as the current one, which the memento
    /// finishes and deletes at the end of the attribute. T tells the element type alone.
    template <idb_ListElement T>
    idb_WriteListPrim<T>* MakeWriteListPrim(const T&, int columns);
    template <idb_MapElement T>
    idb_WriteMapInt2Prim<T>* MakeWriteMapInt2Prim(const T&);
    template <idb_MapElement T>
    idb_WriteMapString2Prim<T>* MakeWriteMapString2Prim(const T&);
    idb_WriteListObj* MakeWriteListObj();
    idb_WriteMapInt2Obj* MakeWriteMapInt2Obj();
    idb_WriteMapString2Obj* MakeWriteMapString2Obj();
    /// Kept for compatibility: always null.
    template <idb_MapElement T>
    idb_WriteMapInt2Prim<T>* MakeAltWriteMapInt2Prim(const T&)
    {
        return nullptr;
    }

    /// As a visitor it stands for the whole: it is no object itself and its attributes are objects, all else
    /// is refused.
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
    void PutObjectList(const cls_FieldHandle& field,
                       std::span<const cls_ObjectSource> objects) const override;
    void PutMap(const cls_FieldHandle& field, const cls_KeySpan& keys,
                const cls_PrimSpan& values) const override;
    void PutObjectMap(const cls_FieldHandle& field, const cls_KeySpan& keys,
                      std::span<const cls_ObjectSource> objects) const override;

private:
    friend class idb_PartWriter;

    /// The number of the object, which is written where it was not before.
    std::uint32_t Write(const cls_ObjectSource& source);
    std::uint32_t WriteOnce(const cls_ObjectSource& source);
    /// The index of the class and its record; the class and its parents are added where they are new.
    std::uint32_t ClassIndex(unsigned typeId, const cls_ClassMetadata*& record);
    void RequireText(const cow_String& text) const;
    /// Refuses an object of so many parts where they are too many.
    void RequireParts(std::size_t count) const;
    /// Names go through the visitor as zero-ended texts.
    void RequireName(const cow_String& name) const;
    void Assemble();
    template <class W, class... Arguments>
    W* MakeCollection(Arguments... arguments);

    struct Body;
    std::unique_ptr<Body> body_;
};
