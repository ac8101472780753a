#pragma once

#include <gsl_TriTriDirDist.h>

class bat_Part;

/// The directional distance search over two parts, which reports its progress and lets itself be interrupted.
class bat_TravelSearch : public gsl_TriTriDirDist
{
public:
    /// The parts must outlive the search; depth is that of their trees.
    bat_TravelSearch(const bat_Part& fixed, const bat_Part& movable, int depth);

    void GetFixedTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) override;
    void GetMovableTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) override;
    bool Proceed(double done) override;

private:
    const bat_Part& fixed_;
    const bat_Part& movable_;
};
