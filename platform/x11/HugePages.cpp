#include "platform/x11/HugePages.h"

#include <memory>

#include <sys/mman.h>

namespace {

constexpr size_t kHugePage = size_t(2) << 20;

// A mapping that begins somewhere before the first huge page.
struct Mapping {
    void* start;
    size_t bytes;
    ~Mapping() { munmap(start, bytes); }
};

std::unique_ptr<Mapping> mapped(size_t bytes)
{
    void* start = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return start == MAP_FAILED ? nullptr : std::unique_ptr<Mapping>(new Mapping{start, bytes});
}

}

QImage imageInHugePages(QSize size)
{
    const qsizetype stride = qsizetype(size.width()) * 4;
    auto mapping = mapped(size_t(stride) * size.height() + kHugePage);
    if (!mapping)
        return {};
    void* pixels = mapping->start;
    size_t room = mapping->bytes;
    std::align(kHugePage, room - kHugePage, pixels, room);
    madvise(pixels, room, MADV_HUGEPAGE);
    const auto unmap = [](void* held) { std::unique_ptr<Mapping>(static_cast<Mapping*>(held)); };
    return QImage(static_cast<uchar*>(pixels), size.width(), size.height(), stride, QImage::Format_RGB32,
        unmap, mapping.release());
}
