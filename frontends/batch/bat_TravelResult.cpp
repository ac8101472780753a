#include <bat_TravelResult.h>

const char* bat_TravelResult::StateName() const
{
    switch (state)
    {
    case State::CONTACT:
        return "contact";
    case State::TOUCHING:
        return "touching";
    case State::OVERLAPPING:
        return "overlapping";
    case State::CLEAR:
        break;
    }
    return "clear";
}
