#include <KTLBas.h>
#include <cls_ArchEntry.h>
#include <cls_MetadataRegistrar.h>
#include <nex_ArchEntry.h>
#include <nex_CommandException.h>
#include <nex_PrimException.h>
#include <typ_ArchCompTable.h>

namespace
{
// Counts calls, not starts; see KTLBas.h for what happens below zero.
int called = 0;

// The exception bases are declared on first look-up: the start-up log is the modules' own.
template <class E>
void AnnounceClass(cls_ClassRegistrar& registrar, const char* name)
{
    registrar.DeclareLate(E::TypeId(), name, &E::InitializeMetadata);
}
}

void KTLBas_initialize(int& running)
{
    if (called++ != 0)
        return;
    ++running;
    typ_ArchCompTable::InsertEntry(0x1F, nex_ArchEntry());
    typ_ArchCompTable::InsertEntry(0x23, cls_ArchEntry());
    cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    AnnounceClass<KTLBasException>(registrar, "KTLBasException");
    AnnounceClass<nex_Exception>(registrar, "nex_Exception");
    AnnounceClass<nex_CommandException>(registrar, "nex_CommandException");
    AnnounceClass<nex_PrimException>(registrar, "nex_PrimException");
}

void KTLBas_finalize(int& running)
{
    if (--called != 0)
        return;
    --running;
}
