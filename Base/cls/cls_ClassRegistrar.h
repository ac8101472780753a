#pragma once

#include <bas_Export.h>
#include <cls_ClassMetadata.h>
#include <cow_List.h>
#include <cow_String.h>

#include <memory>

class cls_ClassRegistrar;
/// Declares one class, or several, with a registrar: a class's static InitializeMetadata.
using cls_MetadataFunction = void (*)(cls_ClassRegistrar&);

/// The metadata records of all declared classes, by type id and by name.
///
/// Filled at start-up on one thread. Afterwards look-ups may run on any thread, also the first one that
/// meets a late declaration.
class BAS_EXPORT cls_ClassRegistrar
{
public:
    cls_ClassRegistrar();
    cls_ClassRegistrar(const cls_ClassRegistrar&) = delete;
    cls_ClassRegistrar& operator=(const cls_ClassRegistrar&) = delete;
    ~cls_ClassRegistrar();

    /// Declares a class and returns its record, to which attributes and hook are added. A class declared
    /// before with the same data gives the record that there is; other data under its type id, or its
    /// name under another type id, is an internal error that names both. The reference stays valid as
    /// long as the registrar.
    cls_ClassMetadata& Create(const cow_String& name, unsigned typeId, unsigned version,
                              const cls_AdapterBase* adapter, unsigned parentTypeId);

    /// Announces a class that is declared by `declare` when it is first looked up, and not at start-up.
    /// The function must declare that class alone. Announcing it again changes nothing.
    void DeclareLate(unsigned typeId, const char* name, cls_MetadataFunction declare);

    /// The record of a class, or null.
    const cls_ClassMetadata* Find(unsigned typeId) const;
    /// The record of the class of that registered name; else of the class which its component table lists
    /// under that name (some classes have two names); else null.
    const cls_ClassMetadata* Find(const cow_String& name) const;

    /// True when `type` is `base` or descends from it; every class descends from 1. Parents are followed
    /// by id through the records and, for classes without one, through the component tables. A chain that
    /// breaks off or runs in a circle before it meets `base` gives false.
    bool InheritanceCheck(unsigned type, unsigned base) const;

    /// The destructor hook of the class or of the nearest parent that has one; null where none has.
    cls_DtorHook FindDtor(unsigned typeId) const;

    /// The name of a class for messages: the registered one, else that of its component table, else the
    /// id as "0x13002d".
    cow_String NameOf(unsigned typeId) const;

    /// Type ids of the declared classes in order of their declaration, then of the late classes,
    /// looked up or not, in order of their announcement.
    cow_List<unsigned> TypeIds() const;

    /// How often Create has declared a class or met a repeated declaration of one.
    int Declarations() const;
    /// The record that Create returned last; null before the first.
    const cls_ClassMetadata* LastDeclared() const;

private:
    struct Body;
    std::unique_ptr<Body> body_;
};
