#pragma once

#include <cow_List.h>
#include <cow_String.h>
#include <oxu_Export.h>

/// The path of an object as the scripting language writes it, and its parts: the root, then pieces such as
/// ".member", "['key']", "[3]" and "(args)". Parts joined give the path again.
///
/// A path is not plain when it does not begin with a letter or "_", when it is an expression ("a+b"), when a
/// bracket or a call is not closed, or when behind one there is neither ".", "[" nor "(". Its parts then are
/// those before that place. ".getSequenceFromMask" and everything behind it stay one part.
///
/// The parts are found once, on first use, in time linear in the length; not for two threads at once.
class OXU_EXPORT omu_PathString
{
public:
    explicit omu_PathString(const cow_String& path = cow_String()) : path_(path) {}

    const cow_List<cow_String>& GetPathAsList() const;
    /// The parts bare of dots, brackets and quotes: "mdb", "models", "M1". Empty brackets and calls give
    /// none.
    cow_List<cow_String> GetPathAsDottedList() const;
    /// "mdb.models.M1".
    cow_String AsDottedString() const;
    /// Each subscript made generic: "mdb.models[name].parts[i]". A path that is not plain stays as it is.
    cow_String AsGenericString() const;
    const cow_String& AsString() const { return path_; }
    bool IsPlain() const;
    /// A plain path from "mdb", or from "session" into an odb: its next part is "openOdb", ".openOdb", ".Odb"
    /// or ".odbs".
    bool InObjectModel() const;

private:
    void Split() const;

    cow_String path_;
    mutable cow_List<cow_String> parts_;
    mutable bool isSplit_ = false;
    mutable bool isNotPlain_ = false;
};
