// The worked example of docs/memento.md is what the code writes.

#include <cow_COW.h>
#include <idb_MementoRead.h>
#include <idb_MementoWrite.h>
#include <omu_PrimString.h>
#include <testing/LibraryGuard.h>
#include <testing/MementoMaker.h>

#include <cstdio>
#include <fstream>
#include <sstream>

namespace
{
// Sixteen bytes a line, as the document has them.
std::string Dump(const Bytes& bytes)
{
    std::string text;
    char word[32];
    for (std::size_t i = 0; i < bytes.size(); ++i)
    {
        if (i % 16 == 0)
        {
            std::snprintf(word, sizeof word, "%s%04zx ", i > 0 ? "\n" : "", i);
            text += word;
        }
        std::snprintf(word, sizeof word, " %02x", bytes[i]);
        text += word;
    }
    return text + "\n";
}

TEST(DocumentedDump, IsWhatIsWritten)
{
    const LibraryGuard running;
    // The text "contact" with an identifier that is always the same.
    MementoMaker maker;
    maker.Class(omu_Primitive::TypeId(), "omu_Primitive", 514, 1, {{"type", 1, 1, 0}});
    maker.Class(omu_PrimString::TypeId(), "omu_PrimString", 800, omu_Primitive::TypeId(),
                {{"value", 11, 1, 0}});
    maker.Object(
        1, {{0, {{0, 1, 0, Payload('s')}}, 0x11}, {1, {{0, 11, 0, Payload(cow_String("contact"))}}, 0x11}});
    maker.Root("note", 1);
    const Bytes made = maker.Make();
    cow_COW<omu_Primitive> note;
    idb_MementoRead(made).Root("note", note);
    idb_MementoWrite memento;
    memento.Add("note", note);
    memento.Finish();
    EXPECT_EQ(memento.Bytes(), made);

    std::ifstream file(ORVEX_DOCS "/memento.md");
    std::stringstream document;
    document << file.rdbuf();
    EXPECT_NE(document.str().find(Dump(made)), std::string::npos) << Dump(made);
}
}
