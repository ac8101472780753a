#include <KTLBasException.h>
#include <cstdio>
#include <functional>
#include <memory>
#include <nex_RaiseWith.h>
#include <omu_Arguments.h>
#include <omu_IndexErrorException.h>
#include <omu_PrimBool.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimList.h>
#include <omu_PrimNumber.h>
#include <omu_PrimString.h>
#include <omu_SeqIntObj.h>
#include <omu_Table.h>
#include <string>
#include <unordered_map>

namespace
{
constexpr const char* SOURCE = "KTLOxuOmu.m/src/omu_SeqIntObj";

// Equal values have equal hashes, whatever their class; kinds that say nothing cheaply share one.
std::size_t HashOf(const omu_Primitive* value)
{
    if (const auto* number = dynamic_cast<const omu_PrimNumber*>(value))
        return std::hash<double>()(number->AsDouble());
    // Strings are equal when they agree up to the first zero byte.
    if (const auto* text = dynamic_cast<const omu_PrimString*>(value))
        return std::hash<std::string_view>()(text->AsCharPtr());
    if (const auto* object = dynamic_cast<const omu_InterfaceObj*>(value))
        return object->BaseShortcut().Path().Hash();
    return 0;
}

void AppendElements(omu_PrimList& list, const omu_SeqIntObj& sequence, int from, int to)
{
    for (int position = from; position < to; ++position)
        list.Put(sequence.Index(position));
}
}

const omu_InterfaceObj::TypeDesc& omu_SeqIntObj::Description()
{
    static const methodTable METHODS[] = {
        {"isUnique", Method<&omu_SeqIntObj::MyIsUnique>, NOT_JOURNALLED},
        {"removeDuplicates", Method<&omu_SeqIntObj::MyRemoveDuplicates>, NOT_JOURNALLED},
        {"_summary", Method<&omu_SeqIntObj::MySummary>, NOT_JOURNALLED},
        {}};
    static const TypeDesc description = DescribeType("OrvexArray", METHODS, nullptr, nullptr, nullptr);
    return description;
}

omu_SeqIntObj::omu_SeqIntObj(const omu_Shortcut& shortcut, omu_OperationRules rules,
                             omu_PythonType pythonType)
    : omu_InterfaceObj(shortcut, rules, pythonType)
{
    SetTypeDesc(Description());
}

omu_SeqIntObj::omu_SeqIntObj(omu_OperationRules rules, omu_PythonType pythonType)
    : omu_SeqIntObj(omu_Shortcut(), rules, pythonType)
{}

cow_String omu_SeqIntObj::ElementText(int position) const
{
    try
    {
        const std::unique_ptr<omu_Primitive> element(Index(position));
        return ReprOf(element.get());
    }
    catch (const KTLBasException& failure)
    {
        std::fprintf(stderr, "sequence object %s, index %d, type=%s: %s\n", PathOrDefault().AsCharPtr(),
                     position, TypeString().AsCharPtr(), failure.UserReport().AsCharPtr());
        return UNKNOWN_VALUE;
    }
}

cow_String omu_SeqIntObj::AsString(int) const
{
    if (IsStale())
        return DefaultRepr();
    cow_String text = "[";
    for (int position = 0; position < Length(); ++position)
    {
        if (position > 0)
            text += ", ";
        text += ElementText(position);
    }
    return text += "]";
}

int omu_SeqIntObj::Length() const
{
    return length_;
}

omu_Primitive* omu_SeqIntObj::Slice(int from, int to) const
{
    auto list = std::make_unique<omu_PrimList>();
    AppendElements(*list, *this, from, to);
    return list.release();
}

omu_Primitive* omu_SeqIntObj::Repeat(int count) const
{
    omu_PrimList once;
    AppendElements(once, *this, 0, Length());
    return once.Repeat(count);
}

omu_Primitive* omu_SeqIntObj::Concat(const omu_SeqIntObj* other) const
{
    auto list = std::make_unique<omu_PrimList>();
    AppendElements(*list, *this, 0, Length());
    AppendElements(*list, *other, 0, other->Length());
    return list.release();
}

omu_Primitive* omu_SeqIntObj::Assign(int, const omu_Primitive&) const
{
    nex_RaisePrim(ILLEGAL_OPERATION, SOURCE, __LINE__);
}

omu_Primitive* omu_SeqIntObj::Remove(int) const
{
    nex_RaisePrim(ILLEGAL_OPERATION, SOURCE, __LINE__);
}

omu_Primitive* omu_SeqIntObj::RemoveSlice(int, int) const
{
    nex_RaisePrim(ILLEGAL_OPERATION, SOURCE, __LINE__);
}

bool omu_SeqIntObj::IsUnique(int position) const
{
    const std::unique_ptr<omu_Primitive> element(Index(position));
    for (int i = 0; i < Length(); ++i)
        if (i != position && AreEqual(element.get(), std::unique_ptr<omu_Primitive>(Index(i)).get()))
            return false;
    return true;
}

omu_Primitive* omu_SeqIntObj::RemoveDuplicates() const
{
    auto list = std::make_unique<omu_PrimList>();
    std::unordered_multimap<std::size_t, int> places;
    for (int position = 0; position < Length(); ++position)
    {
        std::unique_ptr<omu_Primitive> element(Index(position));
        const std::size_t hash = HashOf(element.get());
        bool isNew = true;
        for (auto [at, end] = places.equal_range(hash); isNew && at != end; ++at)
            isNew = !list->View(at->second,
                                [&](const omu_Primitive* kept) { return AreEqual(kept, element.get()); });
        if (!isNew)
            continue;
        places.emplace(hash, list->Length());
        list->Put(std::move(element));
    }
    return list.release();
}

omu_Primitive* omu_SeqIntObj::Summary() const
{
    omu_Table table({"Index", "Value"});
    for (int position = 0; position < Length(); ++position)
    {
        const int row = table.AddRow();
        table.Put(row, 0, new omu_PrimNumber(position));
        table.Put(row, 1, ElementText(position));
    }
    return new omu_PrimString(table.AsString());
}

int omu_SeqIntObj::ConvertIndex(const int& index, bool endAllowed, int length)
{
    const int position = index < 0 ? index + length : index;
    if (position > length || (position == length && !endAllowed))
        nex_Raise(omu_IndexErrorException(index), SOURCE, __LINE__);
    return position < 0 ? 0 : position;
}

omu_Primitive* omu_SeqIntObj::MyIsUnique(omu_Arguments& arguments) const
{
    int index = 0;
    arguments.Begin();
    arguments.Get(index, "index");
    arguments.End();
    return new omu_PrimBoolean(IsUnique(ConvertSubscrIndex(index)));
}

omu_Primitive* omu_SeqIntObj::MyRemoveDuplicates(omu_Arguments& arguments) const
{
    arguments.Begin();
    arguments.End();
    return RemoveDuplicates();
}

omu_Primitive* omu_SeqIntObj::MySummary(omu_Arguments& arguments) const
{
    arguments.Begin();
    arguments.End();
    return Summary();
}
