#include <algorithm>
#include <cls_FieldHandle.h>
#include <cls_ReadVisitor.h>
#include <cls_WriteVisitor.h>
#include <gsl_Matrix.h>
#include <nex_Raise.h>
#include <ostream>
#include <string>
#include <utf_Quaternion.h>

namespace
{
constexpr const char* SOURCE = "KTLOxuUtf.m/src/utf_Quaternion";

// Stored order: append only. A retired field keeps its index.
enum Field { TYPE, COMPONENTS };
constexpr cls_FieldHandle FIELDS[] = {{TYPE, "type"}, {COMPONENTS, "components"}};

gsl_Matrix Transform(const gsl_Vector& x, const gsl_Vector& y, const gsl_Vector& z)
{
    gsl_Matrix transform;
    transform.SetRotationVectors(x, y, z);
    return transform;
}

template <class T>
void PrintLine(aio_ostream& stream, const std::string& blanks, const T* values, int count)
{
    stream << blanks;
    for (int i = 0; i < count; ++i)
    {
        stream << (i == 0 ? "" : " ") << values[i];
    }
    stream << '\n';
}
}

template <class T>
int utf_Quaternion<T>::numComponents(res_DataTypeEnm type)
{
    switch (type)
    {
    case res_DataTypeEnm::QUATERNION_2D:
        return utf_Quat2dBase<T>::numComponents();
    case res_DataTypeEnm::QUATERNION_3D:
        return utf_Quat3dBase<T>::numComponents();
    default:
        nex_RaisePrim("Unknown quaternion type", SOURCE, __LINE__);
    }
}

template <class T>
utf_Quaternion<T>::utf_Quaternion(res_DataTypeEnm type, T const* components) : type_(type)
{
    std::copy_n(components, numComponents(type), c_);
}

template <class T>
utf_Quaternion<T>::utf_Quaternion(res_DataTypeEnm type, cow_2DArray<T> const& cosines) : type_(type)
{
    Set(cosines);
}

template <class T>
utf_Quaternion<T>::utf_Quaternion(res_DataTypeEnm type, gsl_Matrix const& transform) : type_(type)
{
    Set(transform);
}

template <class T>
utf_Quaternion<T>::utf_Quaternion(gsl_Vector const& x, gsl_Vector const& y, gsl_Vector const& z)
    : utf_Quaternion(res_DataTypeEnm::QUATERNION_3D, Transform(x, y, z))
{}

template <class T>
utf_Quaternion<T>::utf_Quaternion(gsl_Vector const& x, gsl_Vector const& y)
    : utf_Quaternion(res_DataTypeEnm::QUATERNION_2D, Transform(x, y, gsl_Vector(0.0, 0.0, 1.0)))
{}

template <class T>
utf_Quaternion<T>::utf_Quaternion(cls_ReadVisitor const& reader) : type_(res_DataTypeEnm::QUATERNION_3D)
{
    int type = static_cast<int>(type_);
    cow_List<T> components;
    reader.ReadInt(FIELDS[TYPE], type);
    reader.ReadList(FIELDS[COMPONENTS], components);
    type_ = static_cast<res_DataTypeEnm>(type);
    if (components.Length() != numComponents(type_))
    {
        nex_RaisePrim("Wrong number of quaternion components", SOURCE, __LINE__);
    }
    std::copy_n(components.Data(), components.Length(), c_);
}

template <class T>
template <class Source>
void utf_Quaternion<T>::Set(Source const& source)
{
    if (numComponents(type_) == utf_Quat2dBase<T>::numComponents())
    {
        utf_Quat2dBase<T>(c_).set(source);
    }
    else
    {
        utf_Quat3dBase<T>(c_).set(source);
    }
}

template <class T>
cow_List<T> utf_Quaternion<T>::toVector() const
{
    T values[3];
    View([&values](auto view) { view.toVector(values); });
    cow_List<T> vector;
    for (const T value : values)
    {
        vector.Append(value);
    }
    return vector;
}

template <class T>
cow_2DArray<T> utf_Quaternion<T>::Corner(int order) const
{
    T rows[3][3];
    cosines(rows);
    cow_2DArray<T> corner(order, order);
    for (int i = 0; i < order; ++i)
    {
        std::copy_n(rows[i], order, corner.WriteData() + i * order);
    }
    return corner;
}

template <class T>
void utf_Quaternion<T>::Print(aio_ostream& stream, int indent) const
{
    const std::string blanks(static_cast<std::size_t>(std::max(indent, 0)), ' ');
    T rows[3][3];
    cosines(rows);
    stream << blanks << "Qauternion:\n";
    PrintLine(stream, blanks, c_, numComponents(type_));
    stream << blanks << "As Vector:\n";
    PrintLine(stream, blanks, toVector().Data(), 3);
    stream << blanks << "As transformation matrix:\n";
    for (const auto& row : rows)
    {
        PrintLine(stream, blanks, row, 3);
    }
}

template <class T>
void utf_Quaternion<T>::DBWrite(cls_WriteVisitor const& writer) const
{
    writer.WriteInt(FIELDS[TYPE], static_cast<int>(type_));
    writer.WriteList(FIELDS[COMPONENTS], c_, numComponents(type_));
}

template <class T>
void utf_Quaternion<T>::RaiseOtherType()
{
    nex_RaisePrim("q.type() == QuaternionType()", SOURCE, __LINE__);
}

template class utf_Quaternion<double>;
template class utf_Quaternion<float>;
