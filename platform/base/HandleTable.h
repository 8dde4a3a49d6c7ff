// Objects that callers name by handles: looking one up never touches memory that was freed, and a handle once given is
// not given again, so that whoever releases one twice harms nobody.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <new>

// Handle is a pointer type that is never followed. All operations may be called from several threads; an object that
// was found stays alive as long as the finder keeps what it got. Nothing throws.
template <class Object, class Handle>
class HandleTable {
public:
    // A handle for the object; null when there is no object or no memory.
    Handle Add(std::shared_ptr<Object> object) noexcept {
        if (!object)
            return nullptr;
        const std::lock_guard lock(m_mutex);
        const std::uintptr_t number = m_next + kStep;
        try {
            m_objects.emplace(number, std::move(object));
        } catch (const std::bad_alloc&) {
            return nullptr;
        }
        m_next = number;
        return reinterpret_cast<Handle>(number);  // a name, never followed
    }
    // Null for a handle that names nothing (any more).
    std::shared_ptr<Object> Find(Handle handle) const noexcept {
        const std::lock_guard lock(m_mutex);
        const auto found = m_objects.find(reinterpret_cast<std::uintptr_t>(handle));
        return found == m_objects.end() ? nullptr : found->second;
    }
    // Forgets the handle and gives what it named; null when it named nothing.
    std::shared_ptr<Object> Remove(Handle handle) noexcept {
        const std::lock_guard lock(m_mutex);
        const auto found = m_objects.find(reinterpret_cast<std::uintptr_t>(handle));
        if (found == m_objects.end())
            return nullptr;
        std::shared_ptr<Object> object = std::move(found->second);
        m_objects.erase(found);
        return object;
    }
    std::size_t Count() const noexcept {
        const std::lock_guard lock(m_mutex);
        return m_objects.size();
    }

private:
    static constexpr std::uintptr_t kStep = 16;  // looks like an aligned address, and 0 is never given

    mutable std::mutex m_mutex;
    std::map<std::uintptr_t, std::shared_ptr<Object>> m_objects;
    std::uintptr_t m_next = 0;
};
