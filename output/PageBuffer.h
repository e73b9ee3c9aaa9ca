#pragma once

#include <cstddef>
#include <cstdint>

// Bytes in pages of their own: they count as used memory only where they were written, and all go back to the
// system with the buffer, so that a resident program does not stay as large as its largest picture. Moves
// only.
class PageBuffer {
public:
    PageBuffer() = default;
    // Room for `capacity` bytes, all zero. Null when the memory cannot be had.
    explicit PageBuffer(size_t capacity);
    PageBuffer(PageBuffer&& other) noexcept;
    PageBuffer& operator=(PageBuffer&& other) noexcept;
    ~PageBuffer();

    bool isNull() const { return !m_data; }
    uint8_t* data() { return m_data; }
    const uint8_t* data() const { return m_data; }
    size_t capacity() const { return m_capacity; }

    // The bytes in use, counted from the start. Zero until they are appended or set.
    size_t size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }
    void setSize(size_t size) { m_size = size < m_capacity ? size : m_capacity; }
    // False, and nothing is copied, when `count` more bytes do not fit.
    bool append(const void* bytes, size_t count);

private:
    uint8_t* m_data = nullptr;
    size_t m_capacity = 0;
    size_t m_size = 0;
};
