#include <gsl_ModOctreeNode.h>
#include <gsl_OctreeSplit.h>

namespace
{
gsl_TriOctreeNode* MakeNode(const gsl_BBox& box, int level, int index, gsl_TriOctreeNode* parent)
{
    return new gsl_ModOctreeNode(box, level, index, parent);
}
}

int gsl_ModOctreeNode::GetChildCount() const
{
    return gsl_OctreeSplit::SLOTS;
}

void gsl_ModOctreeNode::BuildOctree(const gsl_BBox& box, int maxDepth)
{
    Divide(box, maxDepth, &MakeNode);
}
