// The platform's own messages to the user (a refused save, an unusable language table): one text each, handed to a sink
// that the program chooses.
#pragma once

#include "platform/base/Api.h"

// Receives one message without line end. `context` is what SetMessageSink got.
using MessageSink = void (*)(const wchar_t* text, void* context);

// Hands a message to the sink. Null and empty texts are dropped. Usable at any time, also while static objects of any
// library are constructed or destroyed.
ORVO_API void ReportMessage(const wchar_t* text);

// Replaces the sink; null restores the first one, which writes the message as a line of UTF-8 to the standard error
// stream. The context must outlive its use.
ORVO_API void SetMessageSink(MessageSink sink, void* context);
