// Read by the compiler for its dump of classes, never linked. An abstract class shows empty slots in place of
// names, so each has a class here that fills them; overloads are told apart by filling one of them alone.

#include <annC_AnnotationClient.h>
#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <annC_ViewportAnchor.h>
#include <gsl_ModOctreeNode.h>
#include <gsl_TriOctreeNode.h>
#include <gsl_TriTriDirDist.h>
#include <nex_PrimException.h>
#include <omu_IdSeqIntObj.h>
#include <omu_InterfaceObj.h>
#include <omu_KeyErrorException.h>
#include <omu_KeywordErrorException.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimEnumBase.h>
#include <omu_PrimString.h>
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

class SlotsOfAnchor : public annC_Anchor
{
public:
    SlotsOfAnchor* Copy() const override;
};

class SlotsOfAnnotation : public annC_Annotation
{
public:
    SlotsOfAnnotation* Copy() const override;
    void Translate(double dx, double dy) override;
};
