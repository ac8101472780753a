#pragma once

#include <cls_FieldHandle.h>
#include <cow_List.h>
#include <omu_Varray.h>

class cls_ClassRegistrar;

/// What an array class of objects T is called and how its objects are written; specialised in the header that
/// gives the array its name.
///
/// Holds TYPE_ID, NAME (the registered one) and `static cow_String Text(const T&)`.
template <class T>
struct omu_xoObjVarrayTraits;

/// An array of objects T, as scripts hold it. Over cow_List<T>: copies share the objects until one is
/// written. Stored as a list of objects. Every instance has a name and a header of its own
/// (gsl_PlaneArray.h); include that, and use the name.
template <class T>
class OXU_EXPORT omu_xoObjVarray : public omu_Varray
{
    using Traits = omu_xoObjVarrayTraits<T>;

public:
    static constexpr unsigned TypeId() { return omu_xoObjVarrayTraits<T>::TYPE_ID; }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    omu_xoObjVarray() = default;
    explicit omu_xoObjVarray(const cow_List<T>& items) : m_Items(items) {}
    explicit omu_xoObjVarray(const cls_ReadVisitor& reader);

    void Append(const T& item) { m_Items.Append(item); }
    void Clear() noexcept { m_Items.Clear(); }

    int Length() const override { return m_Items.Length(); }
    /// An index outside 0 .. Length() - 1 raises the out-of-range error.
    const T& Index(int index) const { return m_Items.Get(index); }
    const T& operator[](int index) const { return m_Items.Get(index); }
    const cow_List<T>& Items() const { return m_Items; }

    cow_String TypeName() const override { return Traits::NAME; }
    cow_String ItemAsString(int index) const override { return Traits::Text(Index(index)); }
    omu_xoObjVarray* Copy() const override { return new omu_xoObjVarray(*this); }
    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override;

private:
    static constexpr cls_FieldHandle ITEMS = {0, "items"};
    static constexpr unsigned LAYOUT_RELEASE = 800;

    cow_List<T> m_Items;
};
