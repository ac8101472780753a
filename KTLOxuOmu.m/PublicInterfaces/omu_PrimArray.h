#pragma once

#include <cow_2DArray.h>
#include <cow_List.h>
#include <omu_PrimNumber.h>
#include <omu_PrimSequence.h>

class omu_PrimTuple;

/// A rectangular array of numbers of one type, kind "o": the form in which large numeric arguments travel.
///
/// The elements lie row by row in one copy-on-write list. There are 1 to MAX_RANK dimensions, each at least
/// 1 long; the one array without elements has one dimension of length 0. Equal are arrays of one shape with
/// equal elements, whatever their element types: like numbers, [1, 2] and [1.0, 2.0] are equal.
///
/// A shape that is none, or does not fit the data, raises omu_ValueErrorException; more elements than a list
/// holds raise omu_OverflowErrorException.
class OXU_EXPORT omu_PrimArray : public omu_PrimSequence
{
public:
    enum class ElementTypeEnm { INT, FLOAT, DOUBLE };
    static constexpr int MAX_RANK = 16;

    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 33); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    /// No elements, of type DOUBLE.
    omu_PrimArray();
    /// One dimension.
    explicit omu_PrimArray(const cow_List<int>& data);
    explicit omu_PrimArray(const cow_List<float>& data);
    explicit omu_PrimArray(const cow_List<double>& data);
    /// Two dimensions; without elements the empty array.
    explicit omu_PrimArray(const cow_2DArray<double>& data);
    /// Shape first, then the elements row by row.
    omu_PrimArray(const cow_List<int>& shape, const cow_List<int>& data);
    omu_PrimArray(const cow_List<int>& shape, const cow_List<float>& data);
    omu_PrimArray(const cow_List<int>& shape, const cow_List<double>& data);
    explicit omu_PrimArray(const cls_ReadVisitor& reader);

    /// The same elements in another shape of as many.
    void Reshape(const cow_List<int>& shape);

    ElementTypeEnm ElementType() const { return m_ElementType; }
    int Rank() const { return m_Shape.Length(); }
    const cow_List<int>& Shape() const { return m_Shape; }
    /// Number of elements.
    int Size() const { return m_Ints.Length() + m_Floats.Length() + m_Doubles.Length(); }
    /// The elements row by row; empty for another element type.
    const cow_List<int>& Ints() const { return m_Ints; }
    const cow_List<float>& Floats() const { return m_Floats; }
    const cow_List<double>& Doubles() const { return m_Doubles; }
    /// One element, by an index for each dimension. Another number of indices raises omu_ValueErrorException,
    /// an index outside its dimension the out-of-range error.
    omu_PrimNumber At(const cow_List<int>& indices) const;
    /// One element by its place in the row-by-row order.
    omu_PrimNumber Element(int place) const;
    /// Nested tuples, one level for each dimension; owned by the caller.
    omu_PrimTuple* AsTuple() const;

    /// Length of the outermost dimension.
    int Length() const override { return m_Shape.Get(0); }
    /// A number, or from more than one dimension an array of one dimension less.
    omu_Primitive* Index(int index) const override;
    omu_PrimArray* Slice(int from, int to) const override;
    omu_PrimArray* Repeat(int count) const override;
    /// The other is an array whose inner dimensions are these, or one without elements; anything else raises
    /// omu_GenericTypeErrorException. Of different element types the result has DOUBLE.
    omu_PrimArray* Concat(const omu_PrimSequence* other) const override;

    atr_String TypeString() const override;
    /// As nested tuples: "((1, 2), (3, 4))", "(1.0, 2.0)", "(1,)".
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimArray* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

private:
    /// Calls f with the list of the element type.
    template <class F>
    decltype(auto) WithData(F f) const
    {
        switch (m_ElementType)
        {
        case ElementTypeEnm::INT:
            return f(m_Ints);
        case ElementTypeEnm::FLOAT:
            return f(m_Floats);
        default:
            return f(m_Doubles);
        }
    }
    /// The shape with another outermost length; without elements that of the empty array.
    cow_List<int> ShapeOf(int length) const;
    /// Number of elements of one item of the outermost dimension.
    int Stride() const;
    cow_List<double> AsDoubles() const;

    ElementTypeEnm m_ElementType = ElementTypeEnm::DOUBLE;
    cow_List<int> m_Shape;
    cow_List<int> m_Ints;
    cow_List<float> m_Floats;
    cow_List<double> m_Doubles;
};
