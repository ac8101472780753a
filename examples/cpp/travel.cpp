// How far can one set of triangles travel along a direction before it touches another?
#include <gsl_BBox.h>
#include <gsl_TriOctree.h>
#include <gsl_TriTriDirDist.h>
#include <gsl_Triangle.h>
#include <iostream>

const gsl_Triangle TABLE[] = {{{0, 0, 0}, {4, 0, 0}, {0, 4, 0}}, {{4, 0, 0}, {4, 4, 0}, {0, 4, 0}}};
const gsl_Triangle TOOL[] = {{{1, 1, 5}, {2, 1, 7}, {1, 2, 7}}};

// The triangles stay yours: the trees hold their numbers, the search asks for the corners.
class Travel : public gsl_TriTriDirDist
{
public:
    Travel() : gsl_TriTriDirDist(DEPTH) {}
    static constexpr int DEPTH = 4;
    static void Give(const gsl_Triangle& t, gsl_Point& a, gsl_Point& b, gsl_Point& c)
    {
        a = t.Point(0);
        b = t.Point(1);
        c = t.Point(2);
    }
    void GetFixedTriangle(int i, gsl_Point& a, gsl_Point& b, gsl_Point& c) override
    {
        Give(TABLE[i], a, b, c);
    }
    void GetMovableTriangle(int i, gsl_Point& a, gsl_Point& b, gsl_Point& c) override
    {
        Give(TOOL[i], a, b, c);
    }
};

int main()
{
    gsl_TriOctree table(gsl_BBox({0, 0, 0}, {4, 4, 0}), "table", gsl_TriOctree::gsl_OCTREE, Travel::DEPTH);
    gsl_TriOctree tool(gsl_BBox({1, 1, 5}, {2, 2, 7}), "tool", gsl_TriOctree::gsl_OCTREE, Travel::DEPTH);
    bool isInside = tool.Root()->Add(TOOL[0].Point(0), TOOL[0].Point(1), TOOL[0].Point(2), 0);
    for (int i = 0; i < 2; ++i)
        isInside &= table.Root()->Add(TABLE[i].Point(0), TABLE[i].Point(1), TABLE[i].Point(2), i);
    if (!isInside)
        return 1;

    Travel search;
    double distance = 100; // only ever lowered: travels beyond are of no interest
    if (search.SetDirection({0, 0, -1}) &&
        search.FindDirectionalDistance(*table.Root(), *tool.Root(), distance))
    {
        gsl_Point place, start;
        search.LastContact(place, start);
        std::cout << "travels " << distance << ", touches at (" << place.X() << ", " << place.Y() << ", "
                  << place.Z() << ")\n";
    }
}
