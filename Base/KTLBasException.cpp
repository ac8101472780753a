#include <KTLBasException.h>
#include <atr_SubstituteFormat.h>
#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>

namespace
{
// Stored order: append only. A retired field keeps its index.
enum Field { MESSAGE, CODE, SOURCE, LINE, TRACEBACK };
constexpr cls_FieldHandle FIELDS[] = {{MESSAGE, "m_Message"},
                                      {CODE, "m_Code"},
                                      {SOURCE, "m_Source"},
                                      {LINE, "m_Line"},
                                      {TRACEBACK, "m_Traceback"}};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void KTLBasException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("KTLBasException", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<KTLBasException>::Instance(), cls_UniversalRoot);
    const auto add = [&meta](Field field, cls_AttributeType type) {
        meta.AddAttribute(FIELDS[field], type, cls_UniversalRoot, cls_CollectionType::SINGLE);
    };
    add(MESSAGE, cls_AttributeType::MESSAGE);
    add(CODE, cls_AttributeType::INT);
    add(SOURCE, cls_AttributeType::STRING);
    add(LINE, cls_AttributeType::INT);
    add(TRACEBACK, cls_AttributeType::STRING);
}

KTLBasException::KTLBasException() = default;
KTLBasException::KTLBasException(const atr_String& message, int code) : message_(message), code_(code) {}
KTLBasException::KTLBasException(const cls_ReadVisitor& reader) : uid_(reader.Uid())
{
    reader.ReadMessage(FIELDS[MESSAGE], message_);
    reader.ReadInt(FIELDS[CODE], code_);
    reader.ReadString(FIELDS[SOURCE], source_);
    reader.ReadInt(FIELDS[LINE], line_);
    reader.ReadString(FIELDS[TRACEBACK], traceback_);
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
    writer.WriteMessage(FIELDS[MESSAGE], message_);
    writer.WriteInt(FIELDS[CODE], code_);
    writer.WriteString(FIELDS[SOURCE], source_);
    writer.WriteInt(FIELDS[LINE], line_);
    writer.WriteString(FIELDS[TRACEBACK], traceback_);
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
