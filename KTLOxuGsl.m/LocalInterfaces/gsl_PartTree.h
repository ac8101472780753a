#pragma once

#include <cstddef>
#include <cstdint>
#include <gsl_BlockStore.h>
#include <gsl_CornerSource.h>
#include <gsl_Extent.h>
#include <gsl_PairStage.h>
#include <gsl_Sheet.h>
#include <gsl_StageTriangle.h>
#include <memory>
#include <vector>

class gsl_ProceedClock;

/// Groups of triangles as a search walks them: each a binary tree of boxes, cut in the middle of its widest
/// axis, again and again, down to leaves of a handful of triangles.
///
/// The halving is kept from search to search; it depends on the triangles' places before the transform, not
/// on the direction. Corners are fetched anew in every search, and the boxes are made from them. Parts and
/// slots (a slot is the place of a triangle; those of a part are in one piece) are numbered from 0 and stay
/// valid until Clear.
class gsl_PartTree
{
public:
    /// Forgets everything; room for so many triangles.
    void Clear(std::size_t room);
    /// Forgets corners.
    void BeginSearch();

    /// Makes a group of the triangles with these indices of the caller's: fetches their corners and halves
    /// them. Returns its part, or NONE, and nothing changed, when the clock ran out.
    int MakeGroup(const std::vector<std::int32_t>& indices, gsl_CornerSource& source,
                  gsl_ProceedClock& clock);
    /// Fetches the corners of a group made in an earlier search. false when the clock ran out.
    bool FetchGroup(int group, gsl_CornerSource& source, gsl_ProceedClock& clock);

    static constexpr int NONE = -1;

    const gsl_Extent& Box(int part) const { return parts_[At(part)].box; }
    int Count(int part) const { return parts_[At(part)].count; }
    bool IsLeaf(int part) const { return parts_[At(part)].upper == NONE; }
    /// The children. REQUIRES: no leaf.
    int Lower(int part) const { return part + 1; }
    int Upper(int part) const { return parts_[At(part)].upper; }

    /// The lowest of the caller's indices in a part.
    int LowestIndex(int part) const { return parts_[At(part)].lowest; }
    /// Between which planes a part lies, found when first asked for and valid until the next search. Parts of
    /// more than SHEET_SIZE triangles have level planes alone.
    const gsl_Sheet& Sheet(int part, const gsl_Triple& along, gsl_ProceedClock& clock)
    {
        const std::int32_t known = sheetAt_[At(part)];
        return known == NOT_PREPARED ? MakeSheet(part, along, clock) : sheets_[At(known)];
    }

    /// The first of a part's slots; the others follow.
    int FirstSlot(int part) const { return parts_[At(part)].begin; }
    int TriangleIndex(int slot) const { return index_[At(slot)]; }
    const gsl_Extent& TriangleBox(int slot) const { return boxes_[At(slot)]; }
    /// What the pair stage takes, made when first asked for and valid until the next search; null for a
    /// degenerate triangle.
    const gsl_StageTriangle* Prepared(int slot, const gsl_CornerSource& source, const gsl_PairStage& stage)
    {
        const std::int32_t known = preparedAt_[At(slot)];
        if (known == NOT_PREPARED)
        {
            return Prepare(slot, source, stage);
        }
        return known == DEGENERATE ? nullptr : &prepared_[At(known)];
    }

    /// Leaves hold at most this many triangles.
    static constexpr int LEAF_SIZE = 8;
    /// Parts of at most this many triangles have leaning planes.
    static constexpr int SHEET_SIZE = 16;

private:
    static constexpr std::int32_t NOT_PREPARED = -1;
    static constexpr std::int32_t DEGENERATE = -2;

    // Parts of a group stand parents first, the lower child behind its parent. One cache line.
    struct Part
    {
        gsl_Extent box;
        std::int32_t begin = 0; // first slot
        std::int32_t count = 0;
        std::int32_t upper = NONE;
        std::int32_t lowest = 0; // of the caller's indices
    };
    struct Corners
    {
        gsl_Triple at[3];
    };
    struct Loose // a triangle that has no slot yet
    {
        float centre[3];
        std::int32_t at; // among the triangles of the group, as they came
    };
    struct Region;

    static std::size_t At(int i) { return static_cast<std::size_t>(i); }

    static gsl_Extent BoxOf(const Corners& corners);
    bool Halve(Loose* first, int count, int begin, Region region, gsl_ProceedClock& clock);
    int Partition(Loose* first, int count, int axis, float cut, gsl_ProceedClock& clock);
    void FindLowest(int first, int last);
    /// Forgets the parts and slots from these on.
    void CutBack(int parts, int slots) noexcept;
    const gsl_Sheet& MakeSheet(int part, const gsl_Triple& along, gsl_ProceedClock& clock);
    void MakeBoxes(int first, int last, gsl_ProceedClock& clock);
    const gsl_StageTriangle* Prepare(int slot, const gsl_CornerSource& source, const gsl_PairStage& stage);

    std::vector<Part> parts_;
    std::vector<std::int32_t> index_; // per slot: the caller's index

    // Of the group that is being made.
    std::vector<Corners> fetched_;
    std::vector<Loose> loose_;
    std::unique_ptr<Loose[]> aside_;
    std::size_t asideSize_ = 0;

    // Of this search.
    std::vector<Corners> corners_;
    std::vector<gsl_Extent> boxes_;
    std::vector<std::int32_t> preparedAt_;
    std::vector<std::int32_t> sheetAt_; // per part
    gsl_BlockStore<gsl_StageTriangle> prepared_;
    gsl_BlockStore<gsl_Sheet> sheets_;
};
