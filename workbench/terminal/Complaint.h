// Complaining where there is no answer to complain beside.
#pragma once

#include "platform/base/CString.h"

// Writes one message: "orvo: " and the text on the standard error stream, the text alone into the sink of OutputSink.h.
void Complain(const CString& text);

// The same, and gives the exit code on: for a command that ends with it.
int Refuse(int code, const CString& text);
