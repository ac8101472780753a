#include <scr_Keywords.h>
#include <scr_Text.h>
#include <unordered_map>

namespace
{
// Scripts have few keywords; one that makes them up must not fill the memory.
constexpr std::size_t MOST = 4096;
}

const cow_String& scr_Keywords::Text(PyObject* keyword)
{
    // By identity: the keywords in code are interned. Each is kept alive, so that no other str takes its
    // place.
    static auto* const known = new std::unordered_map<PyObject*, cow_String>;
    static auto* const other = new cow_String;
    if (const auto found = known->find(keyword); found != known->end())
        return found->second;
    *other = scr_Text::FromPython(keyword);
    if (!PyUnicode_CHECK_INTERNED(keyword) || known->size() >= MOST)
        return *other;
    Py_INCREF(keyword);
    return known->emplace(keyword, *other).first->second;
}
