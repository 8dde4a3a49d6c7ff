// What keys and mouse do in the view, as a text for people.
#pragma once

#include "platform/base/CString.h"

CString ViewKeysText();
