#include <annC_AnnotationClient.h>
#include <annC_ArgumentReader.h>
#include <annC_NamedAnchor.h>
#include <annC_Point3DAnchor.h>
#include <annC_ViewportAnchor.h>

namespace
{
constexpr const char* FLOATS = "sequence of Floats";
}

void annC_ArgumentReader::ReadPoint(const char* keyword, double& x, double& y)
{
    cow_List<double> values;
    if (!ReadFloats(keyword, 2, 2, values))
        return;
    x = values.Get(0);
    y = values.Get(1);
}

void annC_ArgumentReader::ReadAnchor(const char* keyword, annC_AnchorCow& anchor)
{
    omu_PrimEnum<annC_RelativePositionEnm, 1> position;
    if (arguments_.Get(position, keyword))
    {
        anchor = annC_AnchorCow(new annC_NamedAnchor(position));
        return;
    }
    if (!arguments_.Alternative())
        return;
    cow_List<double> values;
    if (!ReadFloats(keyword, 2, 3, values))
        return;
    if (values.Length() == 2)
        anchor = annC_AnchorCow(new annC_ViewportAnchor(values.Get(0), values.Get(1)));
    else
        anchor = annC_AnchorCow(new annC_Point3DAnchor(values.Get(0), values.Get(1), values.Get(2)));
}

void annC_ArgumentReader::ReadColor(const char* keyword, cow_String& color)
{
    cow_String given;
    if (!arguments_.Get(given, keyword))
        return;
    annC_AnnotationClient::Instance().VerifyColorValue(given);
    color = given;
}

bool annC_ArgumentReader::ReadFloats(const char* keyword, int least, int most, cow_List<double>& values)
{
    if (!arguments_.Get(values, keyword))
        return false;
    if (values.Length() >= least && values.Length() <= most)
        return true;
    arguments_.Refuse(FLOATS, keyword);
    return false;
}
