#pragma once

/// What kind of value a result holds. The codes are stored: never renumber.
enum class res_DataTypeEnm {
    QUATERNION_2D = 6, ///< rotation in the plane, 2 components
    QUATERNION_3D = 7, ///< rotation in space, 4 components
    TENSOR_3D_FULL = 9,
    TENSOR_3D_PLANAR = 10,
    TENSOR_3D_SURFACE = 11,
    TENSOR_2D_PLANAR = 12,
    TENSOR_2D_SURFACE = 13,
};
