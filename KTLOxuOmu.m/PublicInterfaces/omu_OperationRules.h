#pragma once

/// What scripts may do with an interface object: a set of permissions, all of them by default.
class omu_OperationRules
{
public:
    enum Rule : unsigned { READABLE = 1, WRITABLE = 2, CALLABLE = 4, DELETABLE = 8 };
    static constexpr unsigned ALL = READABLE | WRITABLE | CALLABLE | DELETABLE;

    constexpr omu_OperationRules() = default;
    /// Rule values joined by |; other bits are dropped.
    constexpr explicit omu_OperationRules(unsigned rules) noexcept : rules_(rules & ALL) {}

    constexpr bool Allows(Rule rule) const noexcept { return (rules_ & rule) != 0; }
    /// Its members may be read.
    constexpr bool IsReadable() const noexcept { return Allows(READABLE); }
    /// Members that have a writer may be set.
    constexpr bool IsWritable() const noexcept { return Allows(WRITABLE); }
    /// Its methods may be called.
    constexpr bool IsCallable() const noexcept { return Allows(CALLABLE); }
    /// Members, where the class can delete them, may be deleted.
    constexpr bool IsDeletable() const noexcept { return Allows(DELETABLE); }

    friend constexpr bool operator==(const omu_OperationRules&, const omu_OperationRules&) = default;

private:
    unsigned rules_ = ALL;
};
