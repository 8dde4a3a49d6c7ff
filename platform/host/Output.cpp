// Lines as text.
#include "platform/host/Output.h"

Output::~Output() = default;

void Output::Line(const CString& text) {
    Write(ToUtf8(text.View()) + "\n");
}
