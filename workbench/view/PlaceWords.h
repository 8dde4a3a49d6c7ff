// Names of places for people.
#pragma once

#include "facts/Place.h"
#include "platform/base/CString.h"

// "苏州"; where the language of the interface is not Chinese, with its reading: "苏州 (Suzhou)". A name that is not
// Chinese, or has no reading, stands alone.
CString NameInWords(const CString& name);

// The place with its province, which is named once where both have one name: "江苏/苏州", "北京"; with the reading as
// above: "江苏/苏州 (Jiangsu/Suzhou)".
CString PlaceInWords(const Place& place);
