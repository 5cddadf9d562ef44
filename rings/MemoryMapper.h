// The four things that a ring asks of the system's memory management, so that a test can make each of them fail.
#pragma once

#include "BuildNamespace.h"

#include <cstddef>

namespace QVM_NAMESPACE {

class MemoryMapper {
public:
    virtual ~MemoryMapper() = default;
    // Pages that can be mapped more than once, zeroed. A handle, or -1 with errno set.
    virtual int createPages(std::size_t bytes) = 0;
    // Gives the handle back; the pages live on while they are mapped.
    virtual void closePages(int pages) = 0;
    // Maps the pages from their start for reading and writing: anywhere (null), or at `at`, where nothing may be mapped
    // yet. Bytes beyond the pages' end are address space only. Null with errno set on failure; a system that cannot
    // insist on the place may give another one.
    virtual void* map(void* at, std::size_t bytes, int pages) = 0;
    // False with errno set on failure.
    virtual bool unmap(void* at, std::size_t bytes) = 0;
};

// The machine's own. Lives as long as the process; any thread.
MemoryMapper& systemMemoryMapper();

} // namespace QVM_NAMESPACE
