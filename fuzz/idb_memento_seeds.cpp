// Writes the first inputs of idb_memento_fuzz into the folder named: small mementos of all kinds of objects.

#include <KTLOxuGeom.h>
#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <annC_Point3DAnchor.h>
#include <annC_Text.h>
#include <gsl_BBox.h>
#include <gsl_LineArray.h>
#include <gsl_ModelSegment.h>
#include <gsl_PersistentMatrix.h>
#include <gsl_Plane.h>
#include <idb_MementoWrite.h>
#include <mdl_JaggedArray.h>
#include <mdl_PropertyTable.h>
#include <omu_ArgNumberErrorException.h>
#include <omu_PrimArray.h>
#include <omu_PrimBool.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimComplex.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimException.h>
#include <omu_PrimList.h>
#include <omu_PrimNone.h>
#include <omu_PrimPath.h>
#include <omu_PrimString.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimWrapper.h>
#include <testing/MementoMaker.h>

#include <filesystem>
#include <fstream>

namespace
{
std::filesystem::path folder;

template <class... T>
void Seed(const char* name, const T&... objects)
{
    idb_MementoWrite memento((folder / name).c_str());
    int number = 0;
    (memento.Add(cow_String(std::to_string(number++)), objects), ...);
    memento.Finish();
}
}

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    int running = 0;
    KTLOxuGeom_initialize(running);
    folder = argv[1];
    std::filesystem::create_directories(folder);

    omu_PrimDictionary<cow_String> dictionary;
    dictionary.Put("a", omu_PrimNumber(1));
    dictionary.Put("b", omu_PrimTuple(cow_List<double>{0.5, 2}));
    omu_PrimDictionary<int> byNumber;
    byNumber.Put(-3, dictionary);
    omu_PrimList list(2, 7);
    list.Put(omu_OnOffConst(true));
    list.Put(static_cast<omu_Primitive*>(nullptr));
    gsl_LineArray lines;
    lines.Append(gsl_StLine(gsl_Point(1, 2, 3), gsl_Vector(1, 0, 0)));
    gsl_Matrix moved;
    moved.SetTranslation(gsl_Vector(1, 2, 3));

    Seed("nothing");
    Seed("null", static_cast<const omu_Primitive*>(nullptr));
    Seed("scalars", omu_PrimNumber(5u), omu_PrimString("text"), omu_PrimBoolean(true), omu_PrimNone(),
         omu_PrimComplex(omi_complex(1, 2)), omu_PrimTranslatedString("t"),
         omu_PrimPath(cow_List<cow_String>{"m"}));
    Seed("containers", dictionary, byNumber, list, omu_PrimWrapper(4, nullptr, dictionary));
    Seed("arrays", omu_PrimArray(cow_List<int>{2, 1}, cow_List<int>{1, 2}),
         omu_PrimArray(cow_List<float>{0.5F}));
    Seed("exceptions", omu_PrimException(omu_ArgNumberErrorException(1, 2, "s")));
    Seed("geometry", gsl_BBox(gsl_Point(1, 2, 3)), lines, gsl_PersistentMatrix(moved), gsl_ModelSegment(),
         gsl_Plane(gsl_Point(), gsl_Vector(0, 0, 1)));

    annC_AnnotationContainer annotations;
    annotations.Insert("arrow", annC_Arrow());
    annotations.Insert("text", annC_Text());
    Seed("annotations", annotations, annC_Point3DAnchor(1, 2, 3));
    Seed("tables", mdl_PropertyTable(cow_List<cow_String>{"E", "nu"}), mdl_JaggedArray());

    // What no writer of ours writes.
    MementoMaker maker;
    maker.Class(omu_PrimTuple::TypeId(), "omu_PrimTuple", 900, 1, {{"primVector", 15, 0x230001, 1}});
    maker.Class(omu_PrimString::TypeId(), "omu_PrimString", 700, 1,
                {{"other", 5, 1, 0}, {"value", 11, 1, 0}});
    maker.Object(0, {{0, {{0, 15, 1, Payload(3, 2u, 0u, 2u)}}}});
    maker.Object(1, {{1, {{1, 11, 0, Payload(cow_String("t"))}, {0, 5, 0, Payload(5)}}}});
    maker.Section("XTRA", 0, Bytes(3));
    maker.Root("0", 1);
    maker.minorFormat = 1;
    const Bytes bytes = maker.Make();
    std::ofstream(folder / "newer", std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    KTLOxuGeom_finalize(running);
    return 0;
}
