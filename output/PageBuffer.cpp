#include "output/PageBuffer.h"

#include <sys/mman.h>

#include <cstring>
#include <utility>

PageBuffer::PageBuffer(size_t capacity)
{
    if (capacity == 0)
        return;
    void* pages = mmap(nullptr, capacity, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED)
        return;
#ifdef MADV_HUGEPAGE // a few large pages are had far sooner than thousands of small ones
    madvise(pages, capacity, MADV_HUGEPAGE);
#endif
    m_data = static_cast<uint8_t*>(pages);
    m_capacity = capacity;
}

PageBuffer::PageBuffer(PageBuffer&& other) noexcept
    : m_data(std::exchange(other.m_data, nullptr))
    , m_capacity(std::exchange(other.m_capacity, 0))
    , m_size(std::exchange(other.m_size, 0))
{
}

PageBuffer& PageBuffer::operator=(PageBuffer&& other) noexcept
{
    std::swap(m_data, other.m_data);
    std::swap(m_capacity, other.m_capacity);
    std::swap(m_size, other.m_size);
    return *this;
}

PageBuffer::~PageBuffer()
{
    if (m_data)
        munmap(m_data, m_capacity);
}

bool PageBuffer::append(const void* bytes, size_t count)
{
    if (count > m_capacity - m_size)
        return false;
    std::memcpy(m_data + m_size, bytes, count);
    m_size += count;
    return true;
}
