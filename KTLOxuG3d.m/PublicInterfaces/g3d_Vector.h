#pragma once

#include <g3d_Triple.h>

/// A free vector of the 3D view.
class OXU_EXPORT g3d_Vector : public g3d_Triple<g3d_Vector>
{
public:
    static constexpr const char* NAME = "g3d_Vector";
    static constexpr unsigned TypeId() noexcept { return cls_MakeTypeId(0x24, 1); }

    using g3d_Triple::g3d_Triple;
};

extern template class g3d_Triple<g3d_Vector>;
