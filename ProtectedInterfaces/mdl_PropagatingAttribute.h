#pragma once

#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <cls_Uid.h>
#include <cls_xp1DArrayInt.h>
#include <cls_xp1DArrayListFloat.h>
#include <cls_xpListInt.h>
#include <cls_xpListString.h>
#include <cow_String.h>
#include <mdl_Enumerations.h>
#include <oxu_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// What an instance of mdl_PropAttr is called: NAME as registered, INDEX in the component table.
template <class T>
struct mdl_PropAttrTraits;

/// One setting of a model's object from analysis step to analysis step: a value, and a state that says how
/// the value relates to the step before. A step starts with Propagate() and may then change, free or leave
/// it.
///
/// Zero is 0, false, the empty text or list. T is one of those that have a name below.
///
/// Laws:
///  1. a == b compares value and state: one value reached in two ways differs. a == value compares the value,
///     a == state the state alone. A value that is not a number equals nothing.
///  2. IsFree, IsActive: never both; both false from NOT_APPLICABLE on. IsConditionModified implies
///     IsModified.
///  3. A copy has the identifier of its original; an assignment, also that of an attribute which is read into
///     a member, keeps the target's.
template <class T>
class OXU_EXPORT mdl_PropAttr : public cls_Persistent
{
public:
    using StateEnm = mdl_PropAttributeStateEnm;

    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x0A, mdl_PropAttrTraits<T>::INDEX); }
    virtual unsigned DynTypeId() const { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    mdl_PropAttr() = default;
    /// UNSET, not SET: what an attribute is constructed with is only a default.
    explicit mdl_PropAttr(const T& value) : value_(value) {}
    explicit mdl_PropAttr(const cls_ReadVisitor& reader);
    mdl_PropAttr(const mdl_PropAttr&) = default;

    mdl_PropAttr& operator=(const mdl_PropAttr& other)
    {
        value_ = other.value_;
        state_ = other.state_;
        return *this;
    }
    /// Gives the value in this step: SET.
    mdl_PropAttr& operator=(const T& value)
    {
        value_ = value;
        state_ = StateEnm::SET;
        return *this;
    }
    /// FREED and UNSET zero the value, other states keep it.
    mdl_PropAttr& operator=(const StateEnm& state)
    {
        if (state == StateEnm::FREED || state == StateEnm::UNSET)
            Zero();
        state_ = state;
        return *this;
    }
    /// The value for writing. SET from now on, whether it is written or not: to read, take ConstGet.
    T& Get()
    {
        state_ = StateEnm::SET;
        return value_;
    }
    /// Keeps the value, also with FREED and UNSET.
    void ForceState(StateEnm state) { state_ = state; }
    /// Keeps the state.
    void Zero() { value_ = T(); }
    /// Takes a status that a command gives; restricted tells which ones it may give:
    ///
    /// | status    | restricted      | not restricted   |
    /// |-----------|-----------------|------------------|
    /// | UNCHANGED | nothing changes | nothing changes  |
    /// | SET       | SET, zero       | SET, zero        |
    /// | UNSET     | UNSET, zero     | refused          |
    /// | FREED     | refused         | FREED, zero      |
    /// | any other | refused         | refused          |
    ///
    /// SET drops the value on purpose: the command is to supply a new one. A refusal raises nex_PrimException
    /// with the attribute's name and changes nothing.
    void SetStatus(const char* attributeName, const omu_PrimEnum<StateEnm, 1>& status, bool restricted);
    /// Takes value and state of another that was given or freed in this step; else nothing.
    void Modify(const mdl_PropAttr& other)
    {
        if (other.IsModified())
            *this = other;
    }
    /// Into the next step: what was SET is UNCHANGED there, what was FREED is UNSET.
    void Propagate()
    {
        if (state_ == StateEnm::SET)
            state_ = StateEnm::UNCHANGED;
        else if (state_ == StateEnm::FREED)
            state_ = StateEnm::UNSET;
    }
    /// Gives the attribute a fresh identity.
    void NewUid() { uid_ = cls_Uid(); }

    const T& ConstGet() const { return value_; }
    StateEnm State() const { return state_; }
    /// Names this attribute; see law 3.
    const cls_Uid& Uid() const { return uid_; }

    bool IsFree() const { return state_ == StateEnm::UNSET || state_ == StateEnm::FREED; }
    bool IsActive() const { return state_ == StateEnm::SET || state_ == StateEnm::UNCHANGED; }
    bool IsModified() const { return state_ == StateEnm::SET || state_ == StateEnm::FREED; }
    bool IsConditionModified() const { return state_ == StateEnm::FREED; }

    friend bool operator==(const mdl_PropAttr& a, const mdl_PropAttr& b)
    {
        return a.value_ == b.value_ && a.state_ == b.state_;
    }
    friend bool operator==(const mdl_PropAttr& a, const T& value) { return a.value_ == value; }
    friend bool operator==(const mdl_PropAttr& a, StateEnm state) { return a.state_ == state; }

    virtual void DBWrite(const cls_WriteVisitor& writer) const;

private:
    static constexpr auto Fields();

    T value_{};
    StateEnm state_ = StateEnm::UNSET;
    cls_Uid uid_;
};

template <>
struct mdl_PropAttrTraits<int>
{
    static constexpr const char* NAME = "mdl_PropInt";
    static constexpr unsigned INDEX = 19;
};
template <>
struct mdl_PropAttrTraits<bool>
{
    static constexpr const char* NAME = "mdl_PropBool";
    static constexpr unsigned INDEX = 16;
};
template <>
struct mdl_PropAttrTraits<double>
{
    static constexpr const char* NAME = "mdl_PropDouble";
    static constexpr unsigned INDEX = 15;
};
template <>
struct mdl_PropAttrTraits<cow_String>
{
    static constexpr const char* NAME = "mdl_PropString";
    static constexpr unsigned INDEX = 14;
};
template <>
struct mdl_PropAttrTraits<cls_xpListInt>
{
    static constexpr const char* NAME = "mdl_PropListInt";
    static constexpr unsigned INDEX = 17;
};
template <>
struct mdl_PropAttrTraits<cls_xpListString>
{
    static constexpr const char* NAME = "mdl_PropListString";
    static constexpr unsigned INDEX = 21;
};
template <>
struct mdl_PropAttrTraits<cls_xp1DArrayInt>
{
    static constexpr const char* NAME = "mdl_Prop1DArrayInt";
    static constexpr unsigned INDEX = 20;
};
/// The component table calls it mdl_Prop1DArrayListFloat, on purpose; the registrar finds it by either name.
template <>
struct mdl_PropAttrTraits<cls_xp1DArrayListFloat>
{
    static constexpr const char* NAME = "mdl_PropList1DArrayListFloat";
    static constexpr unsigned INDEX = 22;
};

/// The instances, each under the name that is registered.
using mdl_PropInt = mdl_PropAttr<int>;
using mdl_PropBool = mdl_PropAttr<bool>;
using mdl_PropDouble = mdl_PropAttr<double>;
using mdl_PropString = mdl_PropAttr<cow_String>;
using mdl_PropListInt = mdl_PropAttr<cls_xpListInt>;
using mdl_PropListString = mdl_PropAttr<cls_xpListString>;
using mdl_Prop1DArrayInt = mdl_PropAttr<cls_xp1DArrayInt>;
using mdl_PropList1DArrayListFloat = mdl_PropAttr<cls_xp1DArrayListFloat>;
