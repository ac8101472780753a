// `orvex color` and `orvex memento`, run inside this process.

#include <annC_AnnotationContainer.h>
#include <annC_Text.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <idb_MementoWrite.h>
#include <nlohmann/json.hpp>
#include <testing/DriverOutcome.h>
#include <testing/LibraryGuard.h>
#include <testing/MementoMaker.h>
#include <testing/ScratchFolder.h>

using testing::HasSubstr;

namespace
{
TEST(Color, WhatIsShown)
{
    EXPECT_EQ(DriverOutcome({"color", "Sky", "blue", "--json"}),
              R"(0
{"schema":"orvex.color/1","colors":[{"name":"Sky blue","hex":"#00CCFF","rgb":[0.0,0.8,1.0],)"
              R"("bytes":[0,204,255],"hsv":[0.5333333,1.0,1.0]}]}
)");
    EXPECT_EQ(DriverOutcome({"color", "#12G"}),
              "0\nname      #12G\nhex       #120000\nrgb       0.07058824, 0, 0\nbytes     18, 0, 0\n"
              "hsv       0, 1, 0.07058824\n"
              "orvex: note: #12G is not # and six hexadecimal digits: read as far as it goes\n");
    const std::string list = DriverOutcome({"color", "--list"});
    EXPECT_THAT(list, testing::StartsWith("0\n#000000  Black\n#FFFFFF  White\n#FF0000  Red\n"));
    EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 29);
}

TEST(Color, WhatIsRefused)
{
    EXPECT_EQ(DriverOutcome({"color", "sky\033blue"}),
              "3\norvex: sky?blue is not a valid color name. Did you mean \"Sky blue\"?\n");
    EXPECT_EQ(DriverOutcome({"color"}), "2\norvex: a name or --list is required (see orvex color --help)\n");
}

class Memento : public testing::Test
{
protected:
    void Write(const Bytes& bytes) const
    {
        folder_.Write("a.oxm", std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
    }

    const LibraryGuard library_;
    const ScratchFolder folder_;
    const std::string file_ = folder_ / "a.oxm";
};

TEST_F(Memento, WhatIsListed)
{
    annC_AnnotationContainer annotations;
    for (const char* name : {"a", "b"})
        annotations.Insert(name, annC_Text());
    idb_MementoWrite memento{cow_String(std::string_view(file_))};
    memento.Add("annotations", annotations);
    memento.Finish();

    const std::string text = DriverOutcome({"memento", file_});
    EXPECT_THAT(text, testing::StartsWith("0\nfile      " + file_ + ", 2 "));
    EXPECT_THAT(text, HasSubstr("objects   7\nroot      annotations: object 7 of class "
                                "annC_AnnotationContainer\n\n"
                                "class                     version  parent           objects       bytes\n"));
    EXPECT_THAT(text, HasSubstr("annC_Text                     437  annC_Annotation        2 "));
    const auto json = nlohmann::json::parse(DriverOutcome({"memento", file_, "--json"}).substr(2));
    EXPECT_EQ(json["roots"][0]["class"], json["classes"][2]["name"]);
}

TEST_F(Memento, WhatIsOddIsAWarningAndWhatIsDamagedRefused)
{
    MementoMaker maker;
    maker.Class(annC_Text::TypeId(), "annC_Text", 9999, annC_Annotation::TypeId(), {});
    maker.Class(0x7770001, "xyz_\033Later", 1, 0x7770002, {});
    maker.Object(1, {{1, {}}});
    maker.Root("a", 1);
    maker.Root("none", 0);
    maker.Section("XTRA", 0, {});
    Bytes bytes = maker.Make();
    Write(bytes);
    const std::string text = DriverOutcome({"memento", file_});
    EXPECT_THAT(text, HasSubstr("root      a: object 1 of class xyz_?Later\nroot      none: nothing\n"));
    for (const char* odd : {"XTRA", "annC_Text", "class xyz_.Later .0x7770001. is not known"})
        EXPECT_THAT(text, testing::ContainsRegex(std::string("\nwarning   [^\n]*") + odd));

    bytes[50] ^= 1;
    Write(bytes);
    EXPECT_EQ(DriverOutcome({"memento", file_}),
              "3\norvex: " + file_ + ": checksum mismatch in section CLAS at byte 28\n");
    EXPECT_EQ(DriverOutcome({"memento", file_ + "x"}),
              "3\norvex: cannot read " + file_ + "x: No such file or directory\n");
}
}
