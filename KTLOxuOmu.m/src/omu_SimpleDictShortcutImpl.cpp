#include <cstdio>
#include <omu_PrimString.h>
#include <omu_SimpleDictShortcutImpl.h>

template <class K>
omu_SimpleDictShortcutImpl<K>::omu_SimpleDictShortcutImpl(const omu_Shortcut& base,
                                                          const cow_String& memberName, const K& key)
    : omu_SimpleShortcutImpl(base), memberName_(memberName), key_(key)
{}

template <class K>
omu_SimpleDictShortcutImpl<K>* omu_SimpleDictShortcutImpl<K>::Copy() const
{
    return new omu_SimpleDictShortcutImpl(*this);
}

template <class K>
cow_String omu_SimpleDictShortcutImpl<K>::Name() const
{
    std::string name(memberName_.View());
    AppendKey(name);
    return cow_String(name);
}

template <class K>
void omu_SimpleDictShortcutImpl<K>::AppendStep(std::string& path) const
{
    if (!memberName_.IsEmpty())
    {
        path += '.';
        path += memberName_.View();
    }
    AppendKey(path);
}

template <class K>
void omu_SimpleDictShortcutImpl<K>::AppendKey(std::string& path) const
{
    if constexpr (std::is_same_v<K, int>)
    {
        path += '[' + std::to_string(key_) + ']';
    }
    else if (key_ != USE_ID)
    {
        path += '[';
        path += omu_PrimString::Quoted(key_).View();
        path += ']';
    }
}

template <class K>
void omu_SimpleDictShortcutImpl<K>::TracePath(const std::string& path) const
{
    if constexpr (std::is_same_v<K, int>)
        std::fprintf(stderr, "omu_SimpleDictShortcut(int). Path: %s\n", path.c_str());
    else
        std::fprintf(stderr, "omu_SimpleDictShortcut(cow_String). Path: %s\n", path.c_str());
}

template class omu_SimpleDictShortcutImpl<int>;
template class omu_SimpleDictShortcutImpl<cow_String>;
