#pragma once

#include <concepts>
#include <cow_2DArray.h>
#include <cow_List.h>
#include <cow_Map.h>
#include <memory>
#include <omi_complex.h>
#include <omu_PrimSequence.h>
#include <omu_PrimVector.h>
#include <omu_Readable.h>

class omu_ArgTypeErrorException;
class omu_PrimEnumBase;

/// An ordered sequence of values that scripts do not change, kind "("; at the same time the cursor through
/// which a command reads its positional arguments one by one:
///
///     arguments.Begin();
///     arguments.Get(x);          // required
///     arguments.Optional();
///     arguments.Get(scale);      // keeps its default when it is not given
///     arguments.End();           // raises the first fault
///
/// It owns its items; a copy shares them, and equal values in copies are never written through one another.
/// Null items are legal and written None. Equal are sequences of one class with equal items: a tuple equals
/// no list.
class OXU_EXPORT omu_PrimTuple : public omu_PrimSequence
{
public:
    using DataTypeEnm = omu_PrimNumber::DataTypeEnm;
    static constexpr char KIND = '(';

    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 25); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    // The kind code is "(", or "L" for the list that a script holds; any other is an internal error.

    explicit omu_PrimTuple(char kind = KIND);
    /// Room for `count` items; the length is 0.
    explicit omu_PrimTuple(int count, char kind = KIND);
    explicit omu_PrimTuple(const cow_List<int>& values, char kind = KIND);
    explicit omu_PrimTuple(const cow_List<bool>& values, char kind = KIND);
    /// Items of data type FLOAT.
    explicit omu_PrimTuple(const cow_List<float>& values, char kind = KIND);
    explicit omu_PrimTuple(const cow_List<double>& values, char kind = KIND);
    explicit omu_PrimTuple(const cow_List<cow_String>& values, char kind = KIND);
    explicit omu_PrimTuple(const cow_List<atr_String>& values, char kind = KIND);
    explicit omu_PrimTuple(const cow_List<omu_PrimEnumBase>& values, char kind = KIND);
    /// A tuple of row tuples.
    explicit omu_PrimTuple(const cow_2DArray<double>& values, char kind = KIND);
    explicit omu_PrimTuple(const cow_2DArray<cow_String>& values, char kind = KIND);
    /// A tuple of (key, value) tuples, in the order of the map.
    explicit omu_PrimTuple(const cow_Map<cow_String, float>& values, char kind = KIND);
    omu_PrimTuple(const int* values, int count, char kind = KIND);
    omu_PrimTuple(const float* values, int count, char kind = KIND);
    /// Nested tuples, one level for each dimension.
    explicit omu_PrimTuple(const omu_PrimArray& values, char kind = KIND);
    /// Copies of the values; null stays null.
    explicit omu_PrimTuple(const cow_List<const omu_Primitive*>& values, char kind = KIND);
    /// Shares the values.
    explicit omu_PrimTuple(const omu_PrimVector::Items& values, char kind = KIND);
    explicit omu_PrimTuple(const cls_ReadVisitor& reader);

    /// Put appends one item. Takes bool alone: no pointer turns into a truth value by itself.
    void Put(std::same_as<bool> auto value) { PutBoolean(value); }
    void Put(int value) { PutNumber(value, DataTypeEnm::INT); }
    void Put(signed char value) { PutNumber(value, DataTypeEnm::SCHAR); }
    void Put(short value) { PutNumber(value, DataTypeEnm::SHORT); }
    void Put(unsigned int value) { PutNumber(value, DataTypeEnm::UINT); }
    /// A float comes here too, and becomes a DOUBLE.
    void Put(double value) { PutNumber(value, DataTypeEnm::DOUBLE); }
    void Put(const char* text) { Put(cow_String(text)); }
    void Put(const cow_String& text);
    void Put(const atr_String& text);
    void Put(const omi_complex& value);
    /// Keeps a copy.
    void Put(const omu_Primitive& value) { Put(value.Copy()); }
    /// Takes the object over, also when it raises; null is a null item.
    void Put(omu_Primitive* owned);
    void Put(std::unique_ptr<omu_Primitive> value) { Put(value.release()); }
    /// One nested tuple.
    template <class T>
    void Put(const cow_List<T>& values)
    {
        Put(new omu_PrimTuple(values));
    }
    template <class T>
    void Put(const cow_2DArray<T>& values)
    {
        Put(new omu_PrimTuple(values));
    }
    void Put(const cow_Map<cow_String, float>& values) { Put(new omu_PrimTuple(values)); }
    /// The number as omu_PrimNumber(value, dataType) holds it; not for UINT beyond 32 bits.
    void PutNumber(double value, DataTypeEnm dataType);

    /// Takes the other's items, and nothing of how far it was read.
    void TakeItems(const omu_PrimTuple& other);

    int Length() const override { return m_Items.Length(); }
    /// The item itself, which the tuple owns until it changes; null from a null item.
    const omu_Primitive* operator[](int index) const { return m_Items.Get(index); }
    /// Calls look(const omu_Primitive*) with the item and gives what it returns. Of a tuple of numbers the
    /// object is made for the call and gone after it, so that reading a long one makes no objects that last.
    template <class F>
    decltype(auto) View(int index, F look) const
    {
        return m_Items.View(index, look);
    }
    omu_Primitive* Index(int index) const override;
    omu_PrimTuple* Slice(int from, int to) const override;
    omu_PrimTuple* Repeat(int count) const override;
    /// Of an array the outermost items come: numbers, or arrays of one dimension less.
    omu_PrimTuple* Concat(const omu_PrimSequence* other) const override;
    const omu_PrimVector& Items() const { return m_Items; }
    /// 1 + the depth of the deepest item; see omu_NestingDepth.
    int Depth() const { return m_Depth; }

    // Reading arguments. Faults are kept, not raised, until End; the first one stays.

    /// Starts over.
    virtual void Begin();

    // Get reads the next argument. True when this very read delivered: an item was there, no earlier read had
    // failed and the item's type was right. Otherwise the output is as it was.

    /// omu_Readable says what each type takes.
    template <omu_Readable T>
    bool Get(T& out);
    /// A tuple or list. `out` is then ready for Begin, and knows as its nesting text where it stood.
    bool Get(omu_PrimTuple& out);
    /// A symbolic constant that `out` permits; for a plain omu_PrimEnumBase any.
    bool Get(omu_PrimEnumBase& out);

    /// Every argument read from here to the next Begin or successful End is optional.
    void Optional() { m_IsOptional = true; }
    /// True when the argument just read was of the wrong type: that read is then undone, fault and all, and
    /// another type may be tried for the same argument.
    virtual bool Alternative();
    /// Whether End would raise.
    virtual bool Error() const { return m_ErrorArg != 0 || CountError(); }
    /// Required arguments are missing, or there are more items than were read.
    virtual bool CountError() const { return m_Items.Length() < m_ReqCount || m_Items.Length() > m_ArgCount; }
    /// Raises the first type fault as omu_ArgTypeErrorException, else a wrong count as
    /// omu_ArgNumberErrorException, which names as expected the number of required arguments also when there
    /// were too many. An empty text means the stored one (Nesting).
    virtual void End(const cow_String& nesting = cow_String());

    /// For readers of forms of their own: when the read before failed on the type, says that `expected` was
    /// expected there.
    void SetExpected(const atr_String& expected);
    /// The same for an argument that the read before delivered, though it is none of what was expected: it
    /// counts as one of a wrong type, unless there was a fault before.
    void Refuse(const atr_String& expected);

    /// What a type error calls a value: its type, or the name of a symbolic constant.
    static atr_String FoundText(const omu_Primitive* value);
    /// How many arguments were read since Begin.
    int Cursor() const { return m_Cursor; }
    /// Where the argument of that number (from 1) stands, when it is a sequence itself: "arg2", or below a
    /// nesting text "points[1]".
    cow_String NestingOf(int argument) const;
    /// Where this sequence stands, for messages: "points", "arg2", "points[1]"; may be empty.
    const cow_String& Nesting() const { return m_NestingStr; }
    void SetNesting(const cow_String& nesting) { m_NestingStr = nesting; }

    // The whole tuple, by the rules of the readers above; a wrong element raises
    // omu_GenericTypeErrorException.

    cow_List<int> AsListInt() const { return Converted<cow_List<int>>(); }
    cow_List<bool> AsListBool() const { return Converted<cow_List<bool>>(); }
    cow_List<float> AsListFloat() const { return Converted<cow_List<float>>(); }
    cow_List<double> AsListDouble() const { return Converted<cow_List<double>>(); }
    cow_List<cow_String> AsListString() const { return Converted<cow_List<cow_String>>(); }
    cow_List<atr_String> AsListTranslatedString() const { return Converted<cow_List<atr_String>>(); }
    cow_2DArray<double> As2DArrayDouble() const { return Converted<cow_2DArray<double>>(); }
    cow_2DArray<cow_String> As2DArrayString() const { return Converted<cow_2DArray<cow_String>>(); }
    cow_Map<cow_String, float> AsMapString2Float() const { return Converted<cow_Map<cow_String, float>>(); }

    atr_String TypeString() const override;
    /// "(1, 2.0, 'a')", "(1,)", "()".
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimTuple* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

protected:
    /// Called before the sequence grows to `length` items; raises where it may not.
    virtual void RequireRoom(int length) const;

    /// The items' texts between the brackets; a lone item is followed by a comma where asked for.
    cow_String Joined(char open, char close, bool commaAfterLone) const;
    /// Item by item, also where the classes differ.
    bool HasEqualItems(const omu_PrimTuple& other) const;
    void SetItem(int index, omu_Primitive* owned);
    void RemoveItem(int index);
    void ClearItems() noexcept;
    /// What Slice, Repeat and Concat of one class say when they fail, and where.
    struct Faults
    {
        const char* nullItem;
        const char* tooLong;
        const char* source;
        int line;
    };
    /// The three, into an empty sequence of the caller's class.
    void SliceInto(omu_PrimTuple& slice, int from, int to, const Faults& faults) const;
    void RepeatInto(omu_PrimTuple& repeated, int count, const Faults& faults) const;
    void ConcatInto(omu_PrimTuple& joined, const omu_PrimSequence* other, const Faults& faults) const;

    /// One read further. The read counts as required unless Optional was called.
    void IncrementCursor();
    /// The item at the cursor is not what the reader expected.
    void SetTypeError(const atr_String& expected);
    void SetError(const atr_String& expected, const atr_String& found);
    /// The same for the item read before, unless there was a fault.
    void SetErrorOfPrevious(const atr_String& expected, const atr_String& found);
    void SetTypes(const atr_String& expected, const atr_String& found);
    /// Expected and found type of an argument that was not given at all.
    static const atr_String& Undetermined();
    /// The type fault that is kept.
    omu_ArgTypeErrorException TypeFault(const cow_String& nesting) const;
    /// Everything that a successful End resets.
    void EndReading();

    bool HasItem() const { return m_Cursor < m_Items.Length(); }
    int ReqCount() const { return m_ReqCount; }
    int ArgCount() const { return m_ArgCount; }
    bool IsOptional() const { return m_IsOptional; }
    int ErrorArg() const { return m_ErrorArg; }
    const atr_String& TypeFound() const { return m_TypeFound; }
    const atr_String& TypeExpected() const { return m_TypeExpected; }
    /// Whether the read before counted as required.
    bool WasRequired() const { return m_WasRequired; }

private:
    void PutBoolean(bool value);
    template <class T>
    void PutEach(const T* values, int count);
    template <class T>
    void PutRows(const cow_2DArray<T>& values);
    /// Appends the items first .. last - 1 of another sequence.
    void AppendItems(const omu_PrimTuple& other, int first, int last);
    void RefuseNull(int from, int to, const Faults& faults) const;
    template <class T>
    bool Read(T& out);
    template <class T>
    T Converted() const;

    omu_PrimVector m_Items;
    int m_Cursor = 0;
    int m_ReqCount = 0;
    int m_ArgCount = 0;
    bool m_IsOptional = false;
    int m_ErrorArg = 0;
    atr_String m_TypeFound;
    atr_String m_TypeExpected;
    int m_NumGets = 0;
    cow_String m_NestingStr;
    int m_Depth = 1;
    bool m_WasRequired = false;
};
