// How far a scene is, or an analysis or a film of it, for another thread than the one that makes it.
#pragma once

#include <atomic>
#include <cstddef>

struct SceneProgress {
    std::atomic<std::size_t> done = 0;      // entities of the model space, or what else is counted
    std::atomic<std::size_t> total = 0;     // of all; 0 before it is known
    std::atomic<bool> isCancelled = false;  // set from outside: the scene is then left as it is, and is of no use
    std::atomic<bool> isGivenUp = false;    // besides: nobody wants what could be had of it so far
};
