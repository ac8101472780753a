// A command reads its arguments; what is wrong with them comes as one exception, at End.
#include <iostream>
#include <nex_CommandException.h>
#include <omu_Arguments.h>
#include <omu_RangeChecker.h>

void Seed(omu_Arguments& arguments)
{
    cow_String edge;
    double size = 0;
    int count = 1;
    arguments.Begin();
    arguments.Get(edge, "edge"); // by its place or by keyword
    arguments.Get(size, "size");
    arguments.Optional();
    arguments.Get(count, "count"); // keeps its default when it is not given
    arguments.End();               // raises the first fault of all
    omu_RangeChecker::CheckGreaterThan("size", 0.0, false, size);
    std::cout << "seeds " << edge.View() << " with " << count << " of size " << size << '\n';
}

void Call(omu_Arguments arguments)
try
{
    Seed(arguments);
}
catch (const nex_CommandException& fault)
{
    std::cout << arguments.AsRepr().View() << ": " << fault.AsString().View() << '\n';
}

int main()
{
    omu_PrimTuple edge;
    edge.Put("rim");
    omu_Arguments good(edge);
    good.Put("size", 0.5);
    Call(good);

    omu_Arguments wrongType(edge);
    wrongType.Put("size", "large");
    Call(wrongType);

    omu_Arguments unknown(good);
    unknown.Put("colour", "Red");
    Call(unknown);

    omu_Arguments outOfRange(edge);
    outOfRange.Put("size", -1.0);
    Call(outOfRange);
    Call(omu_Arguments(edge));
}
