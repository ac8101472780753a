#include <algorithm>
#include <gsl_DirDistWork.h>
#include <limits>

gsl_TriTriDirDist::Work::Work(gsl_TriTriDirDist& owner)
    : fixedSource(owner, gsl_CornerSource::Role::FIXED),
      movableSource(owner, gsl_CornerSource::Role::MOVABLE),
      stage(gsl_TripleOf(owner.direction_), owner.pairTolerance_),
      clock(owner),
      // The nested search walks the fixed tree down to its maximum depth, and below every movable node again:
      // so all of them, unless it walks down none at all.
      search(fixedSource, {std::max(owner.maxDepth_, 1), owner.tolerance_}, movableSource,
             {owner.maxDepth_ > 1 ? std::numeric_limits<int>::max() : 1, 0.0})
{}

gsl_TriTriDirDist::Work::Pair gsl_TriTriDirDist::Work::FindContact()
{
    gsl_StageView pair[2];
    const int index[2] = {best.Fixed(), best.Movable()};
    gsl_CornerSource* const source[2] = {&fixedSource, &movableSource};
    for (int i = 0; i < 2; ++i)
    {
        gsl_Triple corners[3];
        gsl_Triple normal;
        source[i]->Fetch(index[i], corners);
        (void)source[i]->Normal(corners, normal);
        pair[i] = stage.View(stage.Prepare(corners, normal));
    }
    return {index[0], index[1], stage.Span(pair[1], pair[0]).Place()};
}

gsl_Triangle gsl_TriTriDirDist::Work::FetchTriangle(gsl_CornerSource& source, int index)
{
    gsl_Triple corners[3];
    source.Fetch(index, corners);
    const auto point = [](const gsl_Triple& p) { return gsl_Point(p.x, p.y, p.z); };
    return {point(corners[0]), point(corners[1]), point(corners[2])};
}

gsl_TriTriDirDist::Work::Prepared::Prepared(const gsl_PairStage& stage, const gsl_Triangle& triangle,
                                            const gsl_Vector& normal)
{
    for (int i = 0; i < 3; ++i)
    {
        corners[i] = gsl_TripleOf(triangle.Point(i));
    }
    triangle.GetExtent(box.low, box.high);
    light = stage.Prepare(corners, gsl_TripleOf(normal));
    view = stage.View(light);
    light.view = &view;
}
