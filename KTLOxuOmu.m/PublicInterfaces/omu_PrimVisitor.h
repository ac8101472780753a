#pragma once

#include <oxu_Export.h>

class omu_InterfaceObj;
class omu_PrimArray;
class omu_PrimBoolean;
class omu_PrimComplex;
class omu_PrimDictionaryBase;
class omu_PrimEnumBase;
class omu_PrimException;
class omu_PrimExpr;
class omu_PrimList;
class omu_PrimNone;
class omu_PrimNumber;
class omu_PrimPath;
class omu_PrimString;
class omu_PrimTranslatedString;
class omu_PrimTuple;
class omu_PrimType;
class omu_PrimWrapper;
class omu_Primitive;
class omu_PyObjectHandle;

/// What omu_Primitive::Accept calls: one operation for each concrete class.
///
/// Each default calls VisitPrimitive, which does nothing, so a visitor overrides what it cares for and a new
/// class of value breaks none. New operations go last.
class OXU_EXPORT omu_PrimVisitor
{
public:
    virtual ~omu_PrimVisitor();

    /// What no operation below is overridden for.
    virtual void VisitPrimitive(omu_Primitive& value);
    virtual void VisitNumber(omu_PrimNumber& value);
    virtual void VisitString(omu_PrimString& value);
    virtual void VisitTranslatedString(omu_PrimTranslatedString& value);
    virtual void VisitBoolean(omu_PrimBoolean& value);
    virtual void VisitNone(omu_PrimNone& value);
    virtual void VisitComplex(omu_PrimComplex& value);
    virtual void VisitExpr(omu_PrimExpr& value);
    virtual void VisitType(omu_PrimType& value);
    virtual void VisitPath(omu_PrimPath& value);
    virtual void VisitWrapper(omu_PrimWrapper& value);
    virtual void VisitException(omu_PrimException& value);
    /// Every symbolic constant, whatever its enumeration; the boolean constants too.
    virtual void VisitEnum(omu_PrimEnumBase& value);
    virtual void VisitTuple(omu_PrimTuple& value);
    virtual void VisitList(omu_PrimList& value);
    virtual void VisitArray(omu_PrimArray& value);
    /// Of text keys or integer keys.
    virtual void VisitDictionary(omu_PrimDictionaryBase& value);
    virtual void VisitInterfaceObject(omu_InterfaceObj& value);
    /// Every value that stands for an object, a list or a dictionary of the scripting language itself;
    /// `object` is what it holds.
    virtual void VisitScriptObject(omu_Primitive& value, const omu_PyObjectHandle& object);
};
