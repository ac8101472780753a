#pragma once

#include <cstddef>
#include <cstdint>
#include <gsl_BlockStore.h>
#include <gsl_CornerSource.h>
#include <gsl_Extent.h>
#include <gsl_PairStage.h>
#include <gsl_Sheet.h>
#include <gsl_StageTriangle.h>
#include <limits>
#include <memory>
#include <vector>

class gsl_ProceedClock;

/// Groups of triangles as a search walks them: each a binary tree of boxes, cut in the middle of its widest
/// axis, again and again, down to leaves of a handful of triangles.
///
/// A part is halved when a search first opens it: most never are. The halves are kept from search to search;
/// they depend on where the triangles were then, not on the direction. Corners are fetched anew in every
/// search, and the boxes are made from them, of halves when they are opened. Parts, triangles and slots (a
/// slot is a triangle's place in the order of the parts; those of a part are in one piece) are numbered from
/// 0 and stay valid until Clear.
class gsl_PartTree
{
public:
    /// Forgets everything; room for so many triangles.
    void Clear(std::size_t room);
    /// Forgets corners. REQUIRES: a number above 0 that no search since Clear had.
    void BeginSearch(std::uint32_t search);

    /// Makes a group of the triangles with these indices of the caller's: fetches their corners. Returns its
    /// part, or NONE, and nothing changed, when the clock ran out.
    int MakeGroup(const std::vector<std::int32_t>& indices, gsl_CornerSource& source,
                  gsl_ProceedClock& clock);
    /// Fetches the corners of a group made in an earlier search. false when the clock ran out.
    bool FetchGroup(int group, gsl_CornerSource& source, gsl_ProceedClock& clock);

    static constexpr int NONE = -1;

    const gsl_Extent& Box(int part) const { return parts_[At(part)].box; }
    int Count(int part) const { return parts_[At(part)].count; }
    bool IsLeaf(int part) const { return Count(part) <= LEAF_SIZE; }
    /// Makes sure of the children and their boxes in this search. false when the clock ran out before.
    /// REQUIRES: no leaf.
    bool Open(int part, gsl_ProceedClock& clock)
    {
        return parts_[At(part)].opened == search_ || OpenAnew(part, clock);
    }
    /// The children. REQUIRES: Open in this search.
    int Lower(int part) const { return parts_[At(part)].lower; }
    int Upper(int part) const { return Lower(part) + 1; }

    /// The lowest of the caller's indices in a part.
    int LowestIndex(int part) const { return parts_[At(part)].lowest; }
    /// Between which planes a part lies, found when first asked for and valid until the next search. Parts of
    /// more than SHEET_SIZE triangles have level planes alone.
    const gsl_Sheet& Sheet(int part, const gsl_Triple& along, gsl_ProceedClock& clock)
    {
        const std::int32_t known = ranges_[At(part)].sheet;
        return known == NOT_PREPARED ? MakeSheet(part, along, clock) : sheets_[At(known)];
    }

    /// The first of a part's slots; the others follow.
    int FirstSlot(int part) const { return ranges_[At(part)].begin; }
    int TriangleIn(int slot) const { return order_[At(slot)].triangle; }

    int TriangleIndex(int triangle) const { return triangles_[At(triangle)].index; }
    const gsl_Extent& TriangleBox(int triangle) const { return triangles_[At(triangle)].box; }
    /// What the pair stage takes, made when first asked for and valid until the next search; null for a
    /// degenerate triangle.
    const gsl_StageTriangle* Prepared(int triangle, const gsl_CornerSource& source,
                                      const gsl_PairStage& stage)
    {
        const std::int32_t known = triangles_[At(triangle)].prepared;
        if (known == NOT_PREPARED)
        {
            return Prepare(triangles_[At(triangle)], source, stage);
        }
        return known == DEGENERATE ? nullptr : &prepared_[At(known)];
    }

    /// Leaves hold at most this many triangles.
    static constexpr int LEAF_SIZE = 8;
    /// Parts of at most this many triangles have leaning planes.
    static constexpr int SHEET_SIZE = 8;

private:
    static constexpr std::int32_t NOT_PREPARED = -1;
    static constexpr std::int32_t DEGENERATE = -2;

    // One cache line.
    struct Part
    {
        gsl_Extent box;
        std::int32_t count = 0;
        std::int32_t lower = NONE;                                      // the upper child follows
        std::int32_t lowest = std::numeric_limits<std::int32_t>::max(); // of the caller's indices
        std::uint32_t opened = 0; // the search for which the children's boxes hold
    };
    // Two cache lines, the corners behind what is asked of a triangle first.
    struct alignas(64) Triangle
    {
        gsl_Extent box;
        std::int32_t index = 0; // the caller's
        std::int32_t prepared = NOT_PREPARED;
        gsl_Triple corner[3];
    };
    struct Place // a slot
    {
        float centre[3];
        std::int32_t triangle;
    };

    // Where the centres of some triangles lie.
    struct Region
    {
        float low[3] = {std::numeric_limits<float>::max(), std::numeric_limits<float>::max(),
                        std::numeric_limits<float>::max()};
        float high[3] = {std::numeric_limits<float>::lowest(), std::numeric_limits<float>::lowest(),
                         std::numeric_limits<float>::lowest()};

        void Add(const Place& place);
        bool IsEmpty() const { return low[0] > high[0]; }
        int WidestAxis() const;
    };
    struct Range
    {
        Region region;
        std::int32_t begin = 0; // first slot
        std::int32_t sheet = NOT_PREPARED;
    };

    static std::size_t At(int i) { return static_cast<std::size_t>(i); }

    void AddBoxes(int first, int count, gsl_Extent& box);
    void FindCentres(int group);
    bool OpenAnew(int part, gsl_ProceedClock& clock);
    bool Halve(int part, gsl_ProceedClock& clock);
    int Partition(Place* first, int count, int axis, float cut, gsl_ProceedClock& clock);
    void Refit(int part, gsl_ProceedClock& clock);
    void Gather(int part, gsl_ProceedClock& clock);
    const gsl_Sheet& MakeSheet(int part, const gsl_Triple& along, gsl_ProceedClock& clock);
    const gsl_StageTriangle* Prepare(Triangle& triangle, const gsl_CornerSource& source,
                                     const gsl_PairStage& stage);

    std::uint32_t search_ = 0;
    std::vector<Part> parts_;
    std::vector<Range> ranges_;       // per part
    std::vector<Place> order_;        // per slot; within a part in the order of the triangles
    std::vector<Triangle> triangles_; // as they were fetched; boxes and corners are those of this search
    std::unique_ptr<Place[]> aside_;
    std::size_t asideSize_ = 0;

    // Of this search.
    gsl_BlockStore<gsl_StageTriangle> prepared_;
    gsl_BlockStore<gsl_Sheet> sheets_;
};
