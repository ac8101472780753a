#pragma once

#include <nex_CommandException.h>
#include <oxu_Export.h>

/// Root of the errors about the number, the keywords and the types of a command's arguments; the scripting
/// language sees "TypeError" for all of them. Abstract, without fields: every one raised is one of its five
/// subclasses.
class OXU_EXPORT omu_TypeErrorException : public nex_CommandException
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 1); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    omu_TypeErrorException() = default;
    explicit omu_TypeErrorException(const cls_ReadVisitor& reader);

    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override;
    const char* PythonType() const override { return "TypeError"; }
};
