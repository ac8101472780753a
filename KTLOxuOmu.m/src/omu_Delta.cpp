#include <omu_Delta.h>

omu_PrimTuple omu_Delta::AsTuple() const
{
    static const cow_String WORDS[] = {"Modify", "Insert", "Remove", "Rename"};
    omu_PrimTuple tuple;
    tuple.Put(WORDS[static_cast<int>(kind)]);
    tuple.Put(name);
    if (kind == KindEnm::RENAME)
        tuple.Put(newName);
    if (kind == KindEnm::INSERT || kind == KindEnm::RENAME)
        tuple.Put(index);
    return tuple;
}
