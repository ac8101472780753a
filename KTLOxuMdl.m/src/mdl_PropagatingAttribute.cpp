#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <mdl_PropagatingAttribute.h>
#include <nex_PrimException.h>
#include <nex_RaiseWith.h>
#include <omu_PrimEnumCodec.h>
#include <omu_ValueErrorException.h>
#include <oxu_FormatMessage.h>

namespace
{
constexpr const char* SOURCE = "ProtectedInterfaces/mdl_PropagatingAttribute";
constexpr unsigned LAYOUT_RELEASE = 203;
constexpr const char* INVALID_STATUS = "Invalid propagation status for '%s' attribute.";
constexpr const char* WRONG_LENGTHS = "The stored lengths of an array of lists do not fit its values.";

template <class T>
void Free(void* body)
{
    delete static_cast<mdl_PropAttr<T>*>(body);
}

/// An array of lists as it is stored: the lists' lengths, and what they hold in one list.
struct FlatLists
{
    cow_List<int> lengths;
    cow_List<float> value;
    mdl_PropAttributeStateEnm state = mdl_PropAttributeStateEnm::UNSET;
};
constexpr cls_Fields FLAT_FIELDS(cls_Field{"lengths", &FlatLists::lengths},
                                 cls_Field{"value", &FlatLists::value},
                                 cls_Field{"state", &FlatLists::state});

// The lists; raises where the lengths are not theirs.
cls_xp1DArrayListFloat Unfolded(const FlatLists& flat)
{
    cls_xp1DArrayListFloat lists;
    int from = 0;
    for (const int length : flat.lengths)
    {
        if (length < 0 || length > flat.value.Length() - from)
            nex_Raise(omu_ValueErrorException(oxu_FormatMessage(WRONG_LENGTHS)), SOURCE, __LINE__);
        lists.Append(cow_List<float>::FromArray(flat.value.Data() + from, length));
        from += length;
    }
    if (from != flat.value.Length())
        nex_Raise(omu_ValueErrorException(oxu_FormatMessage(WRONG_LENGTHS)), SOURCE, __LINE__);
    return lists;
}
}

// Named lists are stored as the plain ones, the array under the code of its series.
template <>
struct cls_FieldCodec<cls_xpListInt> : cls_FieldCodec<cow_List<int>>
{};
template <>
struct cls_FieldCodec<cls_xpListString> : cls_FieldCodec<cow_List<cow_String>>
{};
template <>
struct cls_FieldCodec<cls_xp1DArrayInt> : cls_FieldCodec<cow_List<int>>
{
    static constexpr cls_CollectionType COLLECTION = cls_CollectionType::ARRAY_INT;
};

template <class T>
constexpr auto mdl_PropAttr<T>::Fields()
{
    if constexpr (std::is_same_v<T, cls_xp1DArrayListFloat>)
        return FLAT_FIELDS;
    else
        return cls_Fields(cls_Field{"value", &mdl_PropAttr::value_},
                          cls_Field{"state", &mdl_PropAttr::state_});
}

template <class T>
void mdl_PropAttr<T>::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create(mdl_PropAttrTraits<T>::NAME, TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<mdl_PropAttr>::Instance(), cls_UniversalRoot);
    Fields().Declare(meta);
    meta.AddDtor(&Free<T>);
}

template <class T>
mdl_PropAttr<T>::mdl_PropAttr(const cls_ReadVisitor& reader) : uid_(reader.Uid())
{
    if constexpr (std::is_same_v<T, cls_xp1DArrayListFloat>)
    {
        FlatLists flat;
        Fields().Read(reader, flat);
        value_ = Unfolded(flat);
        state_ = flat.state;
    }
    else
        Fields().Read(reader, *this);
}

template <class T>
void mdl_PropAttr<T>::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), uid_))
        return;
    if constexpr (std::is_same_v<T, cls_xp1DArrayListFloat>)
    {
        FlatLists flat;
        flat.state = state_;
        for (const cow_List<float>& list : value_)
        {
            flat.lengths.Append(list.Length());
            flat.value.AppendList(list);
        }
        Fields().Write(writer, flat);
    }
    else
        Fields().Write(writer, *this);
}

template <class T>
void mdl_PropAttr<T>::SetStatus(const char* attributeName, const omu_PrimEnum<StateEnm, 1>& status,
                                bool restricted)
{
    const StateEnm state = status;
    if (state == StateEnm::UNCHANGED)
        return;
    if (state != StateEnm::SET && state != (restricted ? StateEnm::UNSET : StateEnm::FREED))
        nex_Raise(nex_PrimException(oxu_FormatMessage(INVALID_STATUS, attributeName)), SOURCE, __LINE__);
    state_ = state;
    Zero();
}

template class OXU_EXPORT mdl_PropAttr<int>;
template class OXU_EXPORT mdl_PropAttr<bool>;
template class OXU_EXPORT mdl_PropAttr<double>;
template class OXU_EXPORT mdl_PropAttr<cow_String>;
template class OXU_EXPORT mdl_PropAttr<cls_xpListInt>;
template class OXU_EXPORT mdl_PropAttr<cls_xpListString>;
template class OXU_EXPORT mdl_PropAttr<cls_xp1DArrayInt>;
template class OXU_EXPORT mdl_PropAttr<cls_xp1DArrayListFloat>;
