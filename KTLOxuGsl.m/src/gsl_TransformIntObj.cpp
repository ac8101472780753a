#include <gsl_TransformIntObj.h>
#include <omu_PrimTuple.h>

gsl_TransformIntObj::gsl_TransformIntObj(const gsl_Matrix& matrix)
    : gsl_TransformIntObj(omu_Shortcut(), matrix)
{}

gsl_TransformIntObj::gsl_TransformIntObj(const omu_Shortcut& shortcut, const gsl_Matrix& matrix)
    : omu_InterfaceObj(shortcut), matrix_(matrix)
{
    SetTypeDesc(Type());
}

gsl_TransformIntObj* gsl_TransformIntObj::Copy() const
{
    return new gsl_TransformIntObj(*this);
}

const omu_InterfaceObj::TypeDesc& gsl_TransformIntObj::Type()
{
    static const memberTable MEMBERS[] = {{"matrix", Reader<&gsl_TransformIntObj::Rows>}, {}};
    static const TypeDesc type = DescribeType("Transform", nullptr, MEMBERS, nullptr, nullptr);
    return type;
}

omu_Primitive* gsl_TransformIntObj::Rows() const
{
    return new omu_PrimTuple(matrix_.To2DArray());
}
