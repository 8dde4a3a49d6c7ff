// Linked into every test program: what a driver of modal windows does wrong is a failure of the test that made it. An
// exception cannot pass through the toolkit's event loop to the test itself.
#include <gtest/gtest.h>

#include "platform/window/ModalDriver.h"

namespace {

void FailTest(const char* text) noexcept {
    ADD_FAILURE() << "A driver of modal windows made a mistake: " << text;
}

const ModalDriver::MistakeHandler kHandlerBefore = ModalDriver::SetMistakeHandler(FailTest);

}  // namespace
