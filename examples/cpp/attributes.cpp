// A setting is carried from analysis step to analysis step, with a state that says what a step did to it.
#include <iostream>
#include <mdl_PropAttributeGet.h>
#include <mdl_PropagatingAttribute.h>

void Show(const char* what, const mdl_PropDouble& load)
{
    std::cout << what << ": " << load.ConstGet() << ' '
              << omu_PrimEnum<mdl_PropAttributeStateEnm, 1>::NameOf(load.State()).View() << '\n';
}

int main()
{
    mdl_PropDouble load;
    Show("made", load);
    load = 2.5;
    Show("given in step 1", load);
    load.Propagate();
    Show("in step 2", load);

    // A command's argument: a value, a status or None. An argument that is not given changes nothing.
    omu_Arguments arguments;
    arguments.Put("load", omu_PrimEnum<mdl_PropAttributeStateEnm, 1>(mdl_PropAttributeStateEnm::FREED));
    arguments.Begin();
    mdl_PropAttributeGet<double>::Get(arguments, load, "load", false, true);
    arguments.End();
    Show("freed in step 2", load);
    load.Propagate();
    Show("in step 3", load);
}
