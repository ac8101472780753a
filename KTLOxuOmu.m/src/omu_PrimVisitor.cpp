#include <omu_InterfaceObj.h>
#include <omu_PrimArray.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimComplex.h>
#include <omu_PrimDictionaryBase.h>
#include <omu_PrimEnumBase.h>
#include <omu_PrimException.h>
#include <omu_PrimExpr.h>
#include <omu_PrimList.h>
#include <omu_PrimNone.h>
#include <omu_PrimNumber.h>
#include <omu_PrimPath.h>
#include <omu_PrimString.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimType.h>
#include <omu_PrimVisitor.h>
#include <omu_PrimWrapper.h>

omu_PrimVisitor::~omu_PrimVisitor() = default;

void omu_PrimVisitor::VisitPrimitive(omu_Primitive&) {}

void omu_PrimVisitor::VisitNumber(omu_PrimNumber& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitString(omu_PrimString& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitTranslatedString(omu_PrimTranslatedString& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitBoolean(omu_PrimBoolean& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitNone(omu_PrimNone& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitComplex(omu_PrimComplex& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitExpr(omu_PrimExpr& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitType(omu_PrimType& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitPath(omu_PrimPath& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitWrapper(omu_PrimWrapper& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitException(omu_PrimException& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitEnum(omu_PrimEnumBase& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitTuple(omu_PrimTuple& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitList(omu_PrimList& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitArray(omu_PrimArray& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitDictionary(omu_PrimDictionaryBase& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitInterfaceObject(omu_InterfaceObj& value)
{
    VisitPrimitive(value);
}

void omu_PrimVisitor::VisitScriptObject(omu_Primitive& value, const omu_PyObjectHandle&)
{
    VisitPrimitive(value);
}
