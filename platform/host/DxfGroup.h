// One pair of an object's data in a drawing file.
#pragma once

#include <string>

struct DxfGroup {
    int nCode = 0;
    // The bytes of the value's line as they are in the file, blanks included, without its line end. AcDbDatabase's
    // Decode and Encode turn them into text and back.
    std::string strValue;

    bool operator==(const DxfGroup& other) const { return nCode == other.nCode && strValue == other.strValue; }
    bool operator!=(const DxfGroup& other) const { return !(*this == other); }
};
