// The list of abandoned storage, in blocks of pointers, so that a program that abandons much pays little more than a
// pointer each.
#include "platform/base/Abandon.h"

#include <cstdlib>

// Present only where the program runs under a leak checker.
extern "C" __attribute__((weak)) void __lsan_ignore_object(const void* storage);

namespace {

constexpr std::size_t kPerNode = 62;

struct Node {
    Node* next;
    std::size_t count;
    const void* blocks[kPerNode];
};

constinit Node* g_newest = nullptr;
constinit std::size_t g_count = 0;

void TellLeakChecker(const void* storage) {
    if (__lsan_ignore_object)
        __lsan_ignore_object(storage);
}

}  // namespace

void Abandon(const void* storage) {
    if (!storage)
        return;
    ++g_count;
    TellLeakChecker(storage);
    if (!g_newest || g_newest->count == kPerNode) {
        auto* node = static_cast<Node*>(std::calloc(1, sizeof(Node)));
        if (!node)
            return;  // the list serves leak checkers only; without memory for it nothing else suffers
        TellLeakChecker(node);
        node->next = g_newest;
        g_newest = node;
    }
    g_newest->blocks[g_newest->count++] = storage;
}

std::size_t AbandonedCount() {
    return g_count;
}
