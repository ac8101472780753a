#include <compare>
#include <cstdint>
#include <cstdio>
#include <nex_RaiseWith.h>
#include <omu_AccessErrorException.h>
#include <omu_Arguments.h>
#include <omu_AttributeErrorException.h>
#include <omu_EnvSwitches.h>
#include <omu_InterfaceObj.h>
#include <omu_ObjectText.h>
#include <omu_PrimString.h>
#include <omu_PrimVisitor.h>
#include <oxu_FormatMessage.h>
#include <string>
#include <string_view>
#include <unordered_map>

namespace
{
constexpr char KIND = '<';
constexpr const char* SOURCE = "KTLOxuOmu.m/src/omu_InterfaceObj";
constexpr const char* UNIVERSAL_TYPE = "OrvexObject";
constexpr const char* CANNOT_COERCE = "Error: Cannot coerce.";
// Not ILLEGAL_OPERATION, on purpose: the four operations refuse without the full stop.
constexpr const char* ILLEGAL_ARITHMETIC = "Error: Illegal operation for type";

// Set while a trace asks for the text of an object, which may ask again whether it is stale.
thread_local bool tracing = false;

struct TracingScope
{
    TracingScope() { tracing = true; }
    ~TracingScope() { tracing = false; }
    TracingScope(const TracingScope&) = delete;
    TracingScope& operator=(const TracingScope&) = delete;
};

unsigned ShortAddress(const void* object)
{
    return static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(object) & 0xFFFFFFFFu);
}

// Null is the empty name.
std::string_view NameView(const char* name)
{
    return name == nullptr ? std::string_view() : std::string_view(name);
}

// Error type 1 tells which attribute cannot be changed, 0 that none can.
[[noreturn]] void RefuseChange(const cow_String& name, bool tellsWhich)
{
    omu_AttributeErrorException refusal;
    refusal.m_ErrorType = tellsWhich ? 1 : 0;
    refusal.m_Attribute = name;
    nex_Raise(refusal, SOURCE, __LINE__);
}

// One kind of name of a type: those listed, the rows by which all of them answer, and what replaced those
// deprecated.
template <class Row>
struct Names
{
    template <class Deprecated>
    void Extend(const Row* rows, const Deprecated* deprecated)
    {
        for (const Row* row = rows; row != nullptr && row->name != nullptr; ++row)
        {
            if (listed.Find(row->name) < 0)
                listed.Append(row->name);
            byName.insert_or_assign(row->name, *row);
            replaced.erase(row->name);
        }
        for (const Deprecated* old = deprecated; old != nullptr && old->name != nullptr; ++old)
        {
            if (const int at = listed.Find(old->name); at >= 0)
                listed.Remove(at);
            Row row;
            if (const auto found = byName.find(NameView(old->replacedBy)); found != byName.end())
                row = found->second;
            row.name = old->name;
            if (old->handler != nullptr)
                Assign(row, *old);
            if (row.handler != nullptr)
                byName.insert_or_assign(old->name, row);
            replaced.insert_or_assign(old->name, old->replacedBy);
        }
    }
    const Row* Find(const char* name) const
    {
        const auto found = byName.find(NameView(name));
        return found == byName.end() ? nullptr : &found->second;
    }

    static void Assign(omu_InterfaceObj::methodTable& row, const omu_InterfaceObj::deprecatedMethodTable& old)
    {
        row.handler = old.handler;
        row.flags = old.flags;
    }
    static void Assign(omu_InterfaceObj::memberTable& row, const omu_InterfaceObj::deprecatedMemberTable& old)
    {
        row.handler = old.handler;
        row.flags = old.flags;
        row.writer = old.writer;
    }

    cow_List<cow_String> listed;
    std::unordered_map<std::string_view, Row> byName;
    std::unordered_map<std::string_view, const char*> replaced;
};
}

struct omu_InterfaceObj::TypeDesc::Body
{
    cow_List<cow_String> typeNames;
    Names<methodTable> methods;
    Names<memberTable> members;
};

cow_String omu_InterfaceObj::TypeDesc::TypeName() const
{
    const cow_List<cow_String>& names = TypeNames();
    return names.IsEmpty() ? cow_String() : names.Get(names.Length() - 1);
}

cow_String omu_InterfaceObj::TypeDesc::BaseTypeName() const
{
    const cow_List<cow_String>& names = TypeNames();
    return names.Length() < 2 ? cow_String(UNIVERSAL_TYPE) : names.Get(names.Length() - 2);
}

const cow_List<cow_String>& omu_InterfaceObj::TypeDesc::TypeNames() const
{
    static const cow_List<cow_String> none;
    return body_ ? body_->typeNames : none;
}

const cow_List<cow_String>& omu_InterfaceObj::TypeDesc::MethodNames() const
{
    static const cow_List<cow_String> none;
    return body_ ? body_->methods.listed : none;
}

const cow_List<cow_String>& omu_InterfaceObj::TypeDesc::MemberNames() const
{
    static const cow_List<cow_String> none;
    return body_ ? body_->members.listed : none;
}

const omu_InterfaceObj::methodTable* omu_InterfaceObj::TypeDesc::FindMethod(const char* name) const
{
    return body_ ? body_->methods.Find(name) : nullptr;
}

const omu_InterfaceObj::memberTable* omu_InterfaceObj::TypeDesc::FindMember(const char* name) const
{
    return body_ ? body_->members.Find(name) : nullptr;
}

const char* omu_InterfaceObj::TypeDesc::ReplacedBy(const char* name) const
{
    if (!body_)
        return nullptr;
    for (const auto* replaced : {&body_->methods.replaced, &body_->members.replaced})
        if (const auto found = replaced->find(NameView(name)); found != replaced->end())
            return found->second;
    return nullptr;
}

omu_InterfaceObj::TypeDesc omu_InterfaceObj::DescribeType(const char* typeName, const methodTable* methods,
                                                          const memberTable* members,
                                                          const deprecatedMethodTable* deprecatedMethods,
                                                          const deprecatedMemberTable* deprecatedMembers,
                                                          const TypeDesc& extended)
{
    auto body = extended.body_ ? std::make_shared<TypeDesc::Body>(*extended.body_)
                               : std::make_shared<TypeDesc::Body>();
    body->typeNames.Append(typeName);
    body->methods.Extend(methods, deprecatedMethods);
    body->members.Extend(members, deprecatedMembers);
    TypeDesc type;
    type.body_ = std::move(body);
    return type;
}

omu_InterfaceObj::omu_InterfaceObj(const omu_Shortcut& shortcut, omu_OperationRules rules,
                                   omu_PythonType pythonType)
    : omu_Primitive(KIND), shortcut_(shortcut), rules_(rules), pythonType_(pythonType)
{}

omu_InterfaceObj::omu_InterfaceObj(omu_OperationRules rules, omu_PythonType pythonType)
    : omu_InterfaceObj(omu_Shortcut(), rules, pythonType)
{}

omu_InterfaceObj::~omu_InterfaceObj() = default;

atr_String omu_InterfaceObj::TypeString() const
{
    const cow_String name = ExposedTypeName();
    return name.IsEmpty() ? atr_String(UNIVERSAL_TYPE) : atr_String(name);
}

cow_String omu_InterfaceObj::MemberText(const cow_String& name) const
{
    try
    {
        bool found = false;
        const std::unique_ptr<omu_Primitive> value(GetMember(name.AsCharPtr(), found));
        if (found)
            return ReprOf(value.get());
        std::fprintf(stderr, "interface object %s, member %s, type=%s: GetMember(%s) found nothing\n",
                     PathOrDefault().AsCharPtr(), name.AsCharPtr(), TypeString().AsCharPtr(),
                     name.AsCharPtr());
    }
    catch (const KTLBasException& failure)
    {
        std::fprintf(stderr, "interface object %s, member %s, type=%s: GetMember(%s) failed: %s\n",
                     PathOrDefault().AsCharPtr(), name.AsCharPtr(), TypeString().AsCharPtr(),
                     name.AsCharPtr(), failure.UserReport().AsCharPtr());
    }
    return UNKNOWN_VALUE;
}

cow_String omu_InterfaceObj::AsString(int) const
{
    const cow_List<cow_String> names = IsStale() ? cow_List<cow_String>() : MemberList();
    if (names.IsEmpty())
        return DefaultRepr();
    cow_String text;
    for (const cow_String& name : names)
    {
        text += text.IsEmpty() ? "({" : ", ";
        text += omu_PrimString::Quoted(name) + ": " + MemberText(name);
    }
    return text += "})";
}

cow_String omu_InterfaceObj::AsRepr() const
{
    const omu_Shortcut shortcut = BaseShortcut();
    if (shortcut.HasValue())
        return shortcut.Path();
    std::fprintf(stderr, "WARNING omu_InterfaceObj::AsRepr - repr not implemented: %s\n",
                 TypeString().AsCharPtr());
    return DefaultRepr();
}

bool omu_InterfaceObj::operator==(const omu_Primitive& other) const
{
    if (this == &other)
        return true;
    const auto* object = dynamic_cast<const omu_InterfaceObj*>(&other);
    if (object == nullptr || ExposedTypeName() != object->ExposedTypeName())
        return false;
    const omu_Shortcut shortcut = BaseShortcut();
    return shortcut.HasValue() && shortcut == object->BaseShortcut();
}

void omu_InterfaceObj::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitInterfaceObject(*this);
}

bool omu_InterfaceObj::IsMethod(const char* name, bool& found) const
{
    found = type_.FindMethod(name) != nullptr;
    return found && rules_.IsCallable();
}

bool omu_InterfaceObj::ShouldJournal(const cow_String& method) const
{
    const methodTable* row = type_.FindMethod(method.AsCharPtr());
    return row != nullptr && (row->flags & NOT_JOURNALLED) == 0;
}

omu_Primitive* omu_InterfaceObj::CallMethod(const char* name, const char* path, omu_Arguments& arguments,
                                            bool& found) const
{
    RequireLive(path);
    const methodTable* row = type_.FindMethod(name);
    found = row != nullptr;
    if (!found)
        return nullptr;
    if (!rules_.IsCallable())
        nex_RaisePrim(ILLEGAL_OPERATION, SOURCE, __LINE__);
    return row->handler(*this, arguments);
}

omu_Primitive* omu_InterfaceObj::GetMember(const char* name, bool& found) const
{
    RequireLive();
    const memberTable* row = type_.FindMember(name);
    found = row != nullptr;
    if (!found)
        return nullptr;
    if (!rules_.IsReadable())
        nex_RaisePrim(ILLEGAL_OPERATION, SOURCE, __LINE__);
    return row->handler(*this);
}

void omu_InterfaceObj::SetMember(const char* name, omu_Arguments& value, bool& found) const
{
    RequireLive();
    const memberTable* row = type_.FindMember(name);
    found = row != nullptr;
    if (!found)
        return;
    if (!rules_.IsWritable() || row->writer == nullptr)
        RefuseChange(name, rules_.IsWritable());
    row->writer(*this, value);
}

void omu_InterfaceObj::DeleteMember(const cow_String& name) const
{
    RequireLive();
    if (type_.FindMember(name.AsCharPtr()) == nullptr)
        RaiseUnknownMember(name);
    RefuseChange(name, rules_.IsDeletable());
}

cow_List<cow_String> omu_InterfaceObj::MemberList() const
{
    return type_.MemberNames();
}

cow_List<cow_String> omu_InterfaceObj::MemberListForQry() const
{
    const cow_List<cow_String> excluded = MemberExcludeListForQry();
    cow_List<cow_String> offered;
    for (const cow_String& name : MemberList())
    {
        const memberTable* row = type_.FindMember(name.AsCharPtr());
        if ((row == nullptr || (row->flags & NOT_FOR_QUERY) == 0) && excluded.Find(name) < 0)
            offered.Append(name);
    }
    return offered;
}

cow_List<cow_String> omu_InterfaceObj::MemberExcludeListForQry() const
{
    return {};
}

cow_List<cow_String> omu_InterfaceObj::MethodList() const
{
    return type_.MethodNames();
}

cow_String omu_InterfaceObj::FullRepr() const
{
    cow_String text = DefaultRepr();
    if (IsStale())
        return text;
    for (const cow_String& name : MemberList())
        text += "\n" + name + ": " + MemberText(name);
    return text;
}

cow_String omu_InterfaceObj::JournalVariable() const
{
    return {};
}

omu_Shortcut omu_InterfaceObj::BaseShortcut() const
{
    return shortcut_;
}

const omu_ShortcutImpl* omu_InterfaceObj::BaseShortcutGetABC() const
{
    return shortcut_.Implementation();
}

cow_String omu_InterfaceObj::CommandPath(const cow_String& path, const cow_String& command,
                                         omu_Arguments& arguments) const
{
    cow_String reached = path.IsEmpty() ? JournalVariable() : path;
    if (reached.IsEmpty())
        reached = AsRepr();
    return reached + "." + command + arguments.AsString(0);
}

omu_Primitive* omu_InterfaceObj::Coerce(omu_Arguments&) const
{
    nex_RaisePrim(CANNOT_COERCE, SOURCE, __LINE__);
}

omu_InterfaceObj* omu_InterfaceObj::Cast(omu_Arguments&) const
{
    return nullptr;
}

omu_Primitive* omu_InterfaceObj::Absolute() const
{
    nex_RaisePrim(ILLEGAL_OPERATION, SOURCE, __LINE__);
}

omu_Primitive* omu_InterfaceObj::AddOperation(omu_InterfaceObj*) const
{
    nex_RaisePrim(ILLEGAL_ARITHMETIC, SOURCE, __LINE__);
}

omu_Primitive* omu_InterfaceObj::SubOperation(omu_InterfaceObj*) const
{
    nex_RaisePrim(ILLEGAL_ARITHMETIC, SOURCE, __LINE__);
}

omu_Primitive* omu_InterfaceObj::MulOperation(omu_InterfaceObj*) const
{
    nex_RaisePrim(ILLEGAL_ARITHMETIC, SOURCE, __LINE__);
}

omu_Primitive* omu_InterfaceObj::DivOperation(omu_InterfaceObj*) const
{
    nex_RaisePrim(ILLEGAL_ARITHMETIC, SOURCE, __LINE__);
}

omu_Primitive* omu_InterfaceObj::UnaryNegative() const
{
    nex_RaisePrim(ILLEGAL_OPERATION, SOURCE, __LINE__);
}

int omu_InterfaceObj::NonZero()
{
    return 1;
}

const omu_PrimWrapper* omu_InterfaceObj::ConstGetWrapper() const
{
    return nullptr;
}

bool omu_InterfaceObj::IsStale() const
{
    if (omu_EnvSwitches::TraceStaleHandles() && !tracing)
    {
        std::fprintf(stderr, "omu_InterfaceObj::IsStale  stale:%d   this:0x%x ", stale_ ? 1 : 0,
                     ShortAddress(this));
        TraceStalePath();
    }
    return stale_;
}

void omu_InterfaceObj::SetStale(bool stale)
{
    stale_ = stale;
    if (omu_EnvSwitches::TraceStaleHandles() && !tracing)
    {
        std::fprintf(stderr, "omu_InterfaceObj::SetStale(value=%d)  this:0x%x ", stale ? 1 : 0,
                     ShortAddress(this));
        TraceStalePath();
    }
}

void omu_InterfaceObj::TraceStalePath() const
{
    if (!omu_EnvSwitches::TraceStaleHandlePaths())
        return;
    if (stale_)
    {
        std::fputs("  <stale handle>", stderr);
        return;
    }
    const TracingScope scope;
    std::fprintf(stderr, "  %s", AsRepr().AsCharPtr());
}

int omu_InterfaceObj::Compare(const omu_InterfaceObj* other) const
{
    if (other == nullptr)
        return 1;
    if (operator==(*other))
        return 0;
    const auto byPath = BaseShortcut().Path() <=> other->BaseShortcut().Path();
    if (std::is_neq(byPath))
        return std::is_lt(byPath) ? -1 : 1;
    const auto byType = ExposedTypeName() <=> other->ExposedTypeName();
    if (std::is_neq(byType))
        return std::is_lt(byType) ? -1 : 1;
    return std::less<const omu_InterfaceObj*>()(this, other) ? -1 : 1;
}

int omu_InterfaceObj::ComparePath(const cow_String& path) const
{
    const cow_String repr = AsRepr();
    const auto order = repr <=> path;
    const int result = std::is_lt(order) ? -1 : std::is_gt(order) ? 1 : 0;
    if (omu_EnvSwitches::TraceStaleHandles())
        std::fprintf(stderr, "omu_InterfaceObj::ComparePath %s  %s -> %d\n", repr.AsCharPtr(),
                     path.AsCharPtr(), result);
    return result;
}

bool omu_InterfaceObj::IsA(const char* typeName) const
{
    return NameView(typeName) == UNIVERSAL_TYPE || type_.TypeNames().Find(typeName) >= 0;
}

cow_List<cow_String> omu_InterfaceObj::BaseTypes() const
{
    cow_List<cow_String> names = type_.TypeNames();
    if (!names.IsEmpty())
        names.Remove(names.Length() - 1);
    return names;
}

cow_String omu_InterfaceObj::DefaultRepr() const
{
    const cow_String type = ExposedTypeName();
    std::unique_ptr<omu_Primitive> name;
    if (!IsStale())
    {
        try
        {
            bool found = false;
            name.reset(GetMember("name", found));
        }
        catch (const KTLBasException&)
        {
            // An object whose name cannot be had is written without one.
        }
    }
    return omu_ObjectText(type.IsEmpty() ? cow_String(UNIVERSAL_TYPE) : type, name.get());
}

cow_String omu_InterfaceObj::objectToCopyCmd() const
{
    return "objectToCopy=" + AsRepr();
}

void omu_InterfaceObj::RaiseUnknownMember(const cow_String& name) const
{
    omu_AttributeErrorException unknown;
    unknown.m_ErrorType = 2;
    unknown.m_Attribute = oxu_FormatMessage("'%s' object has no attribute '%s'", TypeString(), name);
    nex_Raise(unknown, SOURCE, __LINE__);
}

void omu_InterfaceObj::RequireLive(const char* path) const
{
    if (IsStale())
        nex_Raise(omu_AccessErrorException(path != nullptr ? cow_String(path) : PathOrDefault()), SOURCE,
                  __LINE__);
}

cow_String omu_InterfaceObj::PathOrDefault() const
{
    const omu_Shortcut shortcut = BaseShortcut();
    return shortcut.HasValue() ? shortcut.Path() : omu_ObjectText(TypeString());
}
