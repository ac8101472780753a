#pragma once

#include <cow_List.h>
#include <memory>
#include <omu_OperationRules.h>
#include <omu_Primitive.h>
#include <omu_PythonType.h>
#include <omu_Shortcut.h>

class omu_Arguments;
class omu_PrimWrapper;

/// The scripting language's handle on an object of the application; kind "<". It holds no data of the object,
/// but the way that leads to it. Members and methods come from tables that the class describes once:
///
///     const part_IntObj::TypeDesc& part_IntObj::Description()
///     {
///         static const methodTable METHODS[] = {{"rename", Method<&part_IntObj::Rename>}, {}};
///         static const memberTable MEMBERS[] = {{"name", Reader<&part_IntObj::Name>}, {}};
///         static const TypeDesc description = DescribeType("Part", METHODS, MEMBERS, nullptr, nullptr);
///         return description;
///     }
///     part_IntObj::part_IntObj(const omu_Shortcut& shortcut) : omu_MemberIntObj(shortcut)
///     {
///         SetTypeDesc(Description());
///     }
///
/// Stale once the object is gone: members and methods then raise omu_AccessErrorException with the path,
/// while the handle can still be traced, printed and compared. Equality: the same type and the same path;
/// without a path an object equals itself alone. Values that operations return are owned by the caller.
///
/// Never stored: DBWrite refuses, "Part cannot be stored". Who stores references stores paths, as texts.
class OXU_EXPORT omu_InterfaceObj : public omu_Primitive
{
public:
    /// Calls the method with the arguments, on which Begin was not called yet; null is None.
    using MethodHandler = omu_Primitive* (*)(const omu_InterfaceObj& self, omu_Arguments& arguments);
    /// Reads the member; null is None.
    using MemberReader = omu_Primitive* (*)(const omu_InterfaceObj& self);
    /// Sets the member from the one argument.
    using MemberWriter = void (*)(const omu_InterfaceObj& self, omu_Arguments& value);

    /// Flags of a table's rows.
    enum Flag : unsigned {
        PLAIN = 0,
        NOT_JOURNALLED = 1, ///< a method that changes nothing
        NOT_FOR_QUERY = 2   ///< a member that queries are not offered
    };

    /// Row of the table of methods. A row without a name ends its table, here and in the tables below.
    struct methodTable
    {
        const char* name = nullptr;
        MethodHandler handler = nullptr;
        unsigned flags = PLAIN;
    };
    /// Row of the table of members.
    struct memberTable
    {
        const char* name = nullptr;
        MemberReader handler = nullptr;
        unsigned flags = PLAIN;
        MemberWriter writer = nullptr; ///< null: read-only
    };
    /// A name that still answers and is listed nowhere. Without a handler the replacing method does.
    struct deprecatedMethodTable
    {
        const char* name = nullptr;
        MethodHandler handler = nullptr;
        unsigned flags = PLAIN;
        const char* replacedBy = nullptr;
    };
    /// The same for a member.
    struct deprecatedMemberTable
    {
        const char* name = nullptr;
        MemberReader handler = nullptr;
        unsigned flags = PLAIN;
        MemberWriter writer = nullptr;
        const char* replacedBy = nullptr;
    };

    /// What is said of a type once: its names and its tables. A value; copies share it.
    class OXU_EXPORT TypeDesc
    {
    public:
        /// The type of an object that nobody described: no names, no members.
        TypeDesc() = default;

        /// The type's own name; empty when nobody described it.
        cow_String TypeName() const;
        /// The name of the type that this one extends; "OrvexObject" when there is no other.
        cow_String BaseTypeName() const;
        /// Most general first, the type's own last.
        const cow_List<cow_String>& TypeNames() const;
        /// Current names, those of the extended type first; none of the deprecated ones.
        const cow_List<cow_String>& MethodNames() const;
        const cow_List<cow_String>& MemberNames() const;

        /// Deprecated names are found too. Null: no such name.
        const methodTable* FindMethod(const char* name) const;
        /// The same for members.
        const memberTable* FindMember(const char* name) const;
        /// What a deprecated name was replaced by; null for any other name.
        const char* ReplacedBy(const char* name) const;

    private:
        friend class omu_InterfaceObj;
        struct Body;

        std::shared_ptr<const Body> body_;
    };

    /// Describes a type: by tables, each of which may be null, and by the type that it extends. A row with a
    /// name that the extended type has takes its place. The names are looked at, not copied: tables are
    /// static.
    static TypeDesc DescribeType(const char* typeName, const methodTable* methods, const memberTable* members,
                                 const deprecatedMethodTable* deprecatedMethods,
                                 const deprecatedMemberTable* deprecatedMembers,
                                 const TypeDesc& extended = TypeDesc());

    /// The handler of a method from a member function of the class whose type is described (or of a base).
    template <auto F>
    static omu_Primitive* Method(const omu_InterfaceObj& self, omu_Arguments& arguments)
    {
        return (static_cast<const ClassOf<decltype(F)>&>(self).*F)(arguments);
    }
    /// The same for reading a member.
    template <auto F>
    static omu_Primitive* Reader(const omu_InterfaceObj& self)
    {
        return (static_cast<const ClassOf<decltype(F)>&>(self).*F)();
    }
    /// The same for setting one.
    template <auto F>
    static void Writer(const omu_InterfaceObj& self, omu_Arguments& value)
    {
        (static_cast<const ClassOf<decltype(F)>&>(self).*F)(value);
    }

    explicit omu_InterfaceObj(const omu_Shortcut& shortcut = omu_Shortcut(),
                              omu_OperationRules rules = omu_OperationRules(),
                              omu_PythonType pythonType = omu_PythonType::OBJECT);
    omu_InterfaceObj(omu_OperationRules rules, omu_PythonType pythonType);
    ~omu_InterfaceObj() override;

    // The order of the virtual operations is part of the interface: derived classes append.

    /// The type's name; "OrvexObject" when nobody described the type.
    atr_String TypeString() const override;
    /// The members with their values, "({'name': 'P1', 'width': 2.0})"; DefaultRepr for an object that has
    /// none or is stale. A member that fails is told on the standard error stream and written 'unknown'.
    cow_String AsString(int nesting) const override;
    /// The path. An object without one warns on the standard error stream and gives DefaultRepr.
    cow_String AsRepr() const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_InterfaceObj* Copy() const override = 0;

    /// True for a method that may be called; `found` tells whether the type has a method of that name.
    virtual bool IsMethod(const char* name, bool& found) const;
    /// Whether a call of the method belongs in the command journal; false for a name that is no method.
    virtual bool ShouldJournal(const cow_String& method) const;
    /// Calls a method. `path` is how the caller reached the object, for messages; null: the object's own.
    /// Not found: nothing happens, null comes back. Null with found is None.
    virtual omu_Primitive* CallMethod(const char* name, const char* path, omu_Arguments& arguments,
                                      bool& found) const;
    /// Not found: null. Null with found is None.
    virtual omu_Primitive* GetMember(const char* name, bool& found) const;
    /// Sets a member from the one argument. A read-only one raises omu_AttributeErrorException: error type 1
    /// with the name, or 0 when no member may be written.
    virtual void SetMember(const char* name, omu_Arguments& value, bool& found) const;
    /// Here no member can be deleted: omu_AttributeErrorException, as for a read-only one.
    virtual void DeleteMember(const cow_String& name) const;
    virtual cow_List<cow_String> MemberList() const;
    /// MemberList without the members flagged NOT_FOR_QUERY and those of MemberExcludeListForQry.
    virtual cow_List<cow_String> MemberListForQry() const;
    /// Empty here.
    virtual cow_List<cow_String> MemberExcludeListForQry() const;
    virtual cow_List<cow_String> MethodList() const;
    /// DefaultRepr, then a line for each member with its value.
    virtual cow_String FullRepr() const;
    /// The variable by which a journal refers to the object; empty here: by its path.
    virtual cow_String JournalVariable() const;
    virtual omu_Shortcut BaseShortcut() const;
    /// What stands behind the shortcut; null without one. Valid as long as this object.
    virtual const omu_ShortcutImpl* BaseShortcutGetABC() const;
    /// "mdb.models['M'].rename(name='x')": how a call is journalled. An empty path means the journal
    /// variable, or without one the object's own path.
    virtual cow_String CommandPath(const cow_String& path, const cow_String& command,
                                   omu_Arguments& arguments) const;

    /// Coerce and the operations below are refused here with nex_PrimException.
    virtual omu_Primitive* Coerce(omu_Arguments& arguments) const;
    /// Null here.
    virtual omu_InterfaceObj* Cast(omu_Arguments& arguments) const;
    virtual omu_Primitive* Absolute() const;
    virtual omu_Primitive* AddOperation(omu_InterfaceObj* other) const;
    virtual omu_Primitive* SubOperation(omu_InterfaceObj* other) const;
    virtual omu_Primitive* MulOperation(omu_InterfaceObj* other) const;
    virtual omu_Primitive* DivOperation(omu_InterfaceObj* other) const;
    virtual omu_Primitive* UnaryNegative() const;

    /// 1: every interface object is true.
    virtual int NonZero();
    /// The object behind the handle as a plain value, not owned by the caller; null here.
    virtual const omu_PrimWrapper* ConstGetWrapper() const;
    virtual bool IsStale() const;
    virtual void SetStale(bool stale);
    /// Negative, 0 or positive: 0 for equal objects, else by the order of the paths. Null sorts first.
    virtual int Compare(const omu_InterfaceObj* other) const;
    /// AsRepr against a path, as bytes: negative when the repr sorts first, 0 when they are equal.
    virtual int ComparePath(const cow_String& path) const;

    using omu_Primitive::IsA;
    /// Whether the object is of this type, by its name, or of one that extends it. Always true for
    /// "OrvexObject".
    bool IsA(const char* typeName) const;
    /// All names of the type but its own, most general first.
    cow_List<cow_String> BaseTypes() const;
    /// The name of the type that the object's type extends.
    cow_String BaseType() const { return type_.BaseTypeName(); }
    /// The type's own name; empty when nobody described it.
    cow_String ExposedTypeName() const { return type_.TypeName(); }
    /// "<Part object>", or "<Part object named P1>" when the member "name" holds a non-empty text. A stale
    /// object is not asked for its name.
    cow_String DefaultRepr() const;
    /// The argument by which a constructor command copies this object: "objectToCopy=mdb.models['M']".
    cow_String objectToCopyCmd() const;

    const TypeDesc& Description() const { return type_; }
    omu_OperationRules Rules() const { return rules_; }
    omu_PythonType PythonType() const { return pythonType_; }

    /// omu_AccessErrorException with the path when the object is stale. For hosts, before they ask for items,
    /// length or iteration.
    void RequireLive() const { RequireLive(nullptr); }
    /// omu_AttributeErrorException, error type 2: "'Part' object has no attribute 'x'". For callers to whom
    /// `found` came back false.
    [[noreturn]] void RaiseUnknownMember(const cow_String& name) const;

protected:
    omu_InterfaceObj(const omu_InterfaceObj&) = default;
    omu_InterfaceObj& operator=(const omu_InterfaceObj&) = default;

    /// For constructors; that of the most derived class has the last word.
    void SetTypeDesc(const TypeDesc& type) { type_ = type; }
    /// For constructors that find out late how the object is reached.
    void SetShortcut(const omu_Shortcut& shortcut) { shortcut_ = shortcut; }

    /// Stands in place of a value that cannot be written.
    static constexpr const char* UNKNOWN_VALUE = "'unknown'";
    /// The path, for messages: no warning when there is none, and no member asked for.
    cow_String PathOrDefault() const;

private:
    template <class F>
    struct ClassOfImpl;
    template <class R, class C, class... A>
    struct ClassOfImpl<R (C::*)(A...) const>
    {
        using Type = C;
    };
    template <class F>
    using ClassOf = typename ClassOfImpl<F>::Type;

    void RequireLive(const char* path) const;
    void TraceStalePath() const;
    cow_String MemberText(const cow_String& name) const;

    omu_Shortcut shortcut_;
    omu_OperationRules rules_;
    omu_PythonType pythonType_ = omu_PythonType::OBJECT;
    bool stale_ = false;
    TypeDesc type_;
};
