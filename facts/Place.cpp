// Name and position of a place.
#include "facts/Place.h"

#include <cmath>

CString Place::FullName() const {
    return province.IsEmpty() ? city : province + L"/" + city;
}

bool Place::IsOnTheGlobe() const {
    return std::abs(longitude) <= 180.0 && std::abs(latitude) <= 90.0;
}
