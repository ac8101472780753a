#pragma once

#include <cow_String.h>
#include <oxu_Export.h>

/// A registered symbolic constant: its name and the id that omu_SymbolicConstantTable gives that name.
///
/// What is wrong with one is told on the standard error stream and stops nothing.
class OXU_EXPORT omu_SymbolicConstantData
{
public:
    /// Registers the name with the process-wide table and takes the id that the table gives. Told: an illegal
    /// name; a name registered for the first time with an id other than 0; an id that is not the table's,
    /// also when 0 was given. With createInScript the table's scripting hook is called too.
    omu_SymbolicConstantData(const cow_String& name, unsigned int id, bool createInScript);
    /// The constant that the table knows under the id; one beyond the table has no name.
    explicit omu_SymbolicConstantData(unsigned int id);

    unsigned int getId() const { return id_; }
    /// The name; an empty one is told.
    const cow_String& getText() const;

private:
    cow_String text_;
    unsigned int id_ = 0;
};
