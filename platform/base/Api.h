// Marks what a library shows to others. Everything else is compiled with hidden visibility.
// Why: docs/decisions/module.md
#pragma once

#define ORVO_API __attribute__((visibility("default")))
