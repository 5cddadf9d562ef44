#include "rings/MemoryMapper.h"

#include <cerrno>
#include <sys/mman.h>
#include <sys/types.h>
#include <unistd.h>

namespace QVM_NAMESPACE {

namespace {

class SystemMemoryMapper final : public MemoryMapper {
public:
    int createPages(std::size_t bytes) override {
        const int pages = ::memfd_create("audio-ring", MFD_CLOEXEC);
        if (pages < 0 || ::ftruncate(pages, static_cast<off_t>(bytes)) == 0) return pages;
        const int error = errno;
        ::close(pages);
        errno = error;
        return -1;
    }
    void closePages(int pages) override { ::close(pages); }
    void* map(void* at, std::size_t bytes, int pages) override {
        // Not plain MAP_FIXED: another thread may have mapped something there since it was free.
        const int flags = MAP_SHARED | (at ? MAP_FIXED_NOREPLACE : 0);
        void* const mapped = ::mmap(at, bytes, PROT_READ | PROT_WRITE, flags, pages, 0);
        return mapped == MAP_FAILED ? nullptr : mapped;
    }
    bool unmap(void* at, std::size_t bytes) override { return ::munmap(at, bytes) == 0; }
};

} // namespace

MemoryMapper& systemMemoryMapper() {
    static SystemMemoryMapper mapper;
    return mapper;
}

} // namespace QVM_NAMESPACE
