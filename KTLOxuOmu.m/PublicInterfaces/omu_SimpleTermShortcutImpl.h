#pragma once

#include <omu_SimpleShortcutImpl.h>

/// The root of a path: "mdb", "session". It extends nothing.
class OXU_EXPORT omu_SimpleTermShortcutImpl : public omu_SimpleShortcutImpl
{
public:
    explicit omu_SimpleTermShortcutImpl(const cow_String& term, bool inModel = false, bool inOdb = false,
                                        bool inSession = false);

    omu_SimpleTermShortcutImpl* Copy() const override;
    /// The term.
    cow_String Name() const override;
    bool InModel() const override { return inModel_; }
    bool InOdb() const override { return inOdb_; }
    bool InSession() const override { return inSession_; }
    void AppendStep(std::string& path) const override;
    void TracePath(const std::string& path) const override;

private:
    cow_String term_;
    bool inModel_ = false;
    bool inOdb_ = false;
    bool inSession_ = false;
};
