#pragma once

#include <cow_COW.h>
#include <cow_List.h>
#include <cow_Map.h>
#include <cow_String.h>
#include <mdl_Extension.h>

/// A named collection of a model's objects by name, in the order of their insertion. A copy shares the
/// objects until one side takes them for writing.
class OXU_EXPORT mdl_Repository : public mdl_Extension
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x0A, 1); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    explicit mdl_Repository(const cow_String& name = cow_String()) : m_name(name) {}
    explicit mdl_Repository(const cls_ReadVisitor& reader);

    mdl_Repository* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;
    void NewUid() override;

    const cow_String& Name() const { return m_name; }
    cow_List<cow_String> Keys() const { return m_objects.Keys(); }
    /// The object for writing, for reading; null when there is none of that name. The repository owns it.
    mdl_Extension* Get(const cow_String& key);
    const mdl_Extension* ConstGet(const cow_String& key) const;
    /// Takes the object over; one of that name is replaced in its place. False for null, which changes
    /// nothing.
    [[nodiscard]] bool Insert(const cow_String& key, mdl_Extension* owned);
    /// False when there is none of that name.
    [[nodiscard]] bool Remove(const cow_String& key);
    /// Renames an entry, in its place; one already called `to` goes. False when there is no `from`.
    [[nodiscard]] bool ChangeKey(const cow_String& from, const cow_String& to);

    /// The repository's own identity, beside that of its part as an extension.
    const cls_Uid& RepositoryUid() const { return uid_; }

private:
    static constexpr auto Fields();

    cow_String m_name;
    cow_Map<cow_String, cow_COW<mdl_Extension>> m_objects;
    cls_Uid uid_;
};
