// Whatever bytes come in, a memento is read into objects that can be written again, or is refused with one
// exception. Most inputs would end at a checksum, so each is tried with the checksums made right too.

#include <KTLOxuGeom.h>
#include <cls_MetadataRegistrar.h>
#include <cls_PersistentValue.h>
#include <idb_MementoException.h>
#include <idb_MementoRead.h>
#include <idb_MementoSummary.h>
#include <idb_MementoWrite.h>
#include <omu_Primitive.h>
#include <testing/MementoMaker.h>

#include <cstdint>
#include <cstdlib>

namespace
{
void Require(bool condition)
{
    if (!condition)
        std::abort();
}

// What is refused is refused with a text.
template <class F>
void Answer(F read)
{
    try
    {
        read();
    }
    catch (const idb_MementoException& refused)
    {
        Require(!refused.UserReport().IsEmpty());
    }
}

void Try(std::span<const unsigned char> bytes)
{
    Answer([bytes] {
        idb_MementoLimits limits;
        limits.budgetBase = 1u << 20;
        idb_MementoRead memento(bytes, limits);
        const idb_MementoSummary summary(memento);
        Require(summary.bytes == bytes.size() && summary.roots.size() <= bytes.size());
        for (const cow_String& name : memento.RootNames())
        {
            // Each by itself: one that is refused leaves the others.
            std::unique_ptr<cls_Persistent> object;
            Answer([&] { object = memento.Root(name); });
            Answer([&] {
                const auto* const value = dynamic_cast<const omu_Primitive*>(object.get());
                if (value == nullptr)
                    return;
                idb_MementoWrite again;
                again.Add(name, value);
                again.Finish();
                idb_MementoRead back(again.Bytes());
                Require(back.Root(name) != nullptr);
            });
        }
    });
}
}

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    static int running = 0;
    KTLOxuGeom_initialize(running);
    // What the readers say on standard error is much; the fuzzer's own reports come through.
    static char quiet[] = "-close_fd_mask=2";
    static std::vector<char*> arguments(*argv, *argv + *argc);
    arguments.insert(arguments.end(), {quiet, nullptr});
    *argv = arguments.data();
    ++*argc;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Try({data, size});
    Bytes sealed(data, data + size);
    Reseal(sealed);
    if (sealed != Bytes(data, data + size))
        Try(sealed);
    return 0;
}
