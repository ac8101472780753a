#include <algorithm>
#include <cstdio>
#include <gsl_BBox.h>
#include <gsl_DirDistWork.h>
#include <gsl_Extent.h>
#include <gsl_Plane.h>
#include <gsl_StLine.h>
#include <gsl_TracePrint.h>
#include <gsl_TriOctreeNode.h>
#include <gsl_TriTriDirDist.h>
#include <gsl_Triangle.h>
#include <gsl_Util.h>
#include <gsl_ViewFrame.h>
#include <limits>
#include <omu_EnvSwitches.h>
#include <vector>

namespace
{
constexpr const char* DEBUG_FILE = "TriTriDirDist.dat";

FILE* OpenDebugFile()
{
    return omu_EnvSwitches::TraceDirectionalDistance() ? std::fopen(DEBUG_FILE, "w") : nullptr;
}

// What a pair of triangles may cost the nested search, in the clock's units.
constexpr int PAIR_UNITS = 16;

// The plane through a triangle's first corner. The normal is the one that it had before it may have been
// reversed, turned with it: so its digits do not depend on that.
gsl_Plane PlaneOf(const gsl_Triangle& triangle, gsl_Vector normal)
{
    if (triangle.Normal().DotProduct(normal) < 0.0)
    {
        normal.Negate();
    }
    return {triangle.Point(0), normal};
}

// Calls visit(node) for all that is below a node, level by level, until it answers false. depth counts the
// levels, that of the node itself being the first.
template <class Visit>
void VisitBelow(const gsl_TriOctreeNode& top, int depth, Visit visit)
{
    std::vector<const gsl_TriOctreeNode*> generation{&top};
    for (int level = 1; level < depth && !generation.empty(); ++level)
    {
        std::vector<const gsl_TriOctreeNode*> next;
        for (const gsl_TriOctreeNode* node : generation)
        {
            for (int slot = 0; slot < node->GetChildCount(); ++slot)
            {
                const gsl_TriOctreeNode* child = node->Child(slot);
                if (child == nullptr)
                {
                    continue;
                }
                if (!visit(*child))
                {
                    return;
                }
                next.push_back(child);
            }
        }
        generation.swap(next);
    }
}

bool Lower(const gsl_TravelSpan& span, double tolerance, double& distance)
{
    double travel = 0.0;
    if (!span.Ahead(tolerance, travel) || !(travel < distance))
    {
        return false;
    }
    distance = travel;
    return true;
}
}

gsl_TriTriDirDist::gsl_TriTriDirDist(int maxDepth)
    : direction_(0.0, 0.0, 1.0),
      maxDepth_(maxDepth),
      degenerateArea_(gsl_Util::Instance().ParallelTolerance()),
      tolerance_(gsl_Util::Instance().LinearTolerance()),
      pairTolerance_(tolerance_),
      tolerancePlusOne_(tolerance_ + 1.0)
{
    direction_.ComputeMagnitude();
    work_ = std::make_unique<Work>(*this);
    debug_ = OpenDebugFile();
}

gsl_TriTriDirDist::~gsl_TriTriDirDist()
{
    if (debug_ != nullptr)
    {
        std::fclose(debug_);
    }
}

bool gsl_TriTriDirDist::Proceed(double)
{
    return true;
}

bool gsl_TriTriDirDist::SetDirection(const gsl_Vector& direction)
{
    if (!gsl_ViewFrame::Unit(direction, direction_))
    {
        return false;
    }
    work_->stage = gsl_PairStage(gsl_TripleOf(direction_), pairTolerance_);
    return true;
}

void gsl_TriTriDirDist::SetFixedTransform(const gsl_Matrix& transform)
{
    fixedTransform_ = transform;
    work_->fixedSource.SetTransform(transform);
}

bool gsl_TriTriDirDist::FindDirectionalDistance(const gsl_TriOctreeNode& fixedRoot,
                                                const gsl_TriOctreeNode& movableRoot, double& distance)
{
    return Search(fixedRoot, movableRoot, IsTracing(), distance);
}

bool gsl_TriTriDirDist::FindDirectionalDistanceNested(const gsl_TriOctreeNode& fixedRoot,
                                                      const gsl_TriOctreeNode& movableRoot, double& distance)
{
    return Search(fixedRoot, movableRoot, true, distance);
}

bool gsl_TriTriDirDist::Search(const gsl_TriOctreeNode& fixedRoot, const gsl_TriOctreeNode& movableRoot,
                               bool nested, double& distance)
{
    // What the last search left goes first, so that nothing of it is taken for this one's if a look-up
    // throws.
    Work& work = *work_;
    work.best.Reset(distance);
    work.last.reset();
    work.fixedSource.Begin();
    work.movableSource.Begin();
    const gsl_ProceedClock::Run run(work.clock);
    if (work.clock.Stopped())
    {
        return false;
    }
    if (nested)
    {
        double lowered = distance;
        SearchNested(fixedRoot, movableRoot, lowered);
    }
    else if (CheckBBoxes(fixedRoot, movableRoot, distance))
    {
        work.search.Run(fixedRoot, movableRoot, work.stage, work.clock, work.best);
        Count(work.search.FixedHanded(), work.search.MovableHanded());
    }
    if (work.clock.Stopped() || !work.best.Found())
    {
        return false;
    }
    work.last = work.FindContact();
    distance = work.best.Travel();
    return true;
}

bool gsl_TriTriDirDist::LastPair(int& fixed, int& movable) const noexcept
{
    if (!work_->last)
    {
        return false;
    }
    fixed = work_->last->fixed;
    movable = work_->last->movable;
    return true;
}

bool gsl_TriTriDirDist::LastContact(gsl_Point& onFixed, gsl_Point& onMovable) const
{
    if (!work_->last)
    {
        return false;
    }
    const gsl_TravelSpan::Contact& contact = work_->last->contact;
    onFixed.Set(contact.onFixed.x, contact.onFixed.y, contact.onFixed.z);
    onMovable.Set(contact.onMovable.x, contact.onMovable.y, contact.onMovable.z);
    return true;
}

void gsl_TriTriDirDist::Count(long long fixed, long long movable) noexcept
{
    const auto add = [](int& counter, long long more) {
        const long long sum = counter + more;
        counter = static_cast<int>(std::min<long long>(sum, std::numeric_limits<int>::max()));
    };
    add(fixedTriangleCount_, fixed);
    add(movableTriangleCount_, movable);
}

bool gsl_TriTriDirDist::SearchNested(const gsl_TriOctreeNode& fixedRoot, const gsl_TriOctreeNode& movableRoot,
                                     double& distance)
{
    if (!CheckBBoxes(fixedRoot, movableRoot, distance))
    {
        return false;
    }
    bool found = RecursiveFindDirDist(fixedRoot, movableRoot, true, distance);
    double looked = fixedRoot.Triangles().Length();
    VisitBelow(fixedRoot, maxDepth_, [&](const gsl_TriOctreeNode& child) {
        if (work_->clock.Stopped())
        {
            return false;
        }
        found = RecursiveFindDirDist(child, movableRoot, false, distance) || found;
        looked += child.Triangles().Length();
        work_->clock.SetDone(looked / fixedRoot.TriangleCount());
        return true;
    });
    if (found && debug_ != nullptr)
    {
        gsl_TracePrint(debug_, "  Distance: %lf\n", {distance});
    }
    return found;
}

bool gsl_TriTriDirDist::RecursiveFindDirDist(const gsl_TriOctreeNode& fixed, const gsl_TriOctreeNode& movable,
                                             bool skipBoxCheck, double& distance)
{
    if (fixed.IsEmpty() || movable.IsEmpty() || (!skipBoxCheck && !CheckBBoxes(fixed, movable, distance)))
    {
        return false;
    }
    bool found = FindDirDistUsingTriangles(fixed, movable, distance);
    // Every nested call walks its own levels, so nodes deep down are visited again and again: the answer is
    // the same, since distance only falls.
    VisitBelow(movable, maxDepth_, [&](const gsl_TriOctreeNode& child) {
        if (!work_->clock.Spend(1))
        {
            return false;
        }
        found = RecursiveFindDirDist(fixed, child, false, distance) || found;
        return true;
    });
    return found;
}

bool gsl_TriTriDirDist::CheckBBoxes(const gsl_TriOctreeNode& fixed, const gsl_TriOctreeNode& movable,
                                    double current) const
{
    if (fixed.Box().Size() < tolerance_)
    {
        return false;
    }
    if (debug_ != nullptr)
    {
        gsl_TracePrint(debug_, " Fixed bbox node level %d and index %d\n", {fixed.Level(), fixed.Index()});
        gsl_TracePrint(debug_, " Movable bbox node level %d and index %d\n",
                       {movable.Level(), movable.Index()});
    }
    const gsl_BBox fixedBox = fixed.TransformBBox(fixedTransform_);
    const gsl_Extent fixedExtent(fixedBox);
    const gsl_Extent movableExtent(movable.Box());
    const double largest = std::max(work_->fixedSource.LargestTerm(gsl_Extent(fixed.Box()).Reach()),
                                    std::max(fixedExtent.Reach(), movableExtent.Reach()));
    double grown = std::numeric_limits<double>::max();
    if (!work_->stage.Sweep().Meet(movableExtent, fixedExtent, gsl_SweptBox::Slack(largest, tolerance_),
                                   grown))
    {
        if (debug_ != nullptr)
        {
            gsl_TracePrint(debug_, "  BBox did not intersect\n", {});
        }
        return false;
    }
    if (debug_ != nullptr)
    {
        double shown = grown;
        (void)FindMinDirDistBetBBoxes(movable.Box(), fixedBox, shown);
        gsl_TracePrint(debug_, "  Bbox distance: %lf\n", {shown});
    }
    if (grown < current)
    {
        return true;
    }
    if (debug_ != nullptr)
    {
        gsl_TracePrint(debug_, "  Rejecting based on the face bbox check\n", {});
    }
    return false;
}

bool gsl_TriTriDirDist::FindMinDirDistBetBBoxes(const gsl_BBox& movable, const gsl_BBox& fixed,
                                                double& distance) const
{
    return !movable.IsEmpty() && !fixed.IsEmpty() &&
           work_->stage.Sweep().Meet(gsl_Extent(movable), gsl_Extent(fixed), 0.0, distance);
}

bool gsl_TriTriDirDist::FindDirDistUsingTriangles(const gsl_TriOctreeNode& fixed,
                                                  const gsl_TriOctreeNode& movable, double& distance)
{
    const cow_List<int>& fixedList = fixed.Triangles();
    const cow_List<int>& movableList = movable.Triangles();
    if (fixedList.IsEmpty() || movableList.IsEmpty())
    {
        return false;
    }
    Count(fixedList.Length(), movableList.Length());
    if (debug_ != nullptr)
    {
        gsl_TracePrint(debug_, "   Fixed Triangles: %d\n", {fixedTriangleCount_});
        gsl_TracePrint(debug_, "   Movable Triangles: %d\n", {movableTriangleCount_});
        std::fflush(debug_);
    }
    gsl_Vector against = direction_;
    against.Negate();
    (void)against.Normalize(0.0);
    double best = distance;
    bool found = false;
    for (const int fixedIndex : fixedList)
    {
        gsl_Triangle fixedTriangle = work_->FetchTriangle(work_->fixedSource, fixedIndex);
        const gsl_Vector fixedNormal = fixedTriangle.Normal();
        if (fixedNormal.Magnitude() < degenerateArea_)
        {
            continue;
        }
        fixedEdgeOn_ = ValidateTriangle(fixedTriangle, reverseFixed_);
        workPoint_ = fixedTriangle.Point(0);
        double fixedRange[2];
        GetRange(fixedTriangle, workPoint_, against, fixedRange);
        const gsl_Plane fixedPlane = PlaneOf(fixedTriangle, fixedNormal);
        for (const int movableIndex : movableList)
        {
            if (!work_->clock.Spend(PAIR_UNITS))
            {
                return found;
            }
            gsl_Triangle movableTriangle = work_->FetchTriangle(work_->movableSource, movableIndex);
            const gsl_Vector movableNormal = movableTriangle.Normal();
            if (movableNormal.Magnitude() < degenerateArea_)
            {
                continue;
            }
            double movableRange[2];
            GetRange(movableTriangle, workPoint_, against, movableRange);
            if (movableRange[1] < fixedRange[0] || movableRange[0] - fixedRange[1] > best + tolerance_)
            {
                continue;
            }
            movableEdgeOn_ = ValidateTriangle(movableTriangle, reverseMovable_);
            double travel = std::numeric_limits<double>::max();
            if (!FindDirDistBetweenTriangles(movableTriangle, PlaneOf(movableTriangle, movableNormal),
                                             fixedTriangle, fixedPlane, travel))
            {
                continue;
            }
            // Offered also when it is not lower: of pairs at the same travel the lowest indices stand.
            (void)work_->best.Offer(travel, fixedIndex, movableIndex);
            if (travel < best)
            {
                distance = best = travel;
                found = true;
                if (debug_ != nullptr)
                {
                    gsl_TracePrint(debug_, "  (F %d, M %d): %lf\n", {fixedIndex, movableIndex, travel});
                }
            }
        }
    }
    return found;
}

void gsl_TriTriDirDist::GetRange(const gsl_Triangle& triangle, const gsl_Point& origin, const gsl_Vector& dir,
                                 double* range) const
{
    const double a = (triangle.Point(0) - origin).DotProduct(dir);
    const double b = (triangle.Point(1) - origin).DotProduct(dir);
    const double c = (triangle.Point(2) - origin).DotProduct(dir);
    range[0] = std::min({a, b, c});
    range[1] = std::max({a, b, c});
}

bool gsl_TriTriDirDist::ValidateTriangle(gsl_Triangle& triangle, bool reverse) const
{
    const gsl_Vector normal = triangle.Normal();
    if (normal.IsOrthogonal(direction_))
    {
        return true;
    }
    if (reverse && normal.DotProduct(direction_) < 0.0)
    {
        triangle.Reverse();
    }
    return false;
}

bool gsl_TriTriDirDist::FindDirDistBetweenTriangles(const gsl_Triangle& movable,
                                                    const gsl_Plane& movablePlane, const gsl_Triangle& fixed,
                                                    const gsl_Plane& fixedPlane, double& distance)
{
    const Work::Prepared ofMovable(work_->stage, movable, movablePlane.Direction());
    const Work::Prepared ofFixed(work_->stage, fixed, fixedPlane.Direction());
    double boxes = 0.0;
    double travel = std::numeric_limits<double>::max();
    if (!work_->stage.BoxesMeet(ofMovable.box, ofFixed.box, boxes) ||
        !work_->stage.Travel(ofMovable.light, ofFixed.light, boxes, travel, work_->noViews, travel) ||
        !(travel < distance))
    {
        return false;
    }
    distance = travel;
    return true;
}

bool gsl_TriTriDirDist::FindDirDistBetTriAndTri(const gsl_Triangle& a, const gsl_Triangle& b,
                                                const gsl_Plane& planeOfB, const gsl_Vector& dir,
                                                double& distance)
{
    gsl_Vector unit = dir;
    gsl_Triangle shadow;
    double low[2][3];
    double high[2][3];
    if (!unit.Normalize(0.0) || !a.Project(planeOfB, unit, shadow))
    {
        return false;
    }
    shadow.GetExtent(low[0], high[0]);
    b.GetExtent(low[1], high[1]);
    if (!Overlaps(low[0], high[0], low[1], high[1]))
    {
        return false;
    }
    gsl_TravelSpan span;
    work_->stage.Project(Work::Prepared(work_->stage, a, a.Normal()).view,
                         Work::Prepared(work_->stage, b, planeOfB.Direction()).view, gsl_TripleOf(unit), {},
                         span);
    return Lower(span, pairTolerance_, distance);
}

bool gsl_TriTriDirDist::FindDirDistBothDegen(const gsl_Triangle& a, const gsl_Triangle& b, double& distance)
{
    gsl_TravelSpan span;
    work_->stage.Upright().BothUpright(Work::Prepared(work_->stage, a, a.Normal()).view,
                                       Work::Prepared(work_->stage, b, b.Normal()).view, {}, span);
    return Lower(span, pairTolerance_, distance);
}

bool gsl_TriTriDirDist::FindLineLineInt(const gsl_StLine& line1, const gsl_StLine& line2, gsl_Point& out,
                                        double& s1, double& s2) const
{
    double at1 = 0.0;
    double at2 = 0.0;
    if (!gsl_PairStage::Cross(gsl_TripleOf(line1.PointOn()), gsl_TripleOf(line1.Direction()),
                              gsl_TripleOf(line2.PointOn()), gsl_TripleOf(line2.Direction()), pairTolerance_,
                              at1, at2))
    {
        return false;
    }
    s1 = at1;
    s2 = at2;
    out = line2.PointAtDistance(at2);
    return true;
}

void gsl_TriTriDirDist::InitExtent(double low[3], double high[3]) const noexcept
{
    const gsl_Extent nothing;
    std::copy_n(nothing.low, 3, low);
    std::copy_n(nothing.high, 3, high);
}

void gsl_TriTriDirDist::UpdateExtent(const gsl_Point& p, double low[3], double high[3]) const noexcept
{
    const double xyz[3] = {p.X(), p.Y(), p.Z()};
    for (int axis = 0; axis < 3; ++axis)
    {
        low[axis] = std::min(low[axis], xyz[axis]);
        high[axis] = std::max(high[axis], xyz[axis]);
    }
}

bool gsl_TriTriDirDist::Overlaps(const double* lowA, const double* highA, const double* lowB,
                                 const double* highB) const noexcept
{
    for (int axis = 0; axis < 3; ++axis)
    {
        if (lowA[axis] > highB[axis] + tolerance_ || lowB[axis] > highA[axis] + tolerance_)
        {
            return false;
        }
    }
    return true;
}

bool gsl_TriTriDirDist::Contains(const double* low, const double* high, const gsl_Point& p) const noexcept
{
    const double xyz[3] = {p.X(), p.Y(), p.Z()};
    return Overlaps(low, high, xyz, xyz);
}
