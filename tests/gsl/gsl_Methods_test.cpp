// The definition methods as scripts and stored data see them: names, values and their order.
#include <gsl_DirMethod.h>
#include <gsl_DotMethod.h>
#include <gsl_LineMethod.h>
#include <testing/EnumTableTest.h>

namespace
{
template <class Method, const auto& NAMES>
struct Names
{
    using Constant = omu_PrimEnum<Method, 1>;
    using Value = Method;
    static constexpr bool ANY_CASE = true;
    static std::vector<omu_EnumEntry> Rows()
    {
        std::vector<omu_EnumEntry> rows;
        for (const char* name : NAMES)
            rows.push_back({name, static_cast<int>(rows.size())}); // they count from 0
        return rows;
    }
};

constexpr const char* DIR[] = {"FROM_POINT_VECTOR", "FROM_FACE", "FROM_DATUM_PLANE", "FROM_ELEM_FACE",
                               "PLANE_INVALID"};
constexpr const char* LINE[] = {"FROM_PNT_VECTOR", "FROM_EDGE",    "FROM_REVFACE",   "FROM_DATUM_AXIS",
                                "FROM_ELEM_EDGE",  "FROM_PNT_PNT", "STLINE_INVALID", "FROM_DATUM_CSYS"};
constexpr const char* DOT[] = {"gsl_FROM_POINT",
                               "gsl_FROM_VERTEX",
                               "gsl_FROM_DATUM_POINT",
                               "gsl_FROM_EDGE_PARAM",
                               "gsl_FROM_FACE_DIM",
                               "gsl_FROM_EDGE_VTX",
                               "gsl_FROM_FACE_VTX",
                               "gsl_FROM_IP_VTX_ONTO_EDGE",
                               "gsl_FROM_IP_CENTER_OF_EDGE",
                               "gsl_FROM_IP_MIDPT_OF_EDGE",
                               "gsl_FROM_NODE",
                               "gsl_DOT_INVALID",
                               "gsl_FROM_DATUM_CSYS_ORIGIN"};

using Methods =
    testing::Types<Names<gsl_DirMethod, DIR>, Names<gsl_LineMethod, LINE>, Names<gsl_DotMethod, DOT>>;
INSTANTIATE_TYPED_TEST_SUITE_P(Gsl, EnumTable, Methods);
}
