// pwritev for the whole program: of large buffers that end in zeros only the beginning is written, and the file gets a
// hole. So a test may make a recording of several GiB on a disk with little room.
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

extern bool g_isSparse;

namespace {

constexpr std::size_t kLarge = 1 << 16;

bool IsZero(const char* bytes, std::size_t count) {
    return count == 0 || (bytes[0] == 0 && std::memcmp(bytes, bytes + 1, count - 1) == 0);
}

// Writes one buffer, with a hole in place of its zeros; the last byte makes the file long enough.
bool WriteOne(int file, const char* bytes, std::size_t size, off_t offset) {
    std::size_t head = size;
    if (g_isSparse && size > kLarge && IsZero(bytes + kLarge, size - kLarge))
        head = kLarge;
    if (pwrite(file, bytes, head, offset) != static_cast<ssize_t>(head))
        return false;
    return head == size || pwrite(file, bytes + size - 1, 1, offset + static_cast<off_t>(size) - 1) == 1;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) ssize_t pwritev(int file, const iovec* buffers, int count,
                                                                  off_t offset) {
    ssize_t total = 0;
    for (int i = 0; i < count; ++i) {
        if (!WriteOne(file, static_cast<const char*>(buffers[i].iov_base), buffers[i].iov_len, offset + total))
            return -1;
        total += static_cast<ssize_t>(buffers[i].iov_len);
    }
    return total;
}
