#pragma once

#include <annC_Anchor.h>
#include <cow_String.h>
#include <omu_Arguments.h>
#include <omu_PrimEnum.h>

/// Reads the optional properties of annotations from a command's arguments. What is not given stays as it is.
class annC_ArgumentReader
{
public:
    explicit annC_ArgumentReader(omu_Arguments& arguments) : arguments_(arguments) {}

    template <class T>
    void Read(const char* keyword, T& value)
    {
        if constexpr (std::is_enum_v<T>)
        {
            omu_PrimEnum<T, 1> constant(value);
            arguments_.Get(constant, keyword);
            value = constant;
        }
        else
            arguments_.Get(value, keyword);
    }
    /// A tuple of two floats.
    void ReadPoint(const char* keyword, double& x, double& y);
    /// A position's symbolic constant, or a tuple of two floats (a point of the viewport) or three (of the
    /// model).
    void ReadAnchor(const char* keyword, annC_AnchorCow& anchor);
    /// A text that the annotation client knows as a colour; it raises an error of its own for any other.
    void ReadColor(const char* keyword, cow_String& color);

private:
    /// A sequence of so many floats; false when none was given.
    bool ReadFloats(const char* keyword, int least, int most, cow_List<double>& values);

    omu_Arguments& arguments_;
};
