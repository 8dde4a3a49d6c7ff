// printf-style formats that are known only at run time: filling one, and comparing two before one stands in for the
// other (a translated format must ask for the same arguments as the built-in one).
#pragma once

#include <cstddef>
#include <string>

#include "platform/base/Api.h"

// One argument of a format: a whole number, a floating-point number or a wide text (which is not copied; a CString
// gives its own).
struct ORVO_API TextArgument {
    // What it is.
    enum class Kind {
        Integer,  // for %d %i %u %x %X %o %c
        Real,     // for %f %lf %e %g
        Text,     // for %s
    };

    // From its value; null stands for an empty text.
    TextArgument(int value) : kind(Kind::Integer), integer(value) {}
    TextArgument(double value) : kind(Kind::Real), real(value) {}
    TextArgument(const wchar_t* value) : kind(Kind::Text), text(value ? value : L"") {}

    Kind kind;                      // which of the others counts
    int integer = 0;                // the number
    double real = 0.0;              // the number
    const wchar_t* text = nullptr;  // the caller's
};

// Fills `format` with `count` arguments and stores the result in `out`. Conversions: %d %i %u %x %X %o %c (integer),
// %f %lf %e %g (real), %s (text), %%; flags, width and precision up to 99 as in C; '*' is not accepted. The decimal
// separator is always a point. False when the format is malformed or asks for other arguments than it gets; `out`
// then keeps what it had.
ORVO_API bool FormatText(std::wstring& out, const wchar_t* format, const TextArgument* arguments, std::size_t count);

// Whether `candidate` asks for the same kinds of arguments in the same order as `model`, so that it may replace it.
// A text without conversions matches any other such text. False for malformed formats, save that a malformed model
// (a plain text with a lone '%', say) is taken as a text that is not a format, and matches anything.
ORVO_API bool HasSameConversions(const wchar_t* model, const wchar_t* candidate);
