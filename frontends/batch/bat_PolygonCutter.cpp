#include <bat_PolygonCutter.h>

#include <bat_CornerTree.h>

#include <algorithm>
#include <cmath>
#include <deque>

const std::vector<bat_PolygonCutter::Triple>& bat_PolygonCutter::Cut(std::span<const double> corners)
{
    triples_.clear();
    const bool hasArea = corners.size() > 9 && Flatten(corners);
    if (!hasArea || !CutFan())
    {
        triples_.clear();
        if (hasArea)
        {
            CutEars();
        }
        else
        {
            for (std::size_t i = 2; i < corners.size() / 3; ++i)
            {
                triples_.push_back({0, i - 1, i});
            }
        }
    }
    return triples_;
}

void bat_PolygonCutter::Cut(std::span<const double> corners, bat_TriangleMesh& mesh)
{
    for (const Triple& triple : Cut(corners))
    {
        double triangle[bat_TriangleMesh::DOUBLES_PER_TRIANGLE];
        for (std::size_t k = 0; k < triple.size(); ++k)
        {
            std::copy_n(corners.data() + 3 * triple[k], 3, triangle + 3 * k);
        }
        mesh.Add(triangle);
    }
}

// False when the polygon has no area that would say which way it faces.
bool bat_PolygonCutter::Flatten(std::span<const double> corners)
{
    double largest = 0;
    for (const double coordinate : corners)
    {
        largest = std::max(largest, std::abs(coordinate));
    }
    if (largest == 0)
    {
        return false;
    }
    // To the order of 1 by a power of two, so that nothing overflows and nothing is rounded.
    const int exponent = -std::ilogb(largest);
    const auto scaled = [&](std::size_t corner, std::size_t axis) {
        return std::scalbn(corners[3 * corner + axis], exponent);
    };
    const std::size_t count = corners.size() / 3;
    double normal[3] = {0, 0, 0};
    for (std::size_t i = 2; i < count; ++i)
    {
        double u[3];
        double v[3];
        for (std::size_t k = 0; k < 3; ++k)
        {
            u[k] = scaled(i - 1, k) - scaled(0, k);
            v[k] = scaled(i, k) - scaled(0, k);
        }
        for (std::size_t k = 0; k < 3; ++k)
        {
            normal[k] += u[(k + 1) % 3] * v[(k + 2) % 3] - u[(k + 2) % 3] * v[(k + 1) % 3];
        }
    }
    std::size_t axis = 0;
    for (std::size_t k = 1; k < 3; ++k)
    {
        axis = std::abs(normal[k]) > std::abs(normal[axis]) ? k : axis;
    }
    if (normal[axis] == 0)
    {
        return false;
    }
    std::size_t first = (axis + 1) % 3;
    std::size_t second = (axis + 2) % 3;
    if (normal[axis] < 0)
    {
        std::swap(first, second);
    }
    flat_.resize(count);
    for (std::size_t i = 0; i < count; ++i)
    {
        flat_[i] = {scaled(i, first), scaled(i, second)};
    }
    return true;
}

bool bat_PolygonCutter::CutFan()
{
    for (std::size_t i = 2; i < flat_.size(); ++i)
    {
        if (bat_Turn(flat_[0], flat_[i - 1], flat_[i]) < 0)
        {
            return false;
        }
        triples_.push_back({0, i - 1, i});
    }
    return true;
}

void bat_PolygonCutter::Link()
{
    const std::size_t count = flat_.size();
    next_.resize(count);
    previous_.resize(count);
    for (std::size_t i = 0; i < count; ++i)
    {
        next_[i] = (i + 1) % count;
        previous_[i] = (i + count - 1) % count;
    }
}

double bat_PolygonCutter::TurnAt(std::size_t corner) const
{
    return bat_Turn(flat_[previous_[corner]], flat_[corner], flat_[next_[corner]]);
}

// Of a corner in line with its neighbours: whether the outline runs back over itself there, or stands still.
// Without it the outline bounds the same area.
bool bat_PolygonCutter::DoublesBack(std::size_t corner) const
{
    const bat_Point2d& a = flat_[previous_[corner]];
    const bat_Point2d& b = flat_[corner];
    const bat_Point2d& c = flat_[next_[corner]];
    return (b.x - a.x) * (c.x - b.x) + (b.y - a.y) * (c.y - b.y) <= 0;
}

// Cutting an ear changes only its two neighbours: no other corner becomes an ear by it. So each corner
// is looked at once, and again when a neighbour went; only corners that do not turn left can be in the
// way (were any corner inside an ear, one of those would be), and none becomes one later.
void bat_PolygonCutter::CutEars()
{
    Link();
    const std::size_t count = flat_.size();
    std::vector<std::size_t> blunt;
    for (std::size_t i = 0; i < count; ++i)
    {
        if (TurnAt(i) <= 0)
        {
            blunt.push_back(i);
        }
    }
    std::vector<bool> inTree(count);
    for (const std::size_t i : blunt)
    {
        inTree[i] = true;
    }
    bat_CornerTree tree(flat_, std::move(blunt));

    std::vector<bool> cut(count);
    std::vector<bool> waiting(count);
    std::deque<std::size_t> queue;
    const auto wait = [&](std::size_t corner) {
        if (!waiting[corner])
        {
            waiting[corner] = true;
            queue.push_back(corner);
        }
    };
    std::size_t left = count;
    for (const Demand demand : {Demand::CLEAR, Demand::TOUCHED, Demand::CONVEX, Demand::ANY})
    {
        for (std::size_t i = 0; i < count; ++i)
        {
            if (!cut[i])
            {
                wait(i);
            }
        }
        while (!queue.empty() && left > 3)
        {
            const std::size_t corner = queue.front();
            queue.pop_front();
            if (task_)
            {
                task_->Step();
            }
            waiting[corner] = false;
            const std::size_t before = previous_[corner];
            const std::size_t behind = next_[corner];
            const double turn = TurnAt(corner);
            const auto isClear = [&](bool borderToo) {
                return !tree.HoldsOne(before, corner, behind, borderToo);
            };
            const bool isEar = (turn == 0 && DoublesBack(corner)) || demand == Demand::ANY ||
                               (demand == Demand::CONVEX && turn >= 0) ||
                               (demand == Demand::TOUCHED && turn >= 0 && isClear(false)) ||
                               (demand == Demand::CLEAR && turn > 0 && isClear(true));
            if (!isEar)
            {
                continue;
            }
            triples_.push_back({before, corner, behind});
            cut[corner] = true;
            --left;
            next_[before] = behind;
            previous_[behind] = before;
            if (inTree[corner])
            {
                inTree[corner] = false;
                tree.Remove(corner);
            }
            for (const std::size_t neighbour : {before, behind})
            {
                if (inTree[neighbour] && TurnAt(neighbour) > 0)
                {
                    inTree[neighbour] = false;
                    tree.Remove(neighbour);
                }
                wait(neighbour);
            }
        }
    }
    const auto last = static_cast<std::size_t>(std::find(cut.begin(), cut.end(), false) - cut.begin());
    triples_.push_back({previous_[last], last, next_[last]});
}
