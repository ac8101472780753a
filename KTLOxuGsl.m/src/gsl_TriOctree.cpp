#include <gsl_ModOctreeNode.h>
#include <gsl_TracePrint.h>
#include <gsl_TriOctree.h>

namespace
{
constexpr int ROOT_LEVEL = 1;
constexpr int NO_SLOT = -1;

std::unique_ptr<gsl_TriOctreeNode> MakeRoot(gsl_TriOctree::OctreeNodeType type, const gsl_BBox& box)
{
    if (type == gsl_TriOctree::gsl_MODOCTREE)
    {
        return std::make_unique<gsl_ModOctreeNode>(box, ROOT_LEVEL, NO_SLOT, nullptr);
    }
    return std::make_unique<gsl_TriOctreeNode>(box, ROOT_LEVEL, NO_SLOT, nullptr);
}
}

gsl_TriOctree::gsl_TriOctree(const gsl_BBox& box, const cow_String& id, OctreeNodeType type, int maxDepth)
    : maxDepth_(maxDepth), root_(MakeRoot(type, box)), id_(id)
{
    root_->BuildOctree(box, maxDepth);
}

void gsl_TriOctree::Print(FILE* stream) const
{
    gsl_TracePrint(stream, "Root id: %s, Max Depth: %d\n", {id_.AsCharPtr(), maxDepth_});
    root_->Print(stream);
}
