#pragma once

#include <cstdio>
#include <gsl_Matrix.h>
#include <gsl_Point.h>
#include <gsl_Vector.h>
#include <memory>
#include <oxu_Export.h>

class gsl_BBox;
class gsl_Plane;
class gsl_StLine;
class gsl_Triangle;
class gsl_TriOctreeNode;

/// How far a movable set of triangles can travel along a direction before it touches a fixed set.
///
/// Derive and give the corners by index; build a gsl_TriOctree over each set and add every triangle; set
/// direction, fixed transform and flags; then call FindDirectionalDistance with the two roots. Travel is
/// signed along the unit direction: what lies behind the start is no contact, what crosses at the start has
/// travel 0. Contact counts within gsl_Util's linear tolerance, which is read when the object is made.
///
/// Lives for any number of searches, one at a time. What a search learns of the shape of a tree is kept here
/// for the next one, never in the tree; so one tree may be searched by several objects on several threads.
/// The look-ups are asked anew in every search, and must answer the same triangle with the same corners for
/// as long as it lasts. Neither copied nor moved.
///
/// With the environment variable VDM_TRITRIDIRDIST_DEBUG set when the object is made, the nested search runs
/// in place of the fast one and writes what it does to the file TriTriDirDist.dat in the current folder. Both
/// give the same answer, to the last bit. If the file cannot be opened tracing stays off.
class OXU_EXPORT gsl_TriTriDirDist
{
public:
    /// The corners of a triangle. What they throw goes through the search, which leaves the object as usable
    /// as it was and the distance unchanged. A triangle whose corners have no normal is skipped.
    virtual void GetFixedTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) = 0;
    virtual void GetMovableTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) = 0;
    virtual ~gsl_TriTriDirDist();
    /// Asked when a search begins and then at least every ten milliseconds, with the share of the work that
    /// is done, 0 to 1 and never falling. false ends the search, which then has found nothing. Always true
    /// here.
    virtual bool Proceed(double done);

    /// maxDepth is how many levels of the fixed tree are looked at: use the depth of the deeper tree, since
    /// triangles below are silently left out. Of the movable tree all levels are looked at, with 1 the root
    /// alone.
    explicit gsl_TriTriDirDist(int maxDepth);
    gsl_TriTriDirDist(const gsl_TriTriDirDist&) = delete;
    gsl_TriTriDirDist& operator=(const gsl_TriTriDirDist&) = delete;

    /// Any length above zero; kept as unit vector, +z at first. false, and unchanged, for a vector without a
    /// length.
    [[nodiscard]] bool SetDirection(const gsl_Vector& direction);
    /// Applied to the corners of every fixed triangle and to the boxes of the fixed tree. The identity at
    /// first.
    void SetFixedTransform(const gsl_Matrix& transform);
    /// Whether ValidateTriangle reverses a triangle that faces against the direction. Changes no distance: a
    /// triangle is touched from either side.
    void SetReverseFixed(bool reverse) noexcept { reverseFixed_ = reverse; }
    void SetReverseMovable(bool reverse) noexcept { reverseMovable_ = reverse; }

    /// The search. distance is the bound going in, travels from there on are of no interest; on true it is
    /// the smallest travel and a pair is known. On false, and when a look-up throws, it is unchanged.
    [[nodiscard]] bool FindDirectionalDistance(const gsl_TriOctreeNode& fixedRoot,
                                               const gsl_TriOctreeNode& movableRoot, double& distance);
    /// The same by the nested search, node by node and list by list: slow, and the measure of the other.
    [[nodiscard]] bool FindDirectionalDistanceNested(const gsl_TriOctreeNode& fixedRoot,
                                                     const gsl_TriOctreeNode& movableRoot, double& distance);

    /// The pair of the last search: of several at the same travel above 0 the one with the lowest indices,
    /// the fixed one first; at travel 0 the first one met. false, and unchanged, when that search found
    /// nothing.
    bool LastPair(int& fixed, int& movable) const noexcept;
    /// Where that pair meets: the place on the fixed triangle, and where it starts on the movable one, their
    /// distance being the travel. Of triangles that cross at the start it is a place where they cross. false,
    /// and unchanged, when the last search found nothing.
    bool LastContact(gsl_Point& onFixed, gsl_Point& onMovable) const;
    /// How many triangles have been handed to the triangle stage in all searches of this object, counted anew
    /// for every list they met; the counts stop at the largest int.
    int FixedTriangleCount() const noexcept { return fixedTriangleCount_; }
    int MovableTriangleCount() const noexcept { return movableTriangleCount_; }
    const gsl_Vector& Direction() const noexcept { return direction_; }
    const gsl_Matrix& FixedTransform() const noexcept { return fixedTransform_; }
    int MaxDepth() const noexcept { return maxDepth_; }
    double Tolerance() const noexcept { return tolerance_; }
    bool IsTracing() const noexcept { return debug_ != nullptr; }

    /// The stages of the nested search. distance is a bound that is only ever lowered; true when it was.

    /// Own lists of fixed and of movable, then of all that is below movable; each call walks its own levels.
    bool RecursiveFindDirDist(const gsl_TriOctreeNode& fixed, const gsl_TriOctreeNode& movable,
                              bool skipBoxCheck, double& distance);
    /// Whether a contact between what is in the two boxes can come before `current`. The fixed box is
    /// transformed, both are grown by the tolerance and by what rounding may do. A fixed box whose diagonal
    /// is below the tolerance is never looked at.
    bool CheckBBoxes(const gsl_TriOctreeNode& fixed, const gsl_TriOctreeNode& movable, double current) const;
    /// The travel at which the movable box meets the fixed one; exact. false, and unchanged, when it never
    /// does or only behind, and for an empty box.
    bool FindMinDirDistBetBBoxes(const gsl_BBox& movable, const gsl_BBox& fixed, double& distance) const;
    /// Every pair of the two nodes' own lists.
    bool FindDirDistUsingTriangles(const gsl_TriOctreeNode& fixed, const gsl_TriOctreeNode& movable,
                                   double& distance);
    /// range[0] and range[1]: smallest and largest (corner - origin) . dir.
    void GetRange(const gsl_Triangle& triangle, const gsl_Point& origin, const gsl_Vector& dir,
                  double* range) const;
    /// True for a triangle edge-on to the direction; another one that faces against it is reversed in place
    /// when reverse is set.
    bool ValidateTriangle(gsl_Triangle& triangle, bool reverse) const;
    /// One pair, the movable T_m in its plane P_m and the fixed T_f in its plane P_f, by the method that the
    /// slopes of the two planes ask for. Does not read the edge-on flags.
    bool FindDirDistBetweenTriangles(const gsl_Triangle& movable, const gsl_Plane& movablePlane,
                                     const gsl_Triangle& fixed, const gsl_Plane& fixedPlane,
                                     double& distance);
    /// Projects a along dir onto P_B, the plane of b, and looks there for overlap: a's corners in b, b's
    /// corners in a, crossing edges. For triangles of which b is not edge-on to dir.
    bool FindDirDistBetTriAndTri(const gsl_Triangle& a, const gsl_Triangle& b, const gsl_Plane& planeOfB,
                                 const gsl_Vector& dir, double& distance);
    /// For two triangles edge-on to the direction: in one plane, or meeting on the line that their planes
    /// share.
    bool FindDirDistBothDegen(const gsl_Triangle& a, const gsl_Triangle& b, double& distance);
    /// Closest points of two lines, s1 and s2 their places in length units, out the one on line2. false, and
    /// outputs unchanged, when they are parallel or further apart than the tolerance.
    bool FindLineLineInt(const gsl_StLine& line1, const gsl_StLine& line2, gsl_Point& out, double& s1,
                         double& s2) const;
    /// An extent that holds nothing: low the largest double, high the lowest.
    void InitExtent(double low[3], double high[3]) const noexcept;
    /// Widens the extent to hold p.
    void UpdateExtent(const gsl_Point& p, double low[3], double high[3]) const noexcept;
    /// Inclusive within the tolerance.
    bool Overlaps(const double* lowA, const double* highA, const double* lowB,
                  const double* highB) const noexcept;
    /// The same for a point.
    bool Contains(const double* low, const double* high, const gsl_Point& p) const noexcept;
    /// As set for the pair of triangles that FindDirDistUsingTriangles looked at last.
    bool IsMovableEdgeOn() const noexcept { return movableEdgeOn_; }
    bool IsFixedEdgeOn() const noexcept { return fixedEdgeOn_; }

private:
    struct Work;

    bool Search(const gsl_TriOctreeNode& fixedRoot, const gsl_TriOctreeNode& movableRoot, bool nested,
                double& distance);
    bool SearchNested(const gsl_TriOctreeNode& fixedRoot, const gsl_TriOctreeNode& movableRoot,
                      double& distance);
    void Count(long long fixed, long long movable) noexcept;

    FILE* debug_ = nullptr;
    bool reverseMovable_ = false;
    bool reverseFixed_ = false;
    gsl_Vector direction_;
    gsl_Matrix fixedTransform_;
    int fixedTriangleCount_ = 0;
    int movableTriangleCount_ = 0;
    int maxDepth_;
    double degenerateArea_;
    double tolerance_;
    double pairTolerance_;
    double tolerancePlusOne_;
    bool movableEdgeOn_ = false;
    bool fixedEdgeOn_ = false;
    gsl_Point workPoint_;
    std::unique_ptr<Work> work_;
};
