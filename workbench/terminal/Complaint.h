// Complaining where there is no answer to complain beside.
#pragma once

#include "platform/base/CString.h"

// Writes one message: "orvo: " and the text on the standard error stream, the text alone into the sink of OutputSink.h.
void Complain(const CString& text);

// The same for what is no fault, beside an answer: how large something will be, or that it is done.
void Note(const CString& text);

// A complaint, and gives the exit code on: for a command that ends with it.
int Refuse(int code, const CString& text);
