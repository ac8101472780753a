#include <algorithm>
#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <mdl_JaggedArray.h>
#include <nex_Raise.h>
#include <nex_RaiseWith.h>
#include <omu_ValueErrorException.h>
#include <oxu_FormatMessage.h>

namespace
{
constexpr const char* SOURCE = "KTLOxuMdl.m/src/mdl_JaggedArray";
constexpr unsigned LAYOUT_RELEASE = 1334;
constexpr const char* WRONG_OFFSETS = "The stored offsets of a jagged array do not fit its values.";

void Free(void* body)
{
    delete static_cast<mdl_JaggedArray*>(body);
}
}

constexpr auto mdl_JaggedArray::Fields()
{
    return cls_Fields(cls_Field{"offsets", &mdl_JaggedArray::offsets_},
                      cls_Field{"values", &mdl_JaggedArray::values_});
}

void mdl_JaggedArray::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("mdl_JaggedArray", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<mdl_JaggedArray>::Instance(), cls_UniversalRoot);
    Fields().Declare(meta);
    meta.AddDtor(&Free);
}

mdl_JaggedArray::mdl_JaggedArray(const cls_ReadVisitor& reader) : uid_(reader.Uid())
{
    Fields().Read(reader, *this);
    if (offsets_.IsEmpty() || offsets_.Get(0) != 0 || !std::is_sorted(offsets_.begin(), offsets_.end()) ||
        offsets_.Get(Rows()) != values_.Length())
        nex_Raise(omu_ValueErrorException(oxu_FormatMessage(WRONG_OFFSETS)), SOURCE, __LINE__);
}

void mdl_JaggedArray::AddRow(const cow_List<int>& items)
{
    // An empty row first: then nothing that throws leaves half a row.
    offsets_.Append(values_.Length());
    try
    {
        values_.AppendList(items);
    }
    catch (...)
    {
        offsets_.Remove(Rows());
        throw;
    }
    offsets_[Rows()] = values_.Length();
}

int mdl_JaggedArray::Length(int row) const
{
    if (row < 0 || row >= Rows())
        nex_RaiseRange(row, Rows(), SOURCE, __LINE__);
    return offsets_.Get(row + 1) - offsets_.Get(row);
}

int mdl_JaggedArray::Value(int row, int item) const
{
    const int length = Length(row);
    if (item < 0 || item >= length)
        nex_RaiseRange(item, length, SOURCE, __LINE__);
    return values_.Get(offsets_.Get(row) + item);
}

void mdl_JaggedArray::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
        return;
    Fields().Write(writer, *this);
}
