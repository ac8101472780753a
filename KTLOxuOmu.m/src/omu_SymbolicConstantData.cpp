#include <cstdio>
#include <omu_EnvSwitches.h>
#include <omu_ProcessId.h>
#include <omu_SymbolicConstantData.h>
#include <omu_SymbolicConstantTable.h>

omu_SymbolicConstantData::omu_SymbolicConstantData(const cow_String& name, unsigned int id,
                                                   bool createInScript)
    : text_(name), id_(id)
{
    const char* const text = text_.AsCharPtr();
    omu_SymbolicConstantTable& table = omi_Singleton<omu_SymbolicConstantTable>::Instance();
    if (omu_EnvSwitches::TraceSymbolicConstants())
        std::fprintf(stderr, "%s:omu_SymbolicConstantData(%s, %u, %s)\n", omu_ProcessIdText().c_str(), text,
                     id, createInScript ? "true" : "false");
    if (!omu_SymbolicConstantTable::IsValidSymConstName(text_))
        std::fprintf(stderr, "omu_SymbolicConstantData(%s, %u) Name is invalid\n", text, id);
    if (id_ != 0 && !table.IsMember(text_))
        std::fprintf(stderr, "omu_SymbolicConstantData(%s, %u) _id is not 0\n", text, id);

    id_ = table.AddSCD(*this);
    // Also when 0 was asked for, on purpose: only "_UNSPECIFIED" has it.
    if (id_ != id)
        std::fprintf(stderr, "omu_SymbolicConstantData(%s, %u) id (%u) != idSCD (%u)\n", text, id, id, id_);
    if (createInScript)
        table.CreatePythonSymbolicConstant(text_, static_cast<int>(id_));
    if (omu_EnvSwitches::TraceSymbolicConstants())
        std::fprintf(stderr, "%s:omu_SymbolicConstantData(%s, %u) -> id %u\n", omu_ProcessIdText().c_str(),
                     text, id, id_);
}

omu_SymbolicConstantData::omu_SymbolicConstantData(unsigned int id) : id_(id)
{
    const omu_SymbolicConstantTable& table = omi_Singleton<omu_SymbolicConstantTable>::Instance();
    if (id < table.Size())
        text_ = table.GetString(id);
    else
        std::fprintf(stderr, "omu_SymbolicConstantData(%u) id > Size (%u)\n", id, table.Size());
}

const cow_String& omu_SymbolicConstantData::getText() const
{
    if (text_.IsEmpty())
        std::fputs("omu_SymbolicConstantData::getText() text is EMPTY\n", stderr);
    return text_;
}
