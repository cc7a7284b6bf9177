#pragma once

#include <cstddef>
#include <type_traits>

/**
 * Memory that this process shares with its children, as long as it lives; all bytes are 0 at first.
 */
class shared_memory {
public:
    /** @throw mistake when there is not so much */
    explicit shared_memory(std::size_t bytes);
    ~shared_memory();
    shared_memory(const shared_memory&) = delete;
    shared_memory& operator=(const shared_memory&) = delete;

    void* begin() const { return m_begin; }

private:
    const std::size_t m_bytes;
    void* const m_begin;
};

/** An array that this process shares with its children: what a child wrote is there, however it
 * ended.
 */
template <class T>
class shared_array {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    explicit shared_array(std::size_t size) : m_memory(sizeof(T) * (size + 1)) {}

    /** Elements are reached as volatile: another process changes them. */
    volatile T& operator[](std::size_t i) const {
        return static_cast<volatile T*>(m_memory.begin())[i];
    }

private:
    shared_memory m_memory;
};
