#include <atr_Catalogue.h>
#include <cls_ReadVisitor.h>
#include <cls_WriteVisitor.h>
#include <gtest/gtest.h>
#include <nex_CommandException.h>
#include <nex_InternalException.h>
#include <nex_PrimException.h>
#include <nex_Raise.h>
#include <nex_RaiseWith.h>
#include <nex_RangeException.h>

#include <cstring>
#include <functional>
#include <memory>
#include <stdexcept>
#include <testing/MemoryStore.h>
#include <thread>

namespace
{
constexpr const char* SOURCE = "KTLOxuOmu.m/src/omu_Arguments";

// A command exception as modules write them: fields, a message made of them on demand.
class DepthError : public nex_CommandException
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x7E01, 1); }

    explicit DepthError(const cow_String& keyword) : keyword_(keyword) {}
    explicit DepthError(const cls_ReadVisitor& reader) : nex_CommandException(reader.BaseReader())
    {
        reader.ReadString({0, "m_Keyword"}, keyword_);
    }

    void Propagate() const override { throw *this; }
    DepthError* Copy() const override { return new DepthError(*this); }
    unsigned DynTypeId() const override { return TypeId(); }
    void DBWrite(const cls_WriteVisitor& writer) const override
    {
        if (!writer.Announce(TypeId(), Identifier()))
            return;
        nex_CommandException::DBWrite(writer.BaseWriter());
        writer.WriteString({0, "m_Keyword"}, keyword_);
    }
    cow_String JournalMessage() const override { return keyword_ + " is too deep"; }
    const char* PythonType() const override { return "TypeError"; }

    cow_String keyword_;
};

// Building the message fails, as it may when memory runs out.
class UnspeakableError : public DepthError
{
public:
    UnspeakableError() : DepthError("") {}
    cow_String JournalMessage() const override { throw std::bad_alloc(); }
};

nex_RangeException RangeCaughtFrom(const std::function<void()>& raise)
{
    try
    {
        raise();
    }
    catch (const nex_RangeException& error)
    {
        return error;
    }
    throw std::logic_error("nothing was raised");
}

class Swapped : public atr_Catalogue
{
public:
    bool Lookup(const cow_String& messageTemplate, cow_String& translation) const override
    {
        if (!(messageTemplate == "index %d out of range, length %d"))
            return false;
        translation = "Laenge %2$d, Index %1$d";
        return true;
    }
};
}

struct ReportRow
{
    const char* what;
    std::shared_ptr<const KTLBasException> error;
    const char* user;
    const char* asString;
};

class Reports : public testing::TestWithParam<ReportRow>
{};

TEST_P(Reports, AgreeInEveryForm)
{
    const ReportRow& row = GetParam();
    EXPECT_EQ(row.error->UserReport(), row.user);
    EXPECT_STREQ(row.error->what(), row.user);
    EXPECT_EQ(row.error->AsString(), row.asString);
    EXPECT_EQ(row.error->DeveloperReport(), row.asString) << "nothing is known of source and traceback";
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Reports,
    testing::Values(ReportRow{"Base", std::make_shared<KTLBasException>(atr_String("broken")), "broken",
                              "KTLBasException: broken"},
                    ReportRow{"Exception", std::make_shared<nex_Exception>(atr_String("broken")), "broken",
                              "nex_Exception: broken"},
                    ReportRow{"Prim",
                              std::make_shared<nex_PrimException>(atr_String("Error: Cannot coerce.")),
                              "Error: Cannot coerce.", "nex_PrimException: Error: Cannot coerce."},
                    ReportRow{"Range", std::make_shared<nex_RangeException>(-1, 3),
                              "index -1 out of range, length 3",
                              "nex_RangeException: index -1 out of range, length 3"},
                    ReportRow{"Internal", std::make_shared<nex_InternalException>(atr_String("100% wrong")),
                              "100% wrong", "nex_InternalException: 100% wrong"},
                    ReportRow{"Command", std::make_shared<DepthError>("size"), "size is too deep",
                              "TypeError: size is too deep"},
                    ReportRow{"Empty", std::make_shared<nex_PrimException>(), "", "nex_PrimException: "}),
    [](const auto& row) { return row.param.what; });

TEST(nex_Exception, DeveloperReportTellsSourceLineAndTraceback)
{
    DepthError error("size");
    error.SetSource(SOURCE, 42);
    EXPECT_EQ(error.DeveloperReport(),
              "TypeError: size is too deep (KTLOxuOmu.m/src/omu_Arguments, line 42)");
    error.SetTraceback("in a.py\nin b.py");
    EXPECT_EQ(error.GetTraceback(), "in a.py\nin b.py");
    EXPECT_EQ(error.DeveloperReport(),
              "TypeError: size is too deep (KTLOxuOmu.m/src/omu_Arguments, line 42)\nin a.py\nin b.py");
    EXPECT_EQ(error.UserReport(), "size is too deep");
}

TEST(nex_Exception, SourceTextIsNoTemplate)
{
    nex_PrimException error(atr_String("x"));
    error.SetSource("%s%d", 7);
    EXPECT_EQ(error.DeveloperReport(), "nex_PrimException: x (%s%d, line 7)");
}

TEST(nex_Exception, WhatStaysValidWhileFieldsChange)
{
    DepthError error("first");
    const char* first = error.what();
    error.keyword_ = "second";
    const char* second = error.what();
    EXPECT_STREQ(first, "first is too deep");
    EXPECT_STREQ(second, "second is too deep");
    error.keyword_ = "first";
    EXPECT_EQ(error.what(), first) << "a text given out before is not kept twice";
}

TEST(nex_Exception, WhatOfACopyOutlivesTheOriginal)
{
    auto original = std::make_unique<DepthError>("size");
    static_cast<void>(original->what());
    const DepthError copy(*original);
    const char* text = copy.what();
    original.reset();
    EXPECT_STREQ(text, "size is too deep");
}

TEST(nex_Exception, WhatNeverThrows)
{
    const UnspeakableError error;
    EXPECT_STREQ(error.what(), "the message of an exception could not be composed");
}

TEST(nex_Exception, WhatMayBeAskedFromTwoThreads)
{
    const DepthError error("size");
    const char* texts[2] = {nullptr, nullptr};
    std::thread other([&] { texts[0] = error.what(); });
    texts[1] = error.what();
    other.join();
    EXPECT_STREQ(texts[0], "size is too deep");
    EXPECT_STREQ(texts[1], "size is too deep");
}

TEST(nex_Exception, PropagateThrowsTheMostDerivedClass)
{
    DepthError error("size");
    error.SetSource(SOURCE, 42);
    error.SetTraceback("in a.py");
    const KTLBasException& base = error;
    try
    {
        base.Propagate();
        FAIL() << "Propagate returned";
    }
    catch (const DepthError& caught)
    {
        EXPECT_NE(&caught, &error);
        EXPECT_EQ(caught.keyword_, "size");
        EXPECT_EQ(caught.GetTraceback(), "in a.py");
        EXPECT_EQ(caught.Line(), 42);
        EXPECT_EQ(caught.Identifier(), error.Identifier());
    }
}

template <class E>
class PropagateTest : public testing::Test
{};
using Propagating = testing::Types<KTLBasException, nex_Exception, nex_PrimException>;
TYPED_TEST_SUITE(PropagateTest, Propagating);

TYPED_TEST(PropagateTest, EachClassOfTheBaseThrowsAndCopiesItself)
{
    const TypeParam error(atr_String("text"), 12);
    const KTLBasException& base = error;
    try
    {
        base.Propagate();
    }
    catch (const KTLBasException& caught)
    {
        EXPECT_EQ(typeid(caught), typeid(TypeParam));
    }
    const std::unique_ptr<KTLBasException> copy(base.Copy());
    EXPECT_EQ(typeid(*copy), typeid(TypeParam));
    EXPECT_EQ(copy->GetCode(), 12);
    EXPECT_EQ(copy->DynTypeId(), TypeParam::TypeId());
}

TEST(nex_Exception, RangeAndInternalCopyThemselvesWithTheTypeIdTheyInherit)
{
    const nex_RangeException range(7, 3);
    const std::unique_ptr<KTLBasException> rangeCopy(static_cast<const KTLBasException&>(range).Copy());
    ASSERT_EQ(typeid(*rangeCopy), typeid(nex_RangeException));
    EXPECT_EQ(dynamic_cast<nex_RangeException&>(*rangeCopy).Index(), 7);
    EXPECT_EQ(rangeCopy->DynTypeId(), nex_Exception::TypeId());
    const nex_InternalException internal(atr_String("x"));
    const std::unique_ptr<KTLBasException> internalCopy(static_cast<const KTLBasException&>(internal).Copy());
    EXPECT_EQ(typeid(*internalCopy), typeid(nex_InternalException));
    EXPECT_EQ(internalCopy->DynTypeId(), nex_Exception::TypeId());
    EXPECT_THROW(static_cast<const KTLBasException&>(range).Propagate(), nex_RangeException);
    EXPECT_THROW(static_cast<const KTLBasException&>(internal).Propagate(), nex_InternalException);
}

TEST(nex_Exception, IdentifierIsFreshForEachFailureAndKeptByCopies)
{
    const nex_PrimException a(atr_String("x"));
    const nex_PrimException b(atr_String("x"));
    const nex_PrimException copy(a);
    EXPECT_NE(a.Identifier(), b.Identifier());
    EXPECT_EQ(a.Identifier(), copy.Identifier());
    EXPECT_FALSE(a.Identifier().IsNull());
}

TEST(nex_Raise, RangeTellsIndexAndLengthBeyondInt)
{
    const nex_RangeException error = RangeCaughtFrom([] { nex_RaiseRange(5000000000, 4294967296); });
    EXPECT_STREQ(error.what(), "index 5000000000 out of range, length 4294967296");
    EXPECT_EQ(error.Index(), 5000000000);
    EXPECT_EQ(error.Length(), 4294967296);
    EXPECT_EQ(error.Line(), 0);
}

TEST(nex_Raise, RangeRecordsItsCaller)
{
    const nex_RangeException error = RangeCaughtFrom([] { nex_RaiseRange(2, 2, SOURCE, 9); });
    EXPECT_EQ(error.DeveloperReport(), "nex_RangeException: index 2 out of range, length 2 "
                                       "(KTLOxuOmu.m/src/omu_Arguments, line 9)");
}

TEST(nex_Raise, RangeMessageIsTranslated)
{
    const Swapped catalogue;
    const atr_Catalogue* former = atr_InstallCatalogue(&catalogue);
    const nex_RangeException error(4, 3);
    atr_InstallCatalogue(former);
    EXPECT_EQ(error.UserReport(), "Laenge 3, Index 4");
}

TEST(nex_Raise, PrimAndInternalRecordSourceAndLine)
{
    try
    {
        nex_RaisePrim("Error: Illegal operation for type.", SOURCE, 3);
    }
    catch (const nex_PrimException& error)
    {
        EXPECT_EQ(error.UserReport(), "Error: Illegal operation for type.");
        EXPECT_EQ(error.Source(), SOURCE);
        EXPECT_EQ(error.Line(), 3);
    }
    try
    {
        nex_RaiseInternal("no %s here", SOURCE, 4);
    }
    catch (const nex_InternalException& error)
    {
        EXPECT_EQ(error.UserReport(), "no %s here") << "the text of an internal error is final";
        EXPECT_EQ(error.Source(), SOURCE);
        EXPECT_EQ(error.Line(), 4);
    }
}

TEST(nex_Raise, WithThrowsTheVeryClass)
{
    try
    {
        nex_Raise(DepthError("size"), SOURCE, 11);
    }
    catch (const std::exception& error)
    {
        const auto* depth = dynamic_cast<const DepthError*>(&error);
        ASSERT_NE(depth, nullptr);
        EXPECT_EQ(depth->Line(), 11);
        EXPECT_STREQ(error.what(), "size is too deep");
    }
}

TEST(nex_Persistence, CommandExceptionReadsBackWithItsMessage)
{
    DepthError error("size");
    error.SetSource(SOURCE, 42);
    error.SetTraceback("in a.py");
    error.SetCode(7);
    MemoryStore store;
    const int number = store.Write(error);
    EXPECT_EQ(store.At(number).parts.size(), 4u) << "three bases, each with a part of its own";
    EXPECT_EQ(store.Part(number, KTLBasException::TypeId()).Names(),
              "m_Message m_Code m_Source m_Line m_Traceback");
    EXPECT_EQ(store.LastPart(number).Names(), "m_Keyword");
    const DepthError back = store.Read<DepthError>(number);
    EXPECT_EQ(back.DeveloperReport(), error.DeveloperReport());
    EXPECT_EQ(back.GetCode(), 7);
    EXPECT_EQ(back.Identifier(), error.Identifier());
}

TEST(nex_Persistence, RangeExceptionIsWrittenAsTheExceptionThatItIs)
{
    MemoryStore store;
    const int number = store.WriteShared(std::make_unique<nex_RangeException>(3, 2).get());
    EXPECT_EQ(store.LastPart(number).typeId, nex_Exception::TypeId());
    EXPECT_EQ(store.Read<nex_Exception>(number).UserReport(), "index 3 out of range, length 2");
}

TEST(nex_Persistence, AbsentAttributesKeepTheDefaults)
{
    nex_PrimException error(atr_String("x"), 5);
    error.SetSource(SOURCE, 1);
    MemoryStore store;
    const int number = store.Write(error);
    store.Part(number, KTLBasException::TypeId()).attributes.clear();
    const nex_PrimException back = store.Read<nex_PrimException>(number);
    EXPECT_EQ(back.DeveloperReport(), "nex_PrimException: ");
    EXPECT_EQ(back.GetCode(), 0);
}

namespace
{
// Slot of a virtual function: under the Itanium ABI a pointer to it holds 1 plus its offset in the table.
template <class F>
std::size_t SlotOf(F function)
{
    std::size_t parts[2];
    static_assert(sizeof parts == sizeof function);
    std::memcpy(parts, &function, sizeof parts);
    return (parts[0] - 1) / sizeof(void*);
}
}

TEST(nex_VirtualOrder, IsTheOneThatCallersWereBuiltFor)
{
    // Two destructors and what() come first: std::exception's own.
    std::size_t slot = 3;
    EXPECT_EQ(SlotOf(&std::exception::what), slot - 1);
    EXPECT_EQ(SlotOf(&nex_CommandException::DeveloperReport), slot++);
    EXPECT_EQ(SlotOf(&nex_CommandException::UserReport), slot++);
    EXPECT_EQ(SlotOf(&nex_CommandException::AsString), slot++);
    EXPECT_EQ(SlotOf(&nex_CommandException::Propagate), slot++);
    EXPECT_EQ(SlotOf(&nex_CommandException::GetCode), slot++);
    EXPECT_EQ(SlotOf(&nex_CommandException::Copy), slot++);
    EXPECT_EQ(SlotOf(&nex_CommandException::DynTypeId), slot++);
    EXPECT_EQ(SlotOf(&nex_CommandException::DBWrite), slot++);
    EXPECT_EQ(SlotOf(&nex_CommandException::SetTraceback), slot++);
    EXPECT_EQ(SlotOf(&nex_CommandException::GetTraceback), slot++);
    EXPECT_EQ(SlotOf(&nex_CommandException::JournalMessage), slot++);
    EXPECT_EQ(SlotOf(&nex_CommandException::PythonType), slot++);
}
