#include <KTLBasException.h>
#include <atr_SubstituteFormat.h>
#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 800;
}

constexpr auto KTLBasException::Fields()
{
    return cls_Fields(
        cls_Field{"m_Message", &KTLBasException::message_}, cls_Field{"m_Code", &KTLBasException::code_},
        cls_Field{"m_Source", &KTLBasException::source_}, cls_Field{"m_Line", &KTLBasException::line_},
        cls_Field{"m_Traceback", &KTLBasException::traceback_});
}

void KTLBasException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    Fields().Declare(registrar.Create("KTLBasException", TypeId(), LAYOUT_RELEASE,
                                      cls_TypeAdapter<KTLBasException>::Instance(), cls_UniversalRoot));
}

KTLBasException::KTLBasException() = default;
KTLBasException::KTLBasException(const atr_String& message, int code) : message_(message), code_(code) {}
KTLBasException::KTLBasException(const cls_ReadVisitor& reader) : uid_(reader.Uid())
{
    Fields().Read(reader, *this);
}
KTLBasException::KTLBasException(const KTLBasException&) = default;
KTLBasException& KTLBasException::operator=(const KTLBasException&) = default;
KTLBasException::~KTLBasException() = default;

const char* KTLBasException::what() const noexcept
{
    try
    {
        return texts_.Keep(UserReport());
    }
    catch (...)
    {
        return "the message of an exception could not be composed";
    }
}

cow_String KTLBasException::DeveloperReport() const
{
    cow_String report = AsString();
    if (!source_.IsEmpty())
    {
        // Not for translation: developers search for it.
        atr_String where(" (%s, line %d)");
        atr_SubstituteFormat(where, 1, source_);
        atr_SubstituteFormat(where, 2, line_);
        report.Append(where.AsString());
    }
    const cow_String traceback = GetTraceback();
    if (!traceback.IsEmpty())
    {
        report += "\n";
        report += traceback;
    }
    return report;
}

cow_String KTLBasException::UserReport() const
{
    return message_.AsString();
}

cow_String KTLBasException::AsString() const
{
    return Named("KTLBasException");
}

void KTLBasException::Propagate() const
{
    throw *this;
}

int KTLBasException::GetCode() const
{
    return code_;
}

KTLBasException* KTLBasException::Copy() const
{
    return new KTLBasException(*this);
}

unsigned KTLBasException::DynTypeId() const
{
    return TypeId();
}

void KTLBasException::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
        return;
    Fields().Write(writer, *this);
}

void KTLBasException::SetTraceback(cow_String traceback)
{
    traceback_ = std::move(traceback);
}

cow_String KTLBasException::GetTraceback() const
{
    return traceback_;
}

void KTLBasException::SetSource(const char* source, int line)
{
    source_ = source;
    line_ = line;
}

cow_String KTLBasException::Named(const char* name) const
{
    return cow_String(name) + ": " + UserReport();
}
