// The sink in force.
#include "workbench/terminal/OutputSink.h"

namespace {

OutputSink* g_sink = nullptr;

}  // namespace

void SetOutputSink(OutputSink* sink) {
    g_sink = sink;
}

OutputSink* CurrentOutputSink() {
    return g_sink;
}
