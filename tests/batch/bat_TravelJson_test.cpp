#include <bat_TravelJson.h>
#include <bat_TravelResult.h>
#include <bat_TravelText.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using testing::HasSubstr;

namespace
{
bat_TravelResult Contact()
{
    bat_TravelResult result;
    result.state = bat_TravelResult::State::CONTACT;
    result.travel = 0.1 + 0.2;
    result.bound = 2.5;
    result.tolerance = 1e-6;
    result.direction = gsl_Vector(0.0, 0.6, -0.8);
    result.fixed = {
        "wall.stl", 1234, gsl_BBox(gsl_Point(0, 0, 0), gsl_Point(1, 2, 0)), 17, {1.0, -0.0, 1e-300}};
    result.movable = {"pin.off", 1, gsl_BBox(gsl_Point(-1, 0, 0), gsl_Point(1, 0.5, 3)), 0, {1.0, 2.0, 3.5}};
    result.degenerate = 2;
    result.outside = 1;
    return result;
}

void MakeClear(bat_TravelResult& result)
{
    result.state = bat_TravelResult::State::CLEAR;
    result.fixed.triangle = -1;
    result.movable.triangle = -1;
}

TEST(TravelJson, KeysStandInOrderNumbersAreShortestAndWhatThereIsNotIsNull)
{
    bat_TravelResult result = Contact();
    EXPECT_THAT(
        bat_TravelJson(result),
        testing::StartsWith(
            R"({"schema":"orvex.travel/1","state":"contact","travel":0.30000000000000004,"bound":2.5,)"
            R"("tolerance":1e-06,"direction":[0,0.6,-0.8],)"
            R"("fixed":{"file":"wall.stl","triangles":1234,"triangle":17,"point":[1,0,1e-300]},)"
            R"("movable":{"file":"pin.off","triangles":1,"triangle":0,"point":[1,2,3.5]},)"
            R"("skipped":{"degenerate":2,"outside":1},"version":")"));
    result.picture = "a \"b\".svg";
    EXPECT_THAT(bat_TravelJson(result), HasSubstr(R"("outside":1},"picture":"a \"b\".svg","version":")"));
    MakeClear(result);
    result.bound = bat_TravelResult::UNLIMITED;
    EXPECT_THAT(bat_TravelJson(result), HasSubstr(R"("travel":null,"bound":null,)"));
    EXPECT_THAT(bat_TravelJson(result), HasSubstr(R"("triangles":1,"triangle":null,"point":null})"));
    for (const auto& [name, read] : {std::pair{"a \"b\".stl", "a \"b\".stl"},
                                     {"new\nline\033", "new\nline\033"},
                                     {"broken \xFF utf", "broken \xEF\xBF\xBD utf"}})
    {
        result.fixed.file = name;
        const std::string line = bat_TravelJson(result);
        EXPECT_EQ(line.find('\n'), std::string::npos);
        EXPECT_EQ(nlohmann::json::parse(line).at("fixed").at("file"), read);
    }
}

TEST(TravelText, StatesForPeople)
{
    bat_TravelResult result = Contact();
    EXPECT_EQ(bat_TravelText(result), "travel    0.3 along (0, 0.6, -0.8)\n"
                                      "state     contact: the movable part goes that far, then touches\n"
                                      "fixed     wall.stl, triangle 17 of 1 234 at (1, 0, 1e-300)\n"
                                      "movable   pin.off, triangle 0 of 1 at (1, 2, 3.5) before the travel\n"
                                      "sizes     fixed 1 x 2 x 0, movable 2 x 0.5 x 3\n"
                                      "skipped   2 degenerate triangles\n"
                                      "skipped   1 triangle outside the trees\n");
    result.state = bat_TravelResult::State::TOUCHING;
    EXPECT_THAT(bat_TravelText(result), HasSubstr("touch where they stand, without crossing\nfixed"));
    EXPECT_THAT(bat_TravelText(result), HasSubstr("at (1, 2, 3.5)\n"));
    result.state = bat_TravelResult::State::OVERLAPPING;
    EXPECT_THAT(bat_TravelText(result),
                HasSubstr("overlapping: the parts cross each other where they stand"));
    MakeClear(result);
    result.degenerate = 0;
    result.outside = 0;
    EXPECT_EQ(bat_TravelText(result), "travel    2.5, the bound, along (0, 0.6, -0.8)\n"
                                      "state     clear: no contact on the way\n"
                                      "fixed     wall.stl, 1 234 triangles\n"
                                      "movable   pin.off, 1 triangle\n"
                                      "sizes     fixed 1 x 2 x 0, movable 2 x 0.5 x 3\n");
    result.bound = bat_TravelResult::UNLIMITED;
    EXPECT_THAT(bat_TravelText(result), testing::StartsWith("travel    unlimited along (0, 0.6, -0.8)\ns"));
}
}
