#pragma once

#include <omu_SimpleShortcutImpl.h>
#include <type_traits>

/// An entry of a dictionary, K being int or cow_String: ".parts['P1']"; with an empty member name "['P1']",
/// an entry of the object reached itself. The key text USE_ID stands for an entry known by its identifier
/// alone: the step is then written without a key.
template <class K>
class OXU_EXPORT omu_SimpleDictShortcutImpl : public omu_SimpleShortcutImpl
{
    static_assert(std::is_same_v<K, int> || std::is_same_v<K, cow_String>);

public:
    static constexpr const char* USE_ID = "omu_SimpleShortcut_USE_ID";

    omu_SimpleDictShortcutImpl(const omu_Shortcut& base, const cow_String& memberName, const K& key);

    omu_SimpleDictShortcutImpl* Copy() const override;
    /// The member's name and the key: "parts['P1']".
    cow_String Name() const override;
    void AppendStep(std::string& path) const override;
    void TracePath(const std::string& path) const override;

    const K& Key() const { return key_; }

private:
    void AppendKey(std::string& path) const;

    cow_String memberName_;
    K key_;
};

/// A literal is a key of text.
omu_SimpleDictShortcutImpl(const omu_Shortcut&, const cow_String&, const char*)
    ->omu_SimpleDictShortcutImpl<cow_String>;

extern template class omu_SimpleDictShortcutImpl<int>;
extern template class omu_SimpleDictShortcutImpl<cow_String>;
