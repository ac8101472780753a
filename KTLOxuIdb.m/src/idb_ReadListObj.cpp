#include <cls_CopySink.h>
#include <cls_MetadataRegistrar.h>
#include <cow_List.h>
#include <idb_ElementTraits.h>
#include <idb_MementoRead.h>
#include <idb_ReadListObj.h>

#include <algorithm>
#include <cstdio>

namespace
{
constexpr const char* SOURCE = "KTLOxuIdb.m/src/idb_ReadListObj";
constexpr const char* NO_DTOR = "Warning: objectCOW dtor not defined in ddbAPI metadata for: %s\n";
}

idb_ReadListObj::idb_ReadListObj(idb_MementoRead& memento, bio_Ifilter& in) : memento_(memento)
{
    int count = 0;
    in.Read(count);
    count = idb_CheckedCount(in, count, sizeof(std::uint32_t));
    numbers_.resize(static_cast<std::size_t>(count));
    in.ReadArray(std::span<std::uint32_t>(numbers_));
}

idb_ReadListObj::~idb_ReadListObj()
{
    Release();
}

void idb_ReadListObj::ReadObjCow(cls_ObjectSink& sink)
{
    const std::uint32_t number = Number();
    Release();
    memento_.ReadObjPtr(number, sink);
    const unsigned typeId = memento_.TypeIdOf(number);
    if (std::find(reported_.begin(), reported_.end(), typeId) == reported_.end() && memento_.IsShared(number))
    {
        reported_.push_back(typeId);
        heldTypeId_ = typeId;
    }
}

std::uint32_t idb_ReadListObj::Number() const
{
    if (cursor_ < 0 || cursor_ >= Size())
        nex_RaiseRange(cursor_, Size(), SOURCE, __LINE__);
    return numbers_[static_cast<std::size_t>(cursor_)];
}

void idb_ReadListObj::Release() noexcept
{
    const unsigned typeId = std::exchange(heldTypeId_, 0);
    if (typeId == 0)
        return;
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    if (registrar.FindDtor(typeId) == nullptr)
        std::fprintf(stderr, NO_DTOR, registrar.NameOf(typeId).AsCharPtr());
}
