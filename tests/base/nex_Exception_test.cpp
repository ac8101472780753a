#include <gtest/gtest.h>
#include <nex_CommandException.h>
#include <nex_InternalException.h>
#include <nex_PrimException.h>
#include <nex_Raise.h>
#include <nex_RaiseWith.h>
#include <nex_RangeException.h>

#include <functional>
#include <memory>
#include <testing/MemoryStore.h>
#include <thread>

namespace
{
// A command exception as modules write them: fields, a message made of them on demand.
class DepthError : public nex_CommandException
{
public:
    explicit DepthError(const cow_String& keyword) : keyword_(keyword) {}
    void Propagate() const override { throw *this; }
    DepthError* Copy() const override { return new DepthError(*this); }
    cow_String JournalMessage() const override
    {
        return keyword_ == "memory" ? throw std::bad_alloc() : keyword_ + " is too deep";
    }
    const char* PythonType() const override { return "TypeError"; }

    cow_String keyword_;
};

// Every kind of exception tells its text, class, source and line, is thrown as itself and copied.
TEST(nex_Exception, ReportsAgreeInEveryFormAndInWhatIsCopiedAndThrown)
{
    using Raise = std::function<void()>;
    const std::tuple<Raise, const std::type_info&, const char*, const char*, unsigned> rows[] = {
        {[] { nex_RaisePrim("100%% wrong", "src", 3); }, typeid(nex_PrimException), "100% wrong",
         "nex_PrimException: 100% wrong (src, line 3)", 0x1F0004},
        {[] { nex_RaiseRange(-1, 5000000000); }, typeid(nex_RangeException),
         "index -1 out of range, length 5000000000",
         "nex_RangeException: index -1 out of range, length 5000000000", 0x1F0002},
        // The text of an internal error is final.
        {[] { nex_RaiseInternal("100%% %s", "src", 4); }, typeid(nex_InternalException), "100%% %s",
         "nex_InternalException: 100%% %s (src, line 4)", 0x1F0002},
        {[] { nex_Raise(DepthError("size"), "%s/src", 11); }, typeid(DepthError), "size is too deep",
         "TypeError: size is too deep (%s/src, line 11)", 0x1F0003}};
    for (const auto& [raise, type, user, developer, typeId] : rows)
    {
        std::unique_ptr<KTLBasException> error;
        for (const Raise& next : {raise, Raise([&] { error->Propagate(); })})
            try
            {
                next();
                ADD_FAILURE() << "nothing was raised";
            }
            catch (const KTLBasException& caught)
            {
                EXPECT_TRUE(typeid(caught) == type) << user;
                EXPECT_STREQ(caught.what(), user);
                EXPECT_EQ(caught.DeveloperReport(), developer);
                EXPECT_EQ(caught.DynTypeId(), typeId);
                EXPECT_TRUE(error == nullptr || error->Identifier() == caught.Identifier());
                error.reset(caught.Copy());
            }
    }
}

TEST(nex_Exception, WhatStaysValidWhileFieldsChangeAndInCopies)
{
    auto error = std::make_unique<DepthError>("first");
    const char* first = error->what();
    error->keyword_ = "second";
    EXPECT_STREQ(error->what(), "second is too deep");
    EXPECT_STREQ(first, "first is too deep");
    const DepthError copy(*error);
    const char* text = nullptr;
    std::thread other([&] { text = copy.what(); });
    EXPECT_STREQ(copy.what(), "second is too deep");
    other.join();
    error.reset();
    EXPECT_STREQ(text, "second is too deep");
    EXPECT_STREQ(DepthError("memory").what(), "the message of an exception could not be composed");
}

TEST(nex_Persistence, AnExceptionComesBackWithItsMessageAndWhereItCameFrom)
{
    nex_PrimException error(atr_String("Error: Cannot coerce."), 3);
    error.SetSource("src", 12);
    error.SetTraceback("in a.py");
    MemoryStore store;
    const int number = store.Write(error);
    EXPECT_EQ(store.Describe(number), "0x1f0001\n"
                                      "  m_Message MESSAGE 'Error: Cannot coerce.'\n"
                                      "  m_Code INT 3\n"
                                      "  m_Source STRING 'src'\n"
                                      "  m_Line INT 12\n"
                                      "  m_Traceback STRING 'in a.py'\n"
                                      "0x1f0002\n0x1f0004\n");
    const auto back = store.Read<nex_PrimException>(number);
    EXPECT_EQ(back.DeveloperReport(), "nex_PrimException: Error: Cannot coerce. (src, line 12)\nin a.py");
    EXPECT_EQ(back.Identifier(), error.Identifier());
}
}
