#include <algorithm>
#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <limits>
#include <memory>
#include <nex_RaiseWith.h>
#include <omu_GenericTypeErrorException.h>
#include <omu_NumberText.h>
#include <omu_OverflowErrorException.h>
#include <omu_PrimArray.h>
#include <omu_PrimTuple.h>
#include <omu_PrimVisitor.h>
#include <omu_ValueErrorException.h>
#include <oxu_FormatMessage.h>
#include <string>

namespace
{
constexpr char KIND = 'o';
constexpr const char* SOURCE = "KTLOxuOmu.m/src/omu_PrimArray";
constexpr const char* WRONG_RANK = "array must have 1 to %d dimensions, got %d";
constexpr const char* WRONG_DIMENSION = "array dimension must be positive, got %d";
constexpr const char* WRONG_SIZE = "array shape holds %d elements, got %d";
constexpr const char* WRONG_INDICES = "array has %d dimensions, got %d indices";
constexpr const char* SEVERAL_LISTS = "array has elements of more than one type";
constexpr const char* TOO_LARGE = "array is too large";
// Stored order: append only. A retired field keeps its index.
enum Field { SHAPE, INTS, FLOATS, DOUBLES };
constexpr cls_FieldHandle FIELDS[] = {
    {SHAPE, "m_shape"}, {INTS, "m_ints"}, {FLOATS, "m_floats"}, {DOUBLES, "m_doubles"}};
constexpr unsigned LAYOUT_RELEASE = 800;
constexpr int LONGEST = std::numeric_limits<int>::max();

// Refuses a shape that is none, or that does not hold `size` elements.
const cow_List<int>& CheckedShape(const cow_List<int>& shape, int size)
{
    const int rank = shape.Length();
    if (rank < 1 || rank > omu_PrimArray::MAX_RANK)
        nex_Raise(omu_ValueErrorException(oxu_FormatMessage(WRONG_RANK, omu_PrimArray::MAX_RANK, rank)),
                  SOURCE, __LINE__);
    int product = 1;
    for (const int dimension : shape)
    {
        if (dimension < (rank == 1 ? 0 : 1))
            nex_Raise(omu_ValueErrorException(oxu_FormatMessage(WRONG_DIMENSION, dimension)), SOURCE,
                      __LINE__);
        if (dimension > 0 && product > LONGEST / dimension)
            nex_Raise(omu_OverflowErrorException(oxu_FormatMessage(TOO_LARGE)), SOURCE, __LINE__);
        product *= dimension;
    }
    if (product != size)
        nex_Raise(omu_ValueErrorException(oxu_FormatMessage(WRONG_SIZE, product, size)), SOURCE, __LINE__);
    return shape;
}

// Writes the elements from `place` on that lie in dimension `level` and below; gives the place behind them.
template <class T>
int WriteText(const cow_List<int>& shape, int level, const T* data, int place, std::string& text)
{
    const int length = shape.Get(level);
    text += '(';
    for (int i = 0; i < length; ++i)
    {
        if (i > 0)
            text += ", ";
        if (level + 1 < shape.Length())
        {
            place = WriteText(shape, level + 1, data, place, text);
            continue;
        }
        char number[omu_NumberText::SIZE];
        text.append(number, omu_PrimNumber(data[place++]).WriteText(number));
    }
    text += length == 1 ? ",)" : ")";
    return place;
}

template <class T>
constexpr omu_PrimNumber::DataTypeEnm DATA_TYPE =
    std::is_same_v<T, int>     ? omu_PrimNumber::DataTypeEnm::INT
    : std::is_same_v<T, float> ? omu_PrimNumber::DataTypeEnm::FLOAT
                               : omu_PrimNumber::DataTypeEnm::DOUBLE;

template <class T>
std::unique_ptr<omu_PrimTuple> TupleOf(const cow_List<int>& shape, int level, const T*& data)
{
    const int length = shape.Get(level);
    auto tuple = std::make_unique<omu_PrimTuple>(level + 1 == shape.Length() ? length : 0);
    for (int i = 0; i < length; ++i)
    {
        if (level + 1 == shape.Length())
            tuple->PutNumber(*data++, DATA_TYPE<T>);
        else
            tuple->Put(TupleOf(shape, level + 1, data));
    }
    return tuple;
}

template <class T>
cow_List<T> Repeated(const cow_List<T>& data, int count)
{
    cow_List<T> repeated;
    repeated.Reserve(data.Length() * count);
    for (int i = 0; i < count; ++i)
        repeated.AppendList(data);
    return repeated;
}

template <class T>
cow_List<T> Joined(const cow_List<T>& a, const cow_List<T>& b)
{
    cow_List<T> joined(a);
    joined.AppendList(b);
    return joined;
}
}

void omu_PrimArray::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_PrimArray", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<omu_PrimArray>::Instance(), omu_PrimSequence::TypeId());
    meta.AddAttribute(FIELDS[SHAPE], cls_AttributeType::OBJECT, cls_ListTypeId, cls_CollectionType::LIST_INT);
    meta.AddAttribute(FIELDS[INTS], cls_AttributeType::OBJECT, cls_ListTypeId, cls_CollectionType::LIST_INT);
    meta.AddAttribute(FIELDS[FLOATS], cls_AttributeType::OBJECT, cls_ListTypeId,
                      cls_CollectionType::LIST_FLOAT);
    meta.AddAttribute(FIELDS[DOUBLES], cls_AttributeType::OBJECT, cls_ListTypeId,
                      cls_CollectionType::LIST_DOUBLE);
}

omu_PrimArray::omu_PrimArray() : omu_PrimArray(cow_List<double>()) {}

omu_PrimArray::omu_PrimArray(const cow_List<int>& data) : omu_PrimArray({data.Length()}, data) {}

omu_PrimArray::omu_PrimArray(const cow_List<float>& data) : omu_PrimArray({data.Length()}, data) {}

omu_PrimArray::omu_PrimArray(const cow_List<double>& data) : omu_PrimArray({data.Length()}, data) {}

omu_PrimArray::omu_PrimArray(const cow_2DArray<double>& data)
    : omu_PrimArray(data.IsEmpty() ? cow_List<int>{0} : cow_List<int>{data.Rows(), data.Cols()},
                    cow_List<double>::FromArray(data.Data(), data.Rows() * data.Cols()))
{}

omu_PrimArray::omu_PrimArray(const cow_List<int>& shape, const cow_List<int>& data)
    : omu_PrimSequence(KIND),
      m_ElementType(ElementTypeEnm::INT),
      m_Shape(CheckedShape(shape, data.Length())),
      m_Ints(data)
{}

omu_PrimArray::omu_PrimArray(const cow_List<int>& shape, const cow_List<float>& data)
    : omu_PrimSequence(KIND),
      m_ElementType(ElementTypeEnm::FLOAT),
      m_Shape(CheckedShape(shape, data.Length())),
      m_Floats(data)
{}

omu_PrimArray::omu_PrimArray(const cow_List<int>& shape, const cow_List<double>& data)
    : omu_PrimSequence(KIND), m_Shape(CheckedShape(shape, data.Length())), m_Doubles(data)
{}

omu_PrimArray::omu_PrimArray(const cls_ReadVisitor& reader)
    : omu_PrimSequence(reader.BaseReader(), KIND), m_Shape({0})
{
    reader.ReadList(FIELDS[SHAPE], m_Shape);
    reader.ReadList(FIELDS[INTS], m_Ints);
    reader.ReadList(FIELDS[FLOATS], m_Floats);
    reader.ReadList(FIELDS[DOUBLES], m_Doubles);
    const int lists = int(!m_Ints.IsEmpty()) + int(!m_Floats.IsEmpty()) + int(!m_Doubles.IsEmpty());
    if (lists > 1)
        nex_Raise(omu_ValueErrorException(oxu_FormatMessage(SEVERAL_LISTS)), SOURCE, __LINE__);
    if (!m_Ints.IsEmpty())
        m_ElementType = ElementTypeEnm::INT;
    else if (!m_Floats.IsEmpty())
        m_ElementType = ElementTypeEnm::FLOAT;
    CheckedShape(m_Shape, Size());
}

void omu_PrimArray::Reshape(const cow_List<int>& shape)
{
    m_Shape = CheckedShape(shape, Size());
}

omu_PrimNumber omu_PrimArray::At(const cow_List<int>& indices) const
{
    if (indices.Length() != Rank())
        nex_Raise(omu_ValueErrorException(oxu_FormatMessage(WRONG_INDICES, Rank(), indices.Length())), SOURCE,
                  __LINE__);
    int place = 0;
    for (int level = 0; level < Rank(); ++level)
    {
        const int index = indices.Get(level);
        if (index < 0 || index >= m_Shape.Get(level))
            nex_RaiseRange(index, m_Shape.Get(level), SOURCE, __LINE__);
        place = place * m_Shape.Get(level) + index;
    }
    return Element(place);
}

omu_PrimNumber omu_PrimArray::Element(int place) const
{
    return WithData([&](const auto& data) { return omu_PrimNumber(data.Get(place)); });
}

omu_PrimTuple* omu_PrimArray::AsTuple() const
{
    return WithData([&](const auto& data) {
        auto* next = data.Data();
        return TupleOf(m_Shape, 0, next).release();
    });
}

omu_Primitive* omu_PrimArray::Index(int index) const
{
    if (index < 0 || index >= Length())
        nex_RaiseRange(index, Length(), SOURCE, __LINE__);
    if (Rank() == 1)
        return new omu_PrimNumber(Element(index));
    const cow_List<int> inner = cow_List<int>::FromArray(m_Shape.Data() + 1, Rank() - 1);
    return WithData([&](const auto& data) {
        using List = std::remove_cvref_t<decltype(data)>;
        const int stride = Stride();
        return new omu_PrimArray(
            inner, List::FromArray(data.Data() + static_cast<std::ptrdiff_t>(index) * stride, stride));
    });
}

omu_PrimArray* omu_PrimArray::Slice(int from, int to) const
{
    const int first = std::clamp(from, 0, Length());
    const int length = std::max(std::clamp(to, 0, Length()) - first, 0);
    return WithData([&](const auto& data) {
        using List = std::remove_cvref_t<decltype(data)>;
        const std::ptrdiff_t skipped = static_cast<std::ptrdiff_t>(first) * Stride();
        return new omu_PrimArray(ShapeOf(length), List::FromArray(data.Data() + skipped, length * Stride()));
    });
}

omu_PrimArray* omu_PrimArray::Repeat(int count) const
{
    const int times = Size() > 0 ? std::max(count, 0) : 0;
    if (times > 0 && Size() > LONGEST / times)
        nex_Raise(omu_OverflowErrorException(oxu_FormatMessage(TOO_LARGE)), SOURCE, __LINE__);
    return WithData([&](const auto& data) {
        return new omu_PrimArray(ShapeOf(Length() * times), Repeated(data, times));
    });
}

omu_PrimArray* omu_PrimArray::Concat(const omu_PrimSequence* other) const
{
    const auto* array = dynamic_cast<const omu_PrimArray*>(other);
    if (array == nullptr)
        nex_Raise(omu_GenericTypeErrorException(), SOURCE, __LINE__);
    if (array->Size() == 0)
        return Copy();
    if (Size() == 0)
        return array->Copy();
    if (!(array->ShapeOf(1) == ShapeOf(1)))
        nex_Raise(omu_GenericTypeErrorException(), SOURCE, __LINE__);
    if (Size() > LONGEST - array->Size())
        nex_Raise(omu_OverflowErrorException(oxu_FormatMessage(TOO_LARGE)), SOURCE, __LINE__);
    const cow_List<int> shape = ShapeOf(Length() + array->Length());
    switch (m_ElementType == array->m_ElementType ? m_ElementType : ElementTypeEnm::DOUBLE)
    {
    case ElementTypeEnm::INT:
        return new omu_PrimArray(shape, Joined(m_Ints, array->m_Ints));
    case ElementTypeEnm::FLOAT:
        return new omu_PrimArray(shape, Joined(m_Floats, array->m_Floats));
    default:
        return new omu_PrimArray(shape, Joined(AsDoubles(), array->AsDoubles()));
    }
}

atr_String omu_PrimArray::TypeString() const
{
    return "array";
}

cow_String omu_PrimArray::AsString(int) const
{
    std::string text;
    WithData([&](const auto& data) { WriteText(m_Shape, 0, data.Data(), 0, text); });
    return cow_String(text);
}

bool omu_PrimArray::operator==(const omu_Primitive& other) const
{
    const auto* array = dynamic_cast<const omu_PrimArray*>(&other);
    if (array == nullptr || !(m_Shape == array->m_Shape))
        return false;
    return WithData([&](const auto& mine) {
        return array->WithData([&](const auto& theirs) {
            // Every int and float is a double too.
            return std::equal(mine.begin(), mine.end(), theirs.begin(), theirs.end(), [](auto a, auto b) {
                return static_cast<double>(a) == static_cast<double>(b);
            });
        });
    });
}

void omu_PrimArray::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitArray(*this);
}

omu_PrimArray* omu_PrimArray::Copy() const
{
    return new omu_PrimArray(*this);
}

unsigned omu_PrimArray::DynTypeId() const
{
    return TypeId();
}

void omu_PrimArray::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_PrimSequence::DBWrite(writer.BaseWriter());
    writer.WriteList(FIELDS[SHAPE], m_Shape);
    writer.WriteList(FIELDS[INTS], m_Ints);
    writer.WriteList(FIELDS[FLOATS], m_Floats);
    writer.WriteList(FIELDS[DOUBLES], m_Doubles);
}

cow_List<int> omu_PrimArray::ShapeOf(int length) const
{
    if (length == 0)
        return {0};
    cow_List<int> shape(m_Shape);
    shape[0] = length;
    return shape;
}

int omu_PrimArray::Stride() const
{
    return Length() > 0 ? Size() / Length() : 0;
}

cow_List<double> omu_PrimArray::AsDoubles() const
{
    if (m_ElementType == ElementTypeEnm::DOUBLE)
        return m_Doubles;
    return WithData([](const auto& data) {
        cow_List<double> values;
        values.Reserve(data.Length());
        for (const auto value : data)
            values.Append(static_cast<double>(value));
        return values;
    });
}
