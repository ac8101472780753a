#pragma once

#include <gsl_TriOctreeNode.h>
#include <oxu_Export.h>

/// Node with fourteen slots: behind the eight octants the six half boxes, below and above the centre on x
/// (slots 8 and 9), on y (10, 11) and on z (12, 13).
///
/// The octants are offered a triangle first, so a half box takes those that cross one or two of the three
/// planes: fewer straddlers stay with their parent. The children are of this class too.
class OXU_EXPORT gsl_ModOctreeNode : public gsl_TriOctreeNode
{
public:
    using gsl_TriOctreeNode::gsl_TriOctreeNode;

    /// 14.
    int GetChildCount() const override;
    void BuildOctree(const gsl_BBox& box, int maxDepth) override;
};
