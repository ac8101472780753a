#pragma once

#include <omu_PrimDictionary.h>
#include <omu_PrimTuple.h>

/// The arguments of one scripting command, positional and by keyword, read through one protocol:
///
///     omu_Arguments arguments(positional, byKeyword);
///     arguments.Begin();
///     arguments.Get(fixed, "fixed");          // required
///     arguments.Optional();
///     arguments.Get(scale, "scale");          // keeps its default when it is not given
///     arguments.End();                        // raises the first fault
///
/// Positional arguments are consumed first, keywords fill the rest. Faults are kept, not raised, until End;
/// the first type fault stays. Both sources are shared with the tuple and the dictionary given, never copied.
/// REQUIRES: Begin before the first Get.
class OXU_EXPORT omu_Arguments : public omu_PrimTuple
{
public:
    using Keyworded = omu_PrimDictionary<cow_String>;

    omu_Arguments() = default;
    explicit omu_Arguments(const omu_PrimTuple& positional, const Keyworded& keywords = Keyworded());

    using omu_PrimTuple::Put;
    /// Supplies an argument by keyword; the value as omu_PrimTuple::Put takes it. A keyword that is there
    /// raises omu_KeywordErrorException at once.
    template <class T>
    void Put(const cow_String& keyword, const T& value)
    {
        omu_PrimTuple item;
        item.Put(value);
        Put(keyword, item.Index(0));
    }
    /// Takes the object over, also when it raises; null is a null value.
    void Put(const cow_String& keyword, omu_Primitive* owned);

    void Begin() override;

    using omu_PrimTuple::Get;
    /// Get with a keyword reads the next argument: the next positional one while one remains, whatever the
    /// keyword, else the one of that keyword. What each type takes, and when it is true, stands at
    /// omu_PrimTuple.
    template <omu_Readable T>
    bool Get(T& out, const cow_String& keyword);
    bool Get(omu_PrimTuple& out, const cow_String& keyword);
    bool Get(omu_PrimEnumBase& out, const cow_String& keyword);

    /// True when the argument just read was of the wrong type, or missing though required: that read is then
    /// undone, its keyword put back, and another type may be tried for the same argument.
    bool Alternative() override;
    using omu_PrimTuple::Refuse;
    /// Refuse for the argument that was just read by this keyword.
    void Refuse(const atr_String& expected, const cow_String& keyword);
    /// Whether the argument just read failed; an optional one that was not given has not.
    bool ErrorOnPrevious() const { return ErrorArg() != 0 && ErrorArg() == Cursor(); }
    bool Error() const override;
    bool CountError() const override;
    /// Raises, in this order, the first keyword that was supplied and never read
    /// (omu_KeywordErrorException), the first argument of a wrong type (omu_KeywordTypeErrorException or
    /// omu_ArgTypeErrorException), required arguments missing, too many arguments
    /// (omu_ArgNumberErrorException). A missing keyword counts as a missing argument. An empty text means the
    /// stored one (Nesting).
    void End(const cow_String& nesting = cow_String()) override;

    using omu_PrimTuple::NestingOf;
    /// The same for an argument with a keyword: "points", or below a nesting text "s.f['points']".
    cow_String NestingOf(const cow_String& keyword) const;
    const Keyworded& Keywords() const { return m_Keywords; }
    /// Supplied and not yet read, in the order of supply.
    const cow_List<cow_String>& PendingKeywords() const { return m_PendingKeywords; }

    /// "(1, 2.0, name='x')"; no comma behind a lone item.
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    omu_Arguments* Copy() const override;

private:
    template <class T>
    bool Read(T& out, const cow_String& keyword);
    void SetKeywordError(const cow_String& keyword);
    void SetKeywordTypeError(const cow_String& keyword, const atr_String& expected);
    /// One read further, and the keyword read, if it is pending.
    void IncrementKeyword(const cow_String& keyword);
    bool IsUndetermined() const;

    Keyworded m_Keywords;
    cow_List<cow_String> m_PendingKeywords;
    int m_ReqKeywordCount = 0;
    int m_KeywordErrorArg = 0;
    cow_String m_ErrorKeyword;
    int m_OptionalKeywordMissing = 0;
    int m_TakenFrom = -1; // where the keyword of the read before stood among the pending ones; -1: no keyword
};
