#include <bat_Part.h>
#include <bat_TravelSearch.h>
#include <gsl_Point.h>

namespace
{
void Fetch(const bat_Part& part, int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3)
{
    const bat_Corners corners = part.Corners(index);
    p1.Set(corners[0], corners[1], corners[2]);
    p2.Set(corners[3], corners[4], corners[5]);
    p3.Set(corners[6], corners[7], corners[8]);
}
}

bat_TravelSearch::bat_TravelSearch(const bat_Part& fixed, const bat_Part& movable, int depth,
                                   bat_Watcher& watcher)
    : gsl_TriTriDirDist(depth), fixed_(fixed), movable_(movable), watcher_(watcher)
{}

void bat_TravelSearch::GetFixedTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3)
{
    Fetch(fixed_, index, p1, p2, p3);
}

void bat_TravelSearch::GetMovableTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3)
{
    Fetch(movable_, index, p1, p2, p3);
}

bool bat_TravelSearch::Proceed(double done)
{
    stopped_ = !watcher_.Proceed(done);
    return !stopped_;
}
