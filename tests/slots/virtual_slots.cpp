// Read by the compiler for its dump of classes, never linked. An abstract class shows empty slots in place of
// names, so each has a class here that fills them; overloads are told apart by filling one of them alone.

#include <g3d_ColorErrorException.h>
#include <gsl_ModOctreeNode.h>
#include <gsl_TriOctreeNode.h>
#include <gsl_TriTriDirDist.h>
#include <nex_PrimException.h>
#include <omu_AccessErrorException.h>
#include <omu_ArgNumberErrorException.h>
#include <omu_ArgTypeErrorException.h>
#include <omu_Arguments.h>
#include <omu_AttributeErrorException.h>
#include <omu_FontErrorException.h>
#include <omu_GenericTypeErrorException.h>
#include <omu_GuiAccessErrorException.h>
#include <omu_IdSeqIntObj.h>
#include <omu_IndexErrorException.h>
#include <omu_InterfaceObj.h>
#include <omu_KeyErrorException.h>
#include <omu_KeywordErrorException.h>
#include <omu_KeywordTypeErrorException.h>
#include <omu_ListPyObjectWrapper.h>
#include <omu_NameErrorException.h>
#include <omu_OrvNameErrorException.h>
#include <omu_OverflowErrorException.h>
#include <omu_PrimArray.h>
#include <omu_PrimEnumBase.h>
#include <omu_PrimNumber.h>
#include <omu_PrimString.h>
#include <omu_PyOrvexException.h>
#include <omu_RangeErrorException.h>
#include <omu_ValueErrorException.h>
#include <omu_ZeroDivisionErrorException.h>
#include <wip_ProgressObj.h>
#include <wip_WIP.h>
#include <wip_WipReporter.h>

class SlotsOfCommandException : public nex_CommandException
{
public:
    [[noreturn]] void Propagate() const override;
    SlotsOfCommandException* Copy() const override;
    cow_String JournalMessage() const override;
    const char* PythonType() const override;
};

class SlotsOfTypeError : public omu_TypeErrorException
{
public:
    [[noreturn]] void Propagate() const override;
    SlotsOfTypeError* Copy() const override;
    cow_String JournalMessage() const override;
};

class SlotsOfPrimitive : public omu_Primitive
{
public:
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    SlotsOfPrimitive* Copy() const override;
};

class SlotsOfInterfaceObj : public omu_InterfaceObj
{
public:
    SlotsOfInterfaceObj* Copy() const override;
};

class SlotsOfTriTriDirDist : public gsl_TriTriDirDist
{
public:
    void GetFixedTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) override;
    void GetMovableTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) override;
};

class SlotsOfProgressObj : public wip_ProgressObj
{
public:
    [[nodiscard]] bool Push(float f, const atr_String& message) override;
};

class SlotsOfWipReporter : public wip_WipReporter
{
public:
    void Display(const atr_String& message) override;
    void Print(const atr_String& message) override;
    void Landmark(const atr_String& message) override;
    void Milestone(const atr_String& message) override;
    void Milestone(const atr_String& message, int percent) override;
    void Milestone(const atr_String& message, const atr_String& object, int done, int total) override;
    void Verbose(const atr_String& message) override;
    void Warning(const atr_String& message) override;
    void Error(const atr_String& message, wip_errorLevelEnm level) override;
    bool Interrupted() override;
    void InterruptedThrow() override;
    void CommandDone() override;
};
