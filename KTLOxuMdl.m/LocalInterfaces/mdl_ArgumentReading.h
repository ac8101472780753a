#pragma once

#include <mdl_PropagatingAttribute.h>
#include <omu_PrimNone.h>
#include <omu_PrimTuple.h>
#include <type_traits>

/// The rules of mdl_PropAttributeGet, for arguments with and without a keyword.
class mdl_ArgumentReading
{
public:
    mdl_ArgumentReading() = delete;

    template <class Source, class T, class... Keyword>
    static bool Read(Source& source, mdl_PropAttr<T>& attribute, const char* name, bool restricted,
                     bool noneAllowed, const Keyword&... keyword)
    {
        mdl_PropAttr<T> changed(attribute);
        T value{};
        omu_PrimEnum<mdl_PropAttributeStateEnm, 1> status;
        omu_PrimNone none;
        if (Value(source, value, keyword...))
            changed = value;
        else if (source.Alternative() && source.Get(status, keyword...))
            changed.SetStatus(name, status, restricted);
        else if (noneAllowed && source.Alternative() && source.Get(none, keyword...))
            changed = restricted ? mdl_PropAttributeStateEnm::UNSET : mdl_PropAttributeStateEnm::FREED;
        else
        {
            // The fault to be kept is that of the value, not that of what else was tried.
            if (source.Alternative())
                Value(source, value, keyword...);
            return false;
        }
        attribute = changed;
        return true;
    }

private:
    template <class Source, class T, class... Keyword>
    static bool Value(Source& source, T& value, const Keyword&... keyword)
    {
        if constexpr (std::is_same_v<T, cls_xp1DArrayListFloat>)
        {
            omu_PrimTuple lists;
            if (!source.Get(lists, keyword...))
                return false;
            lists.Begin();
            while (lists.Cursor() < lists.Length())
            {
                cow_List<float> list;
                lists.Get(list);
                value.Append(list);
            }
            lists.End();
            return true;
        }
        else if constexpr (requires { typename T::value_type; } && !std::is_same_v<T, cow_String>)
        {
            cow_List<typename T::value_type> items;
            if (!source.Get(items, keyword...))
                return false;
            value = T(items);
            return true;
        }
        else
            return source.Get(value, keyword...);
    }
};
