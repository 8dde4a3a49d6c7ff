// Spreads pieces of work over threads.
// Why: docs/decisions/analysis.md
#pragma once

#include <cstddef>
#include <functional>

// Calls work(index) once for every index below `count`: on the calling thread, and on as many others as make `threads`
// together (0: one for each core), fewer where the system gives no more. `goOn` is told how many pieces are done; it is
// called on the calling thread only, before anything, before each of its own pieces and some times a second while it
// waits for the others. Once it is false no further piece is begun.
//
// Gives whether all of it was done. What either function throws comes out, of several the first, as does
// std::bad_alloc. No thread is left when it returns or throws.
bool ShareWork(std::size_t count, unsigned threads, const std::function<void(std::size_t index)>& work,
               const std::function<bool(std::size_t done)>& goOn);
