#pragma once

#include <cow_CountedHld.h>
#include <omu_Primitive.h>

class nex_CommandException;

/// A command's exception as a value, kind "E": what was thrown, and the traceback that came with it. Copies
/// share the exception, which never changes.
class OXU_EXPORT omu_PrimException : public omu_Primitive
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 47); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    /// Holds no exception.
    omu_PrimException();
    /// Keeps a copy, and its traceback.
    explicit omu_PrimException(const nex_CommandException& exception);
    omu_PrimException(const nex_CommandException& exception, const cow_String& traceback);
    explicit omu_PrimException(const cls_ReadVisitor& reader);
    omu_PrimException(const omu_PrimException&);
    omu_PrimException& operator=(const omu_PrimException&);
    ~omu_PrimException() override;

    /// Null when this value holds none; owned by this value.
    const nex_CommandException* Exception() const { return m_Exception.Get(); }
    const cow_String& Traceback() const { return m_Traceback; }

    atr_String TypeString() const override;
    /// "omu_PrimException object".
    cow_String AsString(int nesting) const override;
    /// Exceptions of one class with the same message, and the same traceback.
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimException* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

private:
    static constexpr auto Fields();

    cow_CountedHld<const nex_CommandException> m_Exception;
    cow_String m_Traceback;
};
