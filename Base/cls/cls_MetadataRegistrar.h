#pragma once

#include <bas_Export.h>
#include <cls_ClassRegistrar.h>
#include <omi_Singleton.h>

#include <vector>

/// One line of the start-up log.
struct cls_MetadataLogEntry
{
    /// Position in the log, from 1.
    int sequence;
    unsigned phase;
    /// Registered name of the class that the function declared; empty where it declared none.
    cow_String name;
    unsigned typeId;
};

/// Runs the metadata-declaring functions of the modules, each once a process, and keeps a log.
///
/// Reached through omi_Singleton<cls_MetadataRegistrar>::Instance(). It lives to the end of the process:
/// a module that is stopped and started again declares nothing twice.
class BAS_EXPORT cls_MetadataRegistrar : public omi_Singleton<cls_MetadataRegistrar>
{
public:
    cls_MetadataRegistrar();
    ~cls_MetadataRegistrar();

    /// Calls the function with Registrar(), at once, unless it has run before. Phases do not change the
    /// order: functions run in order of registration, and the log keeps the phase. A function that throws
    /// counts as not run.
    void initClassMetadata(cls_MetadataFunction function, unsigned phase);

    cls_ClassRegistrar& Registrar() { return registrar_; }
    const cls_ClassRegistrar& Registrar() const { return registrar_; }

    /// What ran, in order.
    const std::vector<cls_MetadataLogEntry>& Log() const { return log_; }
    /// The log for reading: one line each, "1 phase 7 annC_Annotation", ended by line feeds.
    cow_String LogText() const;

private:
    cls_ClassRegistrar registrar_;
    std::vector<cls_MetadataFunction> done_;
    std::vector<cls_MetadataLogEntry> log_;
};
