#include "program/HeldErrorStream.h"

#include <cstdio>

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace QVM_NAMESPACE {

HeldErrorStream::HeldErrorStream() : kept_(memfd_create("error stream", MFD_CLOEXEC)), real_(dup(STDERR_FILENO)) {
    std::fflush(stderr);
    if (kept_ >= 0 && real_ >= 0) dup2(kept_, STDERR_FILENO);
}

HeldErrorStream::~HeldErrorStream() {
    std::fflush(stderr);
    if (real_ >= 0) {
        dup2(real_, STDERR_FILENO);
        close(real_);
    }
    if (kept_ >= 0) close(kept_);
}

int HeldErrorStream::realStream() const {
    return real_ >= 0 ? real_ : STDERR_FILENO;
}

bool HeldErrorStream::heldAnything() const {
    std::fflush(stderr);
    struct stat kept {};
    return kept_ >= 0 && fstat(kept_, &kept) == 0 && kept.st_size > 0;
}

} // namespace QVM_NAMESPACE
