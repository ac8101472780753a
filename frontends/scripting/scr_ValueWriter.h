#pragma once

#include <memory>
#include <omu_PrimVisitor.h>
#include <pybind11/pybind11.h>

class omu_PrimTuple;

/// One value on its way from the library to Python.
class scr_ValueWriter : public omu_PrimVisitor
{
public:
    /// Null is None.
    pybind11::object Write(const omu_Primitive* value);
    /// An interface object goes over without being copied.
    pybind11::object Write(std::unique_ptr<omu_Primitive> value);

    // A kind that Python has nothing for arrives as orvex.Value.
    void VisitPrimitive(omu_Primitive& value) override;
    void VisitNumber(omu_PrimNumber& value) override;
    void VisitString(omu_PrimString& value) override;
    void VisitTranslatedString(omu_PrimTranslatedString& value) override;
    void VisitBoolean(omu_PrimBoolean& value) override;
    void VisitNone(omu_PrimNone& value) override;
    void VisitComplex(omu_PrimComplex& value) override;
    void VisitType(omu_PrimType& value) override;
    void VisitPath(omu_PrimPath& value) override;
    void VisitException(omu_PrimException& value) override;
    void VisitEnum(omu_PrimEnumBase& value) override;
    void VisitTuple(omu_PrimTuple& value) override;
    void VisitList(omu_PrimList& value) override;
    void VisitArray(omu_PrimArray& value) override;
    void VisitDictionary(omu_PrimDictionaryBase& value) override;
    void VisitInterfaceObject(omu_InterfaceObj& value) override;
    void VisitScriptObject(omu_Primitive& value, const omu_PyObjectHandle& object) override;

private:
    template <class Sequence>
    Sequence Items(const omu_PrimTuple& items);
    template <class Dictionary>
    pybind11::dict Entries(const Dictionary& entries);

    pybind11::object result_;
};
