#pragma once

#include <string>
#include <vector>

/// The metadata registry of the running library as a tree: every class stands behind its parent, children in
/// the order of their registration.
class bat_ClassTree
{
public:
    struct Attribute
    {
        std::string name;
        unsigned type;
        unsigned collection;
        std::string className; ///< of what is held; empty for plain values
    };

    enum class Kind {
        CONCRETE,  ///< created by its type id when it is read
        ABSTRACT,  ///< only its descendants are created
        EMBEDDED,  ///< registered, yet not created by its type id
        UNDECLARED ///< has a row in its component's table, and no metadata
    };

    struct Class
    {
        std::string name;
        std::string tableName; ///< its other name, in the component table; empty where that is the same
        unsigned typeId;
        unsigned version; ///< 0 when undeclared
        Kind kind;
        std::string parent; ///< empty at the top
        int depth;          ///< 0 at the top
        std::vector<Attribute> attributes;
    };

    /// All registered classes.
    static bat_ClassTree All();
    /// The class of that name, registered or in a component table, with all its ancestors before and all its
    /// descendants behind it. An unknown name raises bat_InputError with the nearest names.
    static bat_ClassTree Around(const std::string& name);

    const std::vector<Class>& Classes() const { return classes_; }
    /// Place of the class that was asked for; -1 when all are listed.
    int Asked() const { return asked_; }
    /// "concrete" and so on.
    static const char* NameOf(Kind kind);

private:
    void Add(unsigned typeId, int depth);
    void AddBelow(unsigned typeId, int depth);

    std::vector<Class> classes_;
    int asked_ = -1;
};
