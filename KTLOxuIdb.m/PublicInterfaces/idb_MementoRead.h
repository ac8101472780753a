#pragma once

#include <cls_AttributeType.h>
#include <cls_ReadVisitor.h>
#include <idb_MementoLimits.h>
#include <idb_ReadListObj.h>
#include <idb_ReadListPrim.h>
#include <idb_ReadMapInt2Obj.h>
#include <idb_ReadMapInt2Prim.h>
#include <idb_ReadMapString2Obj.h>
#include <idb_ReadMapString2Prim.h>
#include <oxu_Export.h>

#include <memory>
#include <span>

class idb_StoredMemento;

/// Reads a memento, from memory or from a file: a reader visitor whose attributes are the objects that the
/// memento holds by name.
///
///     idb_MementoRead memento(cow_String("session.oxm"));
///     cow_COW<omu_Primitive> value;
///     memento.Root("value", value);
///
/// The constructor checks the whole memento, checksums first; objects are built when they are asked for, each
/// once, and all references to one share it. Whatever is wrong raises idb_MementoException, and what the
/// caller passed stays as it was; memory that runs out is std::bad_alloc. Reads on one thread at a time; the
/// classes must be registered by then.
class OXU_EXPORT idb_MementoRead : public cls_ReadVisitor
{
public:
    /// Looks at the bytes: their owner keeps them alive.
    explicit idb_MementoRead(std::span<const unsigned char> bytes,
                             const idb_MementoLimits& limits = idb_MementoLimits());
    /// Reads the file, which may be replaced or removed afterwards.
    explicit idb_MementoRead(const cow_String& path, const idb_MementoLimits& limits = idb_MementoLimits());
    ~idb_MementoRead() override;

    /// The object of that name into a handle (cow_COW, cow_CountedHld) or, where it was written by value,
    /// into a value. An unknown name raises.
    template <class T>
    void Root(const cow_String& name, T& object)
    {
        RequireRoot(name);
        const cls_FieldHandle field = {0, name.AsCharPtr()};
        if constexpr (cls_Handle<T>)
            ReadShared(field, object);
        else
            ReadObject(field, object);
    }
    /// The object of that name by itself, whatever its class; null where null was stored. An object that was
    /// read already, and shared, is refused.
    std::unique_ptr<cls_Persistent> Root(const cow_String& name);
    bool HasRoot(const cow_String& name) const;
    /// In stored order.
    cow_List<cow_String> RootNames() const;

    /// What is odd in this memento and does no harm, a sentence each: a newer format, sections that were
    /// skipped, classes of a newer version than the registered one.
    const cow_List<cow_String>& Warnings() const;
    const idb_StoredMemento& Stored() const;

    /// The object of that number to the sink; 0 is null. A wrong class is said on standard error first, then
    /// raised like everything else.
    void ReadObjPtr(std::uint32_t number, cls_ObjectSink& sink);
    /// The class of the object of that number; 0 for null.
    unsigned TypeIdOf(std::uint32_t number) const;

    /// Makes a collection the one that the factories serve: the code that the memento records for the
    /// attribute now being read and the bytes of the attribute. EndCollection refuses bytes that were left
    /// over.
    void BeginCollection(cls_CollectionType recorded, const bio_Ifilter& payload);
    void EndCollection();

    /// The reader that the memento prepared for the attribute now being read. Null where the recorded code is
    /// not one that the factory accepts, which is said on standard error, and where there is no attribute,
    /// which is not. Asked again it makes another one, over the same bytes. T tells the element type alone.
    template <idb_ListElement T>
    std::unique_ptr<idb_ReadListPrim<T>> MakeReadListPrim(const T&);
    template <idb_MapElement T>
    std::unique_ptr<idb_ReadMapInt2Prim<T>> MakeReadMapInt2Prim(const T&);
    template <idb_MapElement T>
    std::unique_ptr<idb_ReadMapString2Prim<T>> MakeReadMapString2Prim(const T&);
    std::unique_ptr<idb_ReadListObj> MakeReadListObj();
    std::unique_ptr<idb_ReadMapInt2Obj> MakeReadMapInt2Obj();
    std::unique_ptr<idb_ReadMapString2Obj> MakeReadMapString2Obj();
    /// Kept for compatibility: always null.
    std::unique_ptr<idb_ReadMapInt2Obj> MakeAltReadMapInt2Obj();
    template <idb_MapElement T>
    std::unique_ptr<idb_ReadMapInt2Prim<T>> MakeAltReadMapInt2Prim(const T&)
    {
        return nullptr;
    }

    /// As a visitor it stands for the whole: it has no class, no identifier and no base part, its version is
    /// that of the format, and its attributes are objects.
    unsigned TypeId() const override { return 0; }
    unsigned Version() const override;
    cls_Uid Uid() const override { return cls_Uid::Null(); }
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
    friend class idb_PartReader;
    friend class idb_ReadListObj;

    /// Refuses a text at the stream's position that is too long.
    void RequireText(const bio_Ifilter& in) const;
    /// The text read last for an attribute, by its place among those of all classes: most are as before.
    cow_String& LastText(std::size_t place);
    template <class T>
    void RequireTexts(const cow_List<T>& values) const;
    /// Whether the object was read into a body that others may share, not into a value.
    bool IsShared(std::uint32_t number) const;
    void RequireRoot(const cow_String& name) const;
    /// False where there is no root of that name; one is an object, which raises.
    bool NoRoot(const cls_FieldHandle& field, cls_AttributeType asked) const;
    std::unique_ptr<cls_Persistent> Create(std::uint32_t number);
    void Charge(std::uint64_t bytes);
    template <class R>
    std::unique_ptr<R> MakeCollection(std::initializer_list<cls_CollectionType> accepted, const char* message,
                                      std::size_t bytesEach, std::size_t costEach);

    struct Body;
    std::unique_ptr<Body> body_;
};
