#include <cls_ReadVisitor.h>
#include <cls_WriteVisitor.h>
#include <gtest/gtest.h>
#include <nex_CommandException.h>
#include <nex_InternalException.h>
#include <nex_PrimException.h>
#include <nex_Raise.h>
#include <nex_RaiseWith.h>
#include <nex_RangeException.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <testing/MemoryStore.h>
#include <thread>

namespace
{
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

struct ReportRow
{
    const char* what;
    std::shared_ptr<const KTLBasException> error;
    const char* user;
    const char* asString;
    unsigned typeId; ///< range and internal errors have the one that they inherit
};

const ReportRow REPORTS[] = {
    {"Base", std::make_shared<KTLBasException>(atr_String("broken")), "broken", "KTLBasException: broken",
     0x1F0001},
    {"Exception", std::make_shared<nex_Exception>(atr_String("broken")), "broken", "nex_Exception: broken",
     0x1F0002},
    {"Prim", std::make_shared<nex_PrimException>(atr_String("Error: Cannot coerce.")),
     "Error: Cannot coerce.", "nex_PrimException: Error: Cannot coerce.", 0x1F0004},
    {"Range", std::make_shared<nex_RangeException>(-1, 5000000000),
     "index -1 out of range, length 5000000000",
     "nex_RangeException: index -1 out of range, length 5000000000", 0x1F0002},
    {"Internal", std::make_shared<nex_InternalException>(atr_String("100% wrong")), "100% wrong",
     "nex_InternalException: 100% wrong", 0x1F0002},
    {"Command", std::make_shared<DepthError>("size"), "size is too deep", "TypeError: size is too deep",
     0x7E010001},
    {"Empty", std::make_shared<nex_PrimException>(), "", "nex_PrimException: ", 0x1F0004}};

void ExpectAgrees(const KTLBasException& error, const ReportRow& row)
{
    EXPECT_EQ(typeid(error), typeid(*row.error));
    EXPECT_EQ(error.UserReport(), row.user);
    EXPECT_STREQ(error.what(), row.user);
    EXPECT_EQ(error.AsString(), row.asString);
    EXPECT_EQ(error.DeveloperReport(), row.asString) << "nothing is known of source and traceback";
}

TEST(nex_Exception, ReportsAgreeInEveryFormAndInWhatIsCopiedAndThrown)
{
    for (const ReportRow& row : REPORTS)
    {
        SCOPED_TRACE(row.what);
        const std::unique_ptr<KTLBasException> copy(row.error->Copy());
        copy->SetCode(12);
        const std::unique_ptr<KTLBasException> again(copy->Copy());
        EXPECT_EQ(again->GetCode(), 12);
        EXPECT_EQ(again->Identifier(), row.error->Identifier()) << "a copy is the same failure";
        EXPECT_EQ(again->DynTypeId(), row.typeId);
        ExpectAgrees(*row.error, row);
        ExpectAgrees(*again, row);
        try
        {
            row.error->Propagate();
            ADD_FAILURE() << "Propagate returned";
        }
        catch (const KTLBasException& caught)
        {
            EXPECT_NE(&caught, row.error.get());
            ExpectAgrees(caught, row);
        }
    }
}

TEST(nex_Exception, DeveloperReportTellsSourceLineAndTraceback)
{
    DepthError error("size");
    error.SetSource("%s/omu_Arguments", 42);
    EXPECT_EQ(error.DeveloperReport(), "TypeError: size is too deep (%s/omu_Arguments, line 42)");
    error.SetTraceback("in a.py\nin b.py");
    EXPECT_EQ(error.DeveloperReport(),
              "TypeError: size is too deep (%s/omu_Arguments, line 42)\nin a.py\nin b.py");
    EXPECT_EQ(error.UserReport(), "size is too deep");
    EXPECT_NE(error.Identifier(), DepthError("size").Identifier()) << "each failure has its own";
}

TEST(nex_Exception, WhatStaysValidWhileFieldsChangeAndInCopies)
{
    auto error = std::make_unique<DepthError>("first");
    const char* first = error->what();
    error->keyword_ = "second";
    EXPECT_STREQ(error->what(), "second is too deep");
    EXPECT_STREQ(first, "first is too deep");
    error->keyword_ = "first";
    EXPECT_EQ(error->what(), first) << "a text given out before is not kept twice";
    const DepthError copy(*error);
    const char* text = nullptr;
    std::thread other([&] { text = copy.what(); });
    EXPECT_STREQ(copy.what(), "first is too deep");
    other.join();
    error.reset();
    EXPECT_STREQ(text, "first is too deep");
    EXPECT_STREQ(UnspeakableError().what(), "the message of an exception could not be composed");
}

// The text, then the source and line.
template <class E>
std::string ReportOf(const std::function<void()>& raise)
{
    try
    {
        raise();
    }
    catch (const E& error)
    {
        EXPECT_EQ(typeid(error), typeid(E));
        return error.DeveloperReport().AsCharPtr();
    }
    return "nothing was raised";
}

TEST(nex_Raise, RecordsSourceAndLine)
{
    EXPECT_EQ(ReportOf<nex_RangeException>([] { nex_RaiseRange(2, 2); }),
              "nex_RangeException: index 2 out of range, length 2");
    EXPECT_EQ(ReportOf<nex_RangeException>([] { nex_RaiseRange(2, 2, "source", 9); }),
              "nex_RangeException: index 2 out of range, length 2 (source, line 9)");
    EXPECT_EQ(ReportOf<nex_PrimException>([] { nex_RaisePrim("100%% wrong", "source", 3); }),
              "nex_PrimException: 100% wrong (source, line 3)");
    EXPECT_EQ(ReportOf<nex_InternalException>([] { nex_RaiseInternal("100%% %s", "source", 4); }),
              "nex_InternalException: 100%% %s (source, line 4)")
        << "the text of an internal error is final";
    EXPECT_EQ(ReportOf<DepthError>([] { nex_Raise(DepthError("size"), "source", 11); }),
              "TypeError: size is too deep (source, line 11)");
}

TEST(nex_Persistence, ExceptionsComeBackWithTheirMessages)
{
    DepthError error("size");
    error.SetSource("source", 42);
    error.SetTraceback("in a.py");
    error.SetCode(7);
    MemoryStore store;
    const int number = store.Write(error);
    EXPECT_EQ(store.At(number).parts.size(), 4u) << "three bases, each with a part of its own";
    EXPECT_EQ(store.LastPart(number).Names(), "m_Keyword");
    const auto back = store.Read<DepthError>(number);
    EXPECT_EQ(back.DeveloperReport(), error.DeveloperReport());
    EXPECT_EQ(back.GetCode(), 7);
    EXPECT_EQ(back.Identifier(), error.Identifier());
    store.Part(number, KTLBasException::TypeId()).attributes.clear();
    const auto bare = store.Read<DepthError>(number);
    EXPECT_EQ(bare.DeveloperReport(), "TypeError: size is too deep");
    EXPECT_EQ(bare.GetCode(), 0);

    const nex_RangeException range(3, 2);
    const int plain = store.WriteShared(&range);
    EXPECT_EQ(store.Read<nex_Exception>(plain).AsString(), "nex_Exception: index 3 out of range, length 2");
}
}
