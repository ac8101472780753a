#include <bat_Part.h>
#include <bat_TravelSearch.h>

bat_TravelSearch::bat_TravelSearch(const bat_Part& fixed, const bat_Part& movable, int depth,
                                   bat_Watcher& watcher)
    : gsl_TriTriDirDist(depth), fixed_(fixed), movable_(movable), watcher_(watcher)
{}

void bat_TravelSearch::GetFixedTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3)
{
    fixed_.Points(index, p1, p2, p3);
}

void bat_TravelSearch::GetMovableTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3)
{
    movable_.Points(index, p1, p2, p3);
}

bool bat_TravelSearch::Proceed(double done)
{
    stopped_ = !watcher_.Proceed(done);
    return !stopped_;
}
