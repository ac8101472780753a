#pragma once

#include <g3d_Triple.h>

/// A point of the 3D view.
class OXU_EXPORT g3d_Point : public g3d_Triple<g3d_Point>
{
public:
    static constexpr const char* NAME = "g3d_Point";
    static constexpr unsigned TypeId() noexcept { return cls_MakeTypeId(0x24, 2); }

    using g3d_Triple::g3d_Triple;
};

extern template class g3d_Triple<g3d_Point>;
