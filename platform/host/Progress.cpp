// The interface's one place in the library.
#include "platform/host/Progress.h"

Progress::~Progress() = default;
