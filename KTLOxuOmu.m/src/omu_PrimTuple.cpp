#include <DDB_DeepCopyPtr.h>
#include <algorithm>
#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <limits>
#include <nex_RaiseWith.h>
#include <omu_ArgNumberErrorException.h>
#include <omu_ArgTypeErrorException.h>
#include <omu_ExpectedText.h>
#include <omu_GenericTypeErrorException.h>
#include <omu_ItemReader.h>
#include <omu_NestingDepth.h>
#include <omu_OverflowErrorException.h>
#include <omu_PrimArray.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimComplex.h>
#include <omu_PrimEnumBase.h>
#include <omu_PrimString.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimTuple.h>
#include <omu_PrimVisitor.h>
#include <oxu_FormatMessage.h>
#include <string>
#include <typeinfo>

namespace
{
constexpr const char* SOURCE = "KTLOxuOmu.m/src/omu_PrimTuple";
constexpr const char* INDEX_RETURNED_NULL = "Tuple Index returned NULL";
constexpr const char* TOO_LONG = "repeated tuple is too long";
constexpr const char* FOREIGN_KIND = "a sequence's kind code must be ( or L";
// Stored order: append only. A retired field keeps its index.
enum Field { ITEMS };
constexpr cls_FieldHandle FIELDS[] = {{ITEMS, "primVector"}};
constexpr unsigned LAYOUT_RELEASE = 800;

// Readers tell a class by its kind code before they look closer.
char CheckedKind(char kind)
{
    if (kind != omu_PrimTuple::KIND && kind != 'L')
        nex_RaiseInternal(FOREIGN_KIND, SOURCE, __LINE__);
    return kind;
}
}

void omu_PrimTuple::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_PrimTuple", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<omu_PrimTuple>::Instance(), omu_PrimSequence::TypeId());
    meta.AddAttribute(FIELDS[ITEMS], cls_AttributeType::OBJECT, cls_ListTypeId, cls_CollectionType::LIST_OBJ);
}

omu_PrimTuple::omu_PrimTuple(char kind) : omu_PrimSequence(CheckedKind(kind)) {}

omu_PrimTuple::omu_PrimTuple(int count, char kind) : omu_PrimTuple(kind)
{
    m_Items.Reserve(count);
}

omu_PrimTuple::omu_PrimTuple(const cow_List<int>& values, char kind)
    : omu_PrimTuple(values.Data(), values.Length(), kind)
{}

omu_PrimTuple::omu_PrimTuple(const cow_List<bool>& values, char kind) : omu_PrimTuple(kind)
{
    PutEach(values.Data(), values.Length());
}

omu_PrimTuple::omu_PrimTuple(const cow_List<float>& values, char kind)
    : omu_PrimTuple(values.Data(), values.Length(), kind)
{}

omu_PrimTuple::omu_PrimTuple(const cow_List<double>& values, char kind) : omu_PrimTuple(values.Length(), kind)
{
    PutEach(values.Data(), values.Length());
}

omu_PrimTuple::omu_PrimTuple(const cow_List<cow_String>& values, char kind) : omu_PrimTuple(kind)
{
    PutEach(values.Data(), values.Length());
}

omu_PrimTuple::omu_PrimTuple(const cow_List<atr_String>& values, char kind) : omu_PrimTuple(kind)
{
    PutEach(values.Data(), values.Length());
}

omu_PrimTuple::omu_PrimTuple(const cow_List<omu_PrimEnumBase>& values, char kind) : omu_PrimTuple(kind)
{
    PutEach(values.Data(), values.Length());
}

omu_PrimTuple::omu_PrimTuple(const cow_2DArray<double>& values, char kind) : omu_PrimTuple(kind)
{
    PutRows(values);
}

omu_PrimTuple::omu_PrimTuple(const cow_2DArray<cow_String>& values, char kind) : omu_PrimTuple(kind)
{
    PutRows(values);
}

omu_PrimTuple::omu_PrimTuple(const cow_Map<cow_String, float>& values, char kind) : omu_PrimTuple(kind)
{
    for (const auto& [key, value] : values)
    {
        auto pair = std::make_unique<omu_PrimTuple>();
        pair->Put(key);
        pair->PutNumber(value, DataTypeEnm::FLOAT);
        Put(std::move(pair));
    }
}

omu_PrimTuple::omu_PrimTuple(const int* values, int count, char kind) : omu_PrimTuple(count, kind)
{
    PutEach(values, count);
}

omu_PrimTuple::omu_PrimTuple(const float* values, int count, char kind) : omu_PrimTuple(count, kind)
{
    for (int i = 0; i < count; ++i)
        PutNumber(values[i], DataTypeEnm::FLOAT);
}

omu_PrimTuple::omu_PrimTuple(const omu_PrimArray& values, char kind) : omu_PrimTuple(kind)
{
    TakeItems(*std::unique_ptr<omu_PrimTuple>(values.AsTuple()));
}

omu_PrimTuple::omu_PrimTuple(const cow_List<const omu_Primitive*>& values, char kind) : omu_PrimTuple(kind)
{
    for (const omu_Primitive* value : values)
        Put(DDB_DeepCopyPtr(value).release());
}

omu_PrimTuple::omu_PrimTuple(const omu_PrimVector::Items& values, char kind) : omu_PrimTuple(kind)
{
    for (int i = 0; i < values.Length(); ++i)
        m_Depth = omu_NestingDepth::With(values.Get(i), m_Depth);
    m_Items = omu_PrimVector(values);
}

omu_PrimTuple::omu_PrimTuple(const cls_ReadVisitor& reader) : omu_PrimSequence(reader.BaseReader(), KIND)
{
    omu_PrimVector::Items items;
    reader.ReadOwnedList(FIELDS[ITEMS], items);
    TakeItems(omu_PrimTuple(items));
}

void omu_PrimTuple::Put(const cow_String& text)
{
    Put(new omu_PrimString(text));
}

void omu_PrimTuple::Put(const atr_String& text)
{
    Put(new omu_PrimTranslatedString(text));
}

void omu_PrimTuple::Put(const omi_complex& value)
{
    Put(new omu_PrimComplex(value));
}

void omu_PrimTuple::Put(omu_Primitive* owned)
{
    std::unique_ptr<omu_Primitive> guard(owned);
    RequireRoom(m_Items.Length() + 1);
    const int depth = omu_NestingDepth::With(owned, m_Depth);
    m_Items.Append(guard.release());
    m_Depth = depth;
}

void omu_PrimTuple::PutNumber(double value, DataTypeEnm dataType)
{
    RequireRoom(m_Items.Length() + 1);
    m_Items.AppendNumber(value, dataType);
}

void omu_PrimTuple::PutBoolean(bool value)
{
    Put(new omu_PrimBoolean(value));
}

template <class T>
void omu_PrimTuple::PutEach(const T* values, int count)
{
    for (int i = 0; i < count; ++i)
        Put(values[i]);
}

template <class T>
void omu_PrimTuple::PutRows(const cow_2DArray<T>& values)
{
    for (int row = 0; row < values.Rows(); ++row)
        Put(cow_List<T>::FromArray(values.Cols() > 0 ? &values.Get(row, 0) : nullptr, values.Cols()));
}

void omu_PrimTuple::TakeItems(const omu_PrimTuple& other)
{
    // In a constructor too: the bound is that of the class being built.
    // NOLINTNEXTLINE(clang-analyzer-optin.cplusplus.VirtualCall)
    RequireRoom(other.m_Items.Length());
    m_Items = other.m_Items;
    m_Depth = other.m_Depth;
    EndReading();
}

omu_Primitive* omu_PrimTuple::Index(int index) const
{
    return View(index, [](const omu_Primitive* item) { return DDB_DeepCopyPtr(item).release(); });
}

omu_PrimTuple* omu_PrimTuple::Slice(int from, int to) const
{
    auto slice = std::make_unique<omu_PrimTuple>();
    SliceInto(*slice, from, to, {INDEX_RETURNED_NULL, TOO_LONG, SOURCE, __LINE__});
    return slice.release();
}

omu_PrimTuple* omu_PrimTuple::Repeat(int count) const
{
    auto repeated = std::make_unique<omu_PrimTuple>();
    RepeatInto(*repeated, count, {INDEX_RETURNED_NULL, TOO_LONG, SOURCE, __LINE__});
    return repeated.release();
}

omu_PrimTuple* omu_PrimTuple::Concat(const omu_PrimSequence* other) const
{
    auto joined = std::make_unique<omu_PrimTuple>();
    ConcatInto(*joined, other, {INDEX_RETURNED_NULL, TOO_LONG, SOURCE, __LINE__});
    return joined.release();
}

void omu_PrimTuple::Begin()
{
    m_Cursor = 0;
    m_ReqCount = 0;
    m_ArgCount = 0;
    m_IsOptional = false;
    m_ErrorArg = 0;
    m_TypeFound = atr_String();
    m_NumGets = 0;
}

template <class T>
bool omu_PrimTuple::Read(T& out)
{
    bool delivered = false;
    if (HasItem() && m_ErrorArg == 0)
    {
        delivered = View(m_Cursor, [&](const omu_Primitive* item) {
            return item != nullptr && omu_ItemReader::Read(*item, out);
        });
        if (!delivered)
            SetTypeError(omu_ExpectedText::Positional(out));
    }
    IncrementCursor();
    return delivered;
}

template <omu_Readable T>
bool omu_PrimTuple::Get(T& out)
{
    return Read(out);
}

template OXU_EXPORT bool omu_PrimTuple::Get(bool&);
template OXU_EXPORT bool omu_PrimTuple::Get(int&);
template OXU_EXPORT bool omu_PrimTuple::Get(signed char&);
template OXU_EXPORT bool omu_PrimTuple::Get(short&);
template OXU_EXPORT bool omu_PrimTuple::Get(unsigned int&);
template OXU_EXPORT bool omu_PrimTuple::Get(float&);
template OXU_EXPORT bool omu_PrimTuple::Get(double&);
template OXU_EXPORT bool omu_PrimTuple::Get(cow_String&);
template OXU_EXPORT bool omu_PrimTuple::Get(atr_String&);
template OXU_EXPORT bool omu_PrimTuple::Get(omi_complex&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_OrvexName&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_PrimPath&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_PrimType&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_PrimNone&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_PrimExpr&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_PrimException&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_PrimWrapper&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_PrimArray&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_PrimDictionary<int>&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_PrimDictionary<cow_String>&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_PyObjectWrapper&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_ListPyObjectWrapper&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_DictPyObjectWrapper&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_DictIntPyObjectWrapper&);
template OXU_EXPORT bool omu_PrimTuple::Get(omu_DictStrPyObjectWrapper&);
template OXU_EXPORT bool omu_PrimTuple::Get(const omu_InterfaceObj*&);
template OXU_EXPORT bool omu_PrimTuple::Get(std::unique_ptr<omu_Primitive>&);
template OXU_EXPORT bool omu_PrimTuple::Get(cow_List<int>&);
template OXU_EXPORT bool omu_PrimTuple::Get(cow_List<bool>&);
template OXU_EXPORT bool omu_PrimTuple::Get(cow_List<float>&);
template OXU_EXPORT bool omu_PrimTuple::Get(cow_List<double>&);
template OXU_EXPORT bool omu_PrimTuple::Get(cow_List<cow_String>&);
template OXU_EXPORT bool omu_PrimTuple::Get(cow_List<atr_String>&);
template OXU_EXPORT bool omu_PrimTuple::Get(cow_2DArray<double>&);
template OXU_EXPORT bool omu_PrimTuple::Get(cow_2DArray<cow_String>&);
template OXU_EXPORT bool omu_PrimTuple::Get(cow_Map<cow_String, float>&);

bool omu_PrimTuple::Get(omu_PrimTuple& out)
{
    const int argument = m_Cursor + 1;
    omu_PrimTuple found;
    if (!Read(found))
        return false;
    out.TakeItems(found);
    out.SetNesting(NestingOf(argument));
    return true;
}

bool omu_PrimTuple::Get(omu_PrimEnumBase& out)
{
    return Read(out);
}

bool omu_PrimTuple::Alternative()
{
    if (m_ErrorArg == 0 || m_ErrorArg != m_Cursor)
        return false;
    --m_Cursor;
    --m_ArgCount;
    --m_NumGets;
    if (m_WasRequired)
        --m_ReqCount;
    m_ErrorArg = 0;
    m_TypeFound = atr_String();
    m_TypeExpected = atr_String();
    return true;
}

void omu_PrimTuple::End(const cow_String& nesting)
{
    const cow_String& where = nesting.IsEmpty() ? m_NestingStr : nesting;
    if (m_ErrorArg != 0)
        nex_Raise(TypeFault(where), SOURCE, __LINE__);
    if (CountError())
        nex_Raise(omu_ArgNumberErrorException(m_ReqCount, m_Items.Length(), where), SOURCE, __LINE__);
    EndReading();
}

void omu_PrimTuple::SetExpected(const atr_String& expected)
{
    if (m_ErrorArg != 0 && m_ErrorArg == m_Cursor && !(m_TypeExpected == Undetermined()))
        m_TypeExpected = expected;
}

void omu_PrimTuple::Refuse(const atr_String& expected)
{
    SetErrorOfPrevious(expected, View(m_Cursor - 1, &FoundText));
}

cow_String omu_PrimTuple::NestingOf(int argument) const
{
    if (m_NestingStr.IsEmpty())
        return oxu_FormatMessage("arg%d", argument);
    return m_NestingStr + cow_String("[" + std::to_string(argument - 1) + "]");
}

template <class T>
T omu_PrimTuple::Converted() const
{
    T values;
    if (!omu_ItemReader::Read(*this, values))
        nex_Raise(omu_GenericTypeErrorException(), SOURCE, __LINE__);
    return values;
}

template OXU_EXPORT cow_List<int> omu_PrimTuple::Converted() const;
template OXU_EXPORT cow_List<bool> omu_PrimTuple::Converted() const;
template OXU_EXPORT cow_List<float> omu_PrimTuple::Converted() const;
template OXU_EXPORT cow_List<double> omu_PrimTuple::Converted() const;
template OXU_EXPORT cow_List<cow_String> omu_PrimTuple::Converted() const;
template OXU_EXPORT cow_List<atr_String> omu_PrimTuple::Converted() const;
template OXU_EXPORT cow_2DArray<double> omu_PrimTuple::Converted() const;
template OXU_EXPORT cow_2DArray<cow_String> omu_PrimTuple::Converted() const;
template OXU_EXPORT cow_Map<cow_String, float> omu_PrimTuple::Converted() const;

atr_String omu_PrimTuple::TypeString() const
{
    return "tuple";
}

cow_String omu_PrimTuple::AsString(int) const
{
    return Joined('(', ')', true);
}

bool omu_PrimTuple::operator==(const omu_Primitive& other) const
{
    // Of one class, not just of one kind: lists and arguments are tuples in C++ and nowhere else.
    return typeid(*this) == typeid(other) && HasEqualItems(static_cast<const omu_PrimTuple&>(other));
}

void omu_PrimTuple::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitTuple(*this);
}

omu_PrimTuple* omu_PrimTuple::Copy() const
{
    return new omu_PrimTuple(*this);
}

unsigned omu_PrimTuple::DynTypeId() const
{
    return TypeId();
}

void omu_PrimTuple::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_PrimSequence::DBWrite(writer.BaseWriter());
    writer.WriteOwnedList(FIELDS[ITEMS], m_Items.AsItems());
}

void omu_PrimTuple::RequireRoom(int) const {}

cow_String omu_PrimTuple::Joined(char open, char close, bool commaAfterLone) const
{
    std::string text(1, open);
    for (int i = 0; i < m_Items.Length(); ++i)
    {
        if (i > 0)
            text += ", ";
        View(i, [&](const omu_Primitive* item) { text.append(ReprOf(item).View()); });
    }
    if (m_Items.Length() == 1 && commaAfterLone)
        text += ',';
    text += close;
    return cow_String(text);
}

bool omu_PrimTuple::HasEqualItems(const omu_PrimTuple& other) const
{
    if (m_Items.Length() != other.m_Items.Length())
        return false;
    for (int i = 0; i < m_Items.Length(); ++i)
    {
        const bool equal = View(i, [&](const omu_Primitive* a) {
            return other.View(i, [&](const omu_Primitive* b) { return AreEqual(a, b); });
        });
        if (!equal)
            return false;
    }
    return true;
}

void omu_PrimTuple::SetItem(int index, omu_Primitive* owned)
{
    std::unique_ptr<omu_Primitive> guard(owned);
    const int depth = omu_NestingDepth::With(owned, m_Depth);
    m_Items.Set(index, guard.release());
    m_Depth = depth;
}

void omu_PrimTuple::RemoveItem(int index)
{
    m_Items.Remove(index);
}

void omu_PrimTuple::ClearItems() noexcept
{
    m_Items.Clear();
    m_Depth = 1;
}

void omu_PrimTuple::AppendItems(const omu_PrimTuple& other, int first, int last)
{
    if (first >= last)
        return;
    m_Items.AppendRange(other.m_Items, first, last);
    m_Depth = std::max(m_Depth, other.m_Depth);
}

void omu_PrimTuple::RefuseNull(int from, int to, const Faults& faults) const
{
    if (m_Items.Numbers() != nullptr)
        return;
    for (int i = from; i < to; ++i)
        if (m_Items.Get(i) == nullptr)
            nex_RaiseInternal(faults.nullItem, faults.source, faults.line);
}

void omu_PrimTuple::SliceInto(omu_PrimTuple& slice, int from, int to, const Faults& faults) const
{
    const int first = std::clamp(from, 0, m_Items.Length());
    const int last = std::clamp(to, 0, m_Items.Length());
    RefuseNull(first, last, faults);
    slice.AppendItems(*this, first, last);
}

void omu_PrimTuple::RepeatInto(omu_PrimTuple& repeated, int count, const Faults& faults) const
{
    const int once = m_Items.Length();
    const int times = once > 0 ? std::max(count, 0) : 0;
    if (times > 0 && once > std::numeric_limits<int>::max() / times)
        nex_Raise(omu_OverflowErrorException(oxu_FormatMessage(faults.tooLong)), faults.source, faults.line);
    RefuseNull(0, once, faults);
    repeated.m_Items.Reserve(times * once);
    for (int i = 0; i < times; ++i)
        repeated.AppendItems(*this, 0, once);
}

void omu_PrimTuple::ConcatInto(omu_PrimTuple& joined, const omu_PrimSequence* other,
                               const Faults& faults) const
{
    const auto* tuple = dynamic_cast<const omu_PrimTuple*>(other);
    RefuseNull(0, m_Items.Length(), faults);
    if (tuple != nullptr)
        tuple->RefuseNull(0, tuple->m_Items.Length(), faults);
    joined.AppendItems(*this, 0, m_Items.Length());
    if (other == nullptr)
        nex_Raise(omu_GenericTypeErrorException(), SOURCE, __LINE__);
    // A list that a script holds has its items there, and not here.
    if (tuple != nullptr && tuple->IsType(KIND))
        joined.AppendItems(*tuple, 0, tuple->m_Items.Length());
    else
        for (int i = 0; i < other->Length(); ++i)
            joined.Put(other->Index(i));
}

const atr_String& omu_PrimTuple::Undetermined()
{
    static const atr_String text("Undetermined");
    return text;
}

void omu_PrimTuple::IncrementCursor()
{
    ++m_Cursor;
    ++m_NumGets;
    ++m_ArgCount;
    m_WasRequired = !m_IsOptional;
    if (m_WasRequired)
        ++m_ReqCount;
}

void omu_PrimTuple::SetTypeError(const atr_String& expected)
{
    SetError(expected, View(m_Cursor, &FoundText));
}

void omu_PrimTuple::SetError(const atr_String& expected, const atr_String& found)
{
    m_ErrorArg = m_Cursor + 1;
    SetTypes(expected, found);
}

void omu_PrimTuple::SetErrorOfPrevious(const atr_String& expected, const atr_String& found)
{
    if (m_ErrorArg != 0)
        return;
    m_ErrorArg = m_Cursor;
    SetTypes(expected, found);
}

void omu_PrimTuple::SetTypes(const atr_String& expected, const atr_String& found)
{
    m_TypeExpected = expected;
    m_TypeFound = found;
}

atr_String omu_PrimTuple::FoundText(const omu_Primitive* item)
{
    if (item == nullptr)
        return "None";
    // The type of a constant is the list of all that its enumeration permits, which says little after
    // "found".
    if (const auto* constant = dynamic_cast<const omu_PrimEnumBase*>(item))
        return atr_String(constant->GetString());
    return item->TypeString();
}

omu_ArgTypeErrorException omu_PrimTuple::TypeFault(const cow_String& nesting) const
{
    omu_ArgTypeErrorException fault;
    fault.m_ArgNum = m_ErrorArg;
    fault.m_Expecting = m_TypeExpected;
    fault.m_Found = m_TypeFound;
    fault.m_NestingStr = nesting;
    return fault;
}

void omu_PrimTuple::EndReading()
{
    omu_PrimTuple::Begin();
    m_TypeExpected = atr_String();
}
