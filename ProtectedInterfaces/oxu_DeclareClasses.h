#pragma once

#include <cls_MetadataRegistrar.h>

/// One persistent class of a module: the function that declares its metadata, and the phase handed on with
/// it.
struct oxu_ClassDeclaration
{
    void (*declare)(cls_ClassRegistrar&);
    unsigned phase;
};

/// Hands a module's classes to the metadata registrar, in the order given. Repeating it changes nothing.
template <class Declarations>
void oxu_DeclareClasses(const Declarations& classes)
{
    cls_MetadataRegistrar& registrar = cls_MetadataRegistrar::Instance();
    for (const oxu_ClassDeclaration& one : classes)
        registrar.initClassMetadata(one.declare, one.phase);
}
