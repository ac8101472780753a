#pragma once

#include <bat_Watcher.h>
#include <gsl_TriTriDirDist.h>

class bat_Part;

/// The directional distance search over two parts, which tells a watcher how far it is and lets itself be
/// stopped.
class bat_TravelSearch : public gsl_TriTriDirDist
{
public:
    /// The parts and the watcher must outlive the search; depth is that of their trees.
    bat_TravelSearch(const bat_Part& fixed, const bat_Part& movable, int depth,
                     bat_Watcher& watcher = bat_Watcher::Nobody());

    void GetFixedTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) override;
    void GetMovableTriangle(int index, gsl_Point& p1, gsl_Point& p2, gsl_Point& p3) override;
    bool Proceed(double done) override;

    /// Whether the watcher put an end to the last search.
    bool WasStopped() const { return stopped_; }

private:
    const bat_Part& fixed_;
    const bat_Part& movable_;
    bat_Watcher& watcher_;
    bool stopped_ = false;
};
