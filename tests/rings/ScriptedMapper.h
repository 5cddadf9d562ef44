// Memory management that fails on request and counts what is still held.
#pragma once

#include "rings/MemoryMapper.h"

#include <cerrno>
#include <map>
#include <set>

namespace QVM_NAMESPACE {

class ScriptedMapper final : public MemoryMapper {
public:
    // How many of the next calls fail, each with ENOMEM (map: EEXIST for a given place), or land elsewhere.
    int failingCreations = 0, failingMaps = 0, failingUnmaps = 0, failingRemaps = 0, strayRemaps = 0;
    int creations = 0, unmaps = 0;

    int createPages(std::size_t bytes) override {
        ++creations;
        if (failingCreations > 0 && failingCreations--) return fail(ENOMEM), -1;
        const int pages = systemMemoryMapper().createPages(bytes);
        handles_.insert(pages);
        return pages;
    }
    void closePages(int pages) override {
        handles_.erase(pages);
        systemMemoryMapper().closePages(pages);
    }
    void* map(void* at, std::size_t bytes, int pages) override {
        if (!at && failingMaps > 0 && failingMaps--) return fail(ENOMEM), nullptr;
        if (at && failingRemaps > 0 && failingRemaps--) return fail(EEXIST), nullptr;
        if (at && strayRemaps > 0 && strayRemaps--) return mapElsewhere(at, bytes, pages);
        void* const mapped = systemMemoryMapper().map(at, bytes, pages);
        mappedBytes_ += bytes;
        return mapped;
    }
    bool unmap(void* at, std::size_t bytes) override {
        ++unmaps;
        if (failingUnmaps > 0 && failingUnmaps--) return fail(EINVAL), false;
        mappedBytes_ -= bytes;
        return systemMemoryMapper().unmap(at, bytes);
    }

    std::size_t mappedBytes() const { return mappedBytes_; }
    std::size_t openHandles() const { return handles_.size(); }

private:
    // What is at the place while the other one is sought keeps it from being found.
    void* mapElsewhere(void* at, std::size_t bytes, int pages) {
        void* const there = systemMemoryMapper().map(at, bytes, pages);
        void* const elsewhere = systemMemoryMapper().map(nullptr, bytes, pages);
        systemMemoryMapper().unmap(there, bytes);
        mappedBytes_ += bytes;
        return elsewhere;
    }
    static void fail(int error) { errno = error; }
    std::size_t mappedBytes_ = 0;
    std::set<int> handles_;
};

} // namespace QVM_NAMESPACE
