// The natal input window's fields and option states as plain data: what the
// chart calculation reads and what a pick in the names list fills.
#pragma once

#include <string>

namespace kal {

struct InputFields {
    std::string txtName;
    std::string txtMonth, txtDay, txtYear;
    std::string txtBirthHour, txtBirthMinute;
    std::string txtTZ;
    std::string txtLongDeg, txtLongMin;
    std::string txtLatDeg, txtLatMin;
    std::string txtEmail;
    bool optAM = true;     // false: optPM
    bool optEast = false;  // false: optWest
    bool optSouth = false; // false: optNorth

    bool optPM() const { return !optAM; }
    bool optWest() const { return !optEast; }
    bool optNorth() const { return !optSouth; }
};

} // namespace kal
