// Marks what a library shows to others. Everything else is compiled with hidden visibility.
// Why: docs/decisions/module.md
#pragma once

// Before what is shown: a class with all its members, a function, an object.
#define ORVO_API __attribute__((visibility("default")))
