// One pair of an object's data in a drawing file.
#pragma once

#include <string>

// A code, and what it says, as it stands in the file.
struct DxfGroup {
    int code = 0;  // -5 to 1071
    // The bytes of the value's line as they are in the file, blanks included, without its line end. AcDbDatabase's
    // Decode and Encode turn them into text and back.
    std::string value;

    // By code and bytes.
    bool operator==(const DxfGroup& other) const { return code == other.code && value == other.value; }
    bool operator!=(const DxfGroup& other) const { return !(*this == other); }
};
