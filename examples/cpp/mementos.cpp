// Objects go to a memento by name and come back; damage is told with its place.
#include <KTLOxuGeom.h>
#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <idb_MementoException.h>
#include <idb_MementoRead.h>
#include <idb_MementoWrite.h>
#include <iostream>

int main()
{
    int running = 0;
    KTLOxuGeom_initialize(running); // registers the classes, without which nothing is stored

    annC_AnnotationContainer annotations;
    annotations.Insert("A", annC_Arrow());
    idb_MementoWrite out; // into memory; idb_MementoWrite(cow_String("session.oxm")) makes a file
    out.Add("annotations", annotations);
    out.Finish();

    annC_AnnotationContainer back;
    idb_MementoRead(out.Bytes()).Root("annotations", back);
    std::cout << back.Size() << " annotation, the same object: " << (back.Uid() == annotations.Uid()) << '\n';

    std::vector<unsigned char> damaged = out.Bytes();
    damaged[100] ^= 1;
    try
    {
        idb_MementoRead(damaged).Root("annotations", back);
    }
    catch (const idb_MementoException& error)
    {
        std::cout << error.UserReport().View() << '\n';
    }
    KTLOxuGeom_finalize(running);
    return running;
}
