// Values of the scripting language: numbers, texts, symbolic constants, tuples, dictionaries.
#include <annC_Enumerations.h>
#include <iostream>
#include <memory>
#include <omu_PrimDictionary.h>
#include <omu_PrimNumber.h>
#include <omu_PrimTuple.h>

int main()
{
    omu_PrimTuple corner;
    corner.Put(1);
    corner.Put(2.0);
    corner.Put("it's");
    corner.Put(omu_PrimEnum<annC_LineStyleEnm, 1>(annC_LineStyleEnm::DASHED));
    std::cout << corner.AsRepr().View() << '\n';

    omu_PrimTuple other = corner; // shares the items until one of the two changes
    other.Put(true);
    std::cout << corner.Length() << " items, " << other.Length() << " in the copy\n";
    std::cout << "1 == 1.0 is " << (omu_PrimNumber(1) == omu_PrimNumber(1.0) ? "true" : "false") << '\n';

    omu_PrimDictionary<cow_String> settings;
    settings.Put("style", omu_PrimEnumBase("SOLID"));
    settings.Put("points", std::make_unique<omu_PrimTuple>(cow_List<double>{0.5, 2.25}));
    std::cout << settings.AsRepr().View() << '\n';

    // A name finds its value, a value its name; the table's order is the order in which messages list them.
    const omu_PrimEnum<annC_LineStyleEnm, 1> style("DOTTED");
    std::cout << style.GetString().View() << " of " << style.PermissibleValuesAsString().View() << '\n';
}
