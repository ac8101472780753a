#pragma once

#include "DirDistParts.h"

#ifdef ORVEX_HAVE_FCL
#include <fcl/geometry/bvh/BVH_model.h>
#include <fcl/math/bv/OBBRSS.h>
#include <fcl/narrowphase/continuous_collision.h>
#include <memory>
#endif

namespace bench_parts
{
#ifdef ORVEX_HAVE_FCL
/// The same question to FCL: conservative advancement of a translation by `reach`, between two trees of
/// oriented boxes that are built beforehand.
class FclTravel
{
public:
    FclTravel(const Case& parts, double reach)
        : fixed_(Model(parts.fixed)),
          movable_(Model(parts.movable)),
          reach_(reach),
          direction_(parts.direction[0], parts.direction[1], parts.direction[2])
    {
        direction_.normalize();
    }

    /// The travel, or a negative number where FCL sees no contact.
    double Find() const
    {
        fcl::Transform3d from = fcl::Transform3d::Identity();
        fcl::Transform3d to = from;
        to.translation() = direction_ * reach_;
        const fcl::ContinuousCollisionRequestd request(10000, 1e-6, fcl::CCDM_TRANS, fcl::GST_LIBCCD,
                                                       fcl::CCDC_CONSERVATIVE_ADVANCEMENT);
        fcl::ContinuousCollisionResultd result;
        fcl::continuousCollide(movable_.get(), from, to, fixed_.get(), from, from, request, result);
        return result.is_collide ? result.time_of_contact * reach_ : -1.0;
    }

private:
    using Bvh = fcl::BVHModel<fcl::OBBRSSd>;

    static std::shared_ptr<Bvh> Model(const Mesh& mesh)
    {
        const auto at = [](const Point& p) { return fcl::Vector3d(p[0], p[1], p[2]); };
        auto model = std::make_shared<Bvh>();
        model->beginModel(static_cast<int>(mesh.size()), 3 * static_cast<int>(mesh.size()));
        for (const Triangle& t : mesh)
            model->addTriangle(at(t[0]), at(t[1]), at(t[2]));
        model->endModel();
        return model;
    }

    std::shared_ptr<Bvh> fixed_;
    std::shared_ptr<Bvh> movable_;
    double reach_;
    fcl::Vector3d direction_;
};
#endif
}
