#pragma once

#include <array>
#include <bat_TravelQuestion.h>
#include <gsl_BBox.h>
#include <gsl_Vector.h>
#include <string>

/// The answer to "how far can the movable part go until it touches the fixed one", with all that is printed
/// of it.
struct bat_TravelResult
{
    enum class State {
        CONTACT,     ///< it goes some way, then touches
        TOUCHING,    ///< it touches where it stands
        OVERLAPPING, ///< it crosses the other where it stands
        CLEAR        ///< it goes past, or as far as the bound
    };

    struct Side
    {
        std::string file;
        int triangles = 0;
        gsl_BBox box;
        int triangle = -1;             ///< the one that touches, counted from 0; -1 when clear
        std::array<double, 3> point{}; ///< where it touches, before the travel
    };

    static constexpr double UNLIMITED = bat_TravelQuestion::UNLIMITED;

    State state = State::CLEAR;
    double travel = 0.0; ///< no meaning when clear
    double bound = UNLIMITED;
    double tolerance = 0.0;
    gsl_Vector direction;
    Side fixed;
    Side movable;
    int degenerate = 0;  ///< triangles passed over because they have no normal
    int outside = 0;     ///< triangles that a tree refused
    std::string picture; ///< the file that it was drawn into; empty when it was not

    bool IsClear() const { return state == State::CLEAR; }
    /// "contact", "touching", "overlapping" or "clear".
    const char* StateName() const;
};
