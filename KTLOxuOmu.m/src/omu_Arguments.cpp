#include <nex_RaiseWith.h>
#include <omu_ArgNumberErrorException.h>
#include <omu_ArgTypeErrorException.h>
#include <omu_Arguments.h>
#include <omu_ExpectedText.h>
#include <omu_ItemReader.h>
#include <omu_KeywordErrorException.h>
#include <omu_KeywordTypeErrorException.h>
#include <omu_PrimString.h>
#include <string>
#include <utility>

namespace
{
constexpr const char* SOURCE = "KTLOxuOmu.m/src/omu_Arguments";
}

omu_Arguments::omu_Arguments(const omu_PrimTuple& positional, const Keyworded& keywords)
    : m_Keywords(keywords)
{
    TakeItems(positional);
    SetNesting(positional.Nesting());
}

void omu_Arguments::Put(const cow_String& keyword, omu_Primitive* owned)
{
    std::unique_ptr<omu_Primitive> guard(owned);
    if (m_Keywords.Has(keyword))
    {
        omu_KeywordErrorException fault;
        fault.m_Keyword = keyword;
        fault.m_NestingStr = Nesting();
        nex_Raise(fault, SOURCE, __LINE__);
    }
    m_Keywords.Put(keyword, std::move(guard));
}

void omu_Arguments::Begin()
{
    m_PendingKeywords = m_Keywords.Keys();
    m_ReqKeywordCount = 0;
    m_KeywordErrorArg = 0;
    m_ErrorKeyword = cow_String();
    m_OptionalKeywordMissing = 0;
    m_TakenFrom = -1;
    omu_PrimTuple::Begin();
}

template <class T>
bool omu_Arguments::Read(T& out, const cow_String& keyword)
{
    m_TakenFrom = -1;
    if (ErrorArg() != 0)
    {
        IncrementKeyword(keyword);
        return false;
    }
    if (HasItem())
        return omu_PrimTuple::Get(out);
    bool delivered = false;
    if (m_PendingKeywords.Find(keyword) < 0)
        SetKeywordError(keyword);
    else
    {
        const omu_Primitive* item = m_Keywords.Get(keyword);
        delivered = item != nullptr && omu_ItemReader::Read(*item, out);
        if (!delivered)
            SetKeywordTypeError(keyword, omu_ExpectedText::ByKeyword(out));
    }
    IncrementKeyword(keyword);
    return delivered;
}

template <omu_Readable T>
bool omu_Arguments::Get(T& out, const cow_String& keyword)
{
    return Read(out, keyword);
}

template OXU_EXPORT bool omu_Arguments::Get(bool&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(int&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(signed char&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(short&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(unsigned int&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(float&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(double&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(cow_String&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(atr_String&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omi_complex&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_OrvexName&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_PrimPath&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_PrimType&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_PrimNone&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_PrimExpr&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_PrimException&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_PrimWrapper&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_PrimArray&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_PrimDictionary<int>&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_PrimDictionary<cow_String>&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_PyObjectWrapper&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_ListPyObjectWrapper&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_DictPyObjectWrapper&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_DictIntPyObjectWrapper&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(omu_DictStrPyObjectWrapper&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(const omu_InterfaceObj*&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(std::unique_ptr<omu_Primitive>&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(cow_List<int>&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(cow_List<bool>&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(cow_List<float>&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(cow_List<double>&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(cow_List<cow_String>&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(cow_List<atr_String>&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(cow_2DArray<double>&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(cow_2DArray<cow_String>&, const cow_String&);
template OXU_EXPORT bool omu_Arguments::Get(cow_Map<cow_String, float>&, const cow_String&);

bool omu_Arguments::Get(omu_PrimTuple& out, const cow_String& keyword)
{
    omu_PrimTuple found;
    if (!Read(found, keyword))
        return false;
    out.TakeItems(found);
    out.SetNesting(NestingOf(keyword));
    return true;
}

bool omu_Arguments::Get(omu_PrimEnumBase& out, const cow_String& keyword)
{
    return Read(out, keyword);
}

bool omu_Arguments::Alternative()
{
    if (!omu_PrimTuple::Alternative())
        return false;
    if (m_TakenFrom >= 0)
    {
        m_PendingKeywords.Insert(m_TakenFrom, m_ErrorKeyword);
        if (WasRequired())
            --m_ReqKeywordCount;
        m_TakenFrom = -1;
    }
    m_ErrorKeyword = cow_String();
    m_KeywordErrorArg = 0;
    return true;
}

void omu_Arguments::Refuse(const atr_String& expected, const cow_String& keyword)
{
    if (m_TakenFrom < 0)
        omu_PrimTuple::Refuse(expected);
    else if (ErrorArg() == 0)
    {
        SetErrorOfPrevious(expected, FoundText(m_Keywords.Get(keyword)));
        m_ErrorKeyword = keyword;
    }
}

bool omu_Arguments::Error() const
{
    return ErrorArg() != 0 || !m_PendingKeywords.IsEmpty() || CountError();
}

bool omu_Arguments::CountError() const
{
    return Length() + m_ReqKeywordCount < ReqCount() || Length() + m_Keywords.Length() > ArgCount();
}

void omu_Arguments::End(const cow_String& nesting)
{
    const cow_String& where = nesting.IsEmpty() ? Nesting() : nesting;
    if (!m_PendingKeywords.IsEmpty())
    {
        omu_KeywordErrorException fault;
        fault.m_Keyword = m_PendingKeywords.Get(0);
        fault.m_NestingStr = where;
        nex_Raise(fault, SOURCE, __LINE__);
    }
    if (ErrorArg() != 0 && !m_ErrorKeyword.IsEmpty())
    {
        // A missing keyword is a missing argument, and falls through to the counts.
        if (!IsUndetermined())
        {
            omu_KeywordTypeErrorException fault;
            fault.m_Keyword = m_ErrorKeyword;
            fault.m_Expecting = TypeExpected();
            fault.m_Found = TypeFound();
            fault.m_NestingStr = where;
            nex_Raise(fault, SOURCE, __LINE__);
        }
    }
    else if (ErrorArg() != 0)
        nex_Raise(TypeFault(where), SOURCE, __LINE__);
    const int present = Length() + m_ReqKeywordCount;
    if (present < ReqCount())
        nex_Raise(omu_ArgNumberErrorException(ReqCount(), present, where), SOURCE, __LINE__);
    const int supplied = Length() + m_Keywords.Length();
    if (supplied > ArgCount())
        nex_Raise(omu_ArgNumberErrorException(ArgCount(), supplied, where), SOURCE, __LINE__);
    EndReading();
    m_ReqKeywordCount = 0;
    m_KeywordErrorArg = 0;
    m_ErrorKeyword = cow_String();
    m_OptionalKeywordMissing = 0;
}

cow_String omu_Arguments::NestingOf(const cow_String& keyword) const
{
    if (Nesting().IsEmpty())
        return keyword;
    return Nesting() + ("[" + omu_PrimString::Quoted(keyword) + "]");
}

cow_String omu_Arguments::AsString(int) const
{
    const cow_String items = Joined('(', ')', false);
    std::string text(items.View().substr(0, items.View().size() - 1));
    for (int i = 0; i < m_Keywords.Length(); ++i)
    {
        if (text.size() > 1)
            text += ", ";
        text.append(m_Keywords.KeyAt(i).View()) += '=';
        text.append(ReprOf(m_Keywords.ValueAt(i)).View());
    }
    text += ')';
    return cow_String(text);
}

bool omu_Arguments::operator==(const omu_Primitive& other) const
{
    const auto* arguments = dynamic_cast<const omu_Arguments*>(&other);
    return arguments != nullptr && omu_PrimTuple::operator==(other) && m_Keywords == arguments->m_Keywords;
}

omu_Arguments* omu_Arguments::Copy() const
{
    return new omu_Arguments(*this);
}

void omu_Arguments::SetKeywordError(const cow_String& keyword)
{
    const int argument = Cursor() + 1;
    m_ErrorKeyword = keyword;
    if (IsOptional())
    {
        SetTypes(Undetermined(), Undetermined());
        m_OptionalKeywordMissing = argument;
        return;
    }
    SetError(Undetermined(), Undetermined());
    m_KeywordErrorArg = argument;
}

void omu_Arguments::SetKeywordTypeError(const cow_String& keyword, const atr_String& expected)
{
    SetError(expected, FoundText(m_Keywords.Get(keyword)));
    m_ErrorKeyword = keyword;
}

void omu_Arguments::IncrementKeyword(const cow_String& keyword)
{
    IncrementCursor();
    m_TakenFrom = m_PendingKeywords.Find(keyword);
    if (m_TakenFrom < 0)
        return;
    if (WasRequired())
        ++m_ReqKeywordCount;
    m_PendingKeywords.Remove(m_TakenFrom);
}

bool omu_Arguments::IsUndetermined() const
{
    return TypeExpected() == Undetermined() || TypeFound() == Undetermined();
}
