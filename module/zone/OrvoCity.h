// The name of a place, as lists of analysed places keep it.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// A value class. Names compare ordinally and with regard to case; two cities of the same name are the same.
class ORVO_API OrvoCity {
public:
    // Without a name.
    OrvoCity() = default;
    // With that name, whatever it is.
    explicit OrvoCity(CString name);

    // By the names.
    bool operator==(const OrvoCity& other) const;
    bool operator!=(const OrvoCity& other) const;
    bool operator<(const OrvoCity& other) const;
    bool operator>(const OrvoCity& other) const;

    CString m_strName;  // as the place database has it
};
