#include "support/RealtimeTrap.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <dlfcn.h>
#include <pthread.h>
#include <semaphore.h>
#include <sys/prctl.h>
#include <ucontext.h>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TRAP_WITH_SANITIZER 1
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void*, size_t),
                                                         void (*)(const volatile void*));
#else
#define TRAP_WITH_SANITIZER 0
#endif

#if defined(__x86_64__) && !TRAP_WITH_SANITIZER
#define TRAP_SYSTEM_CALLS 1
#ifndef PR_SET_SYSCALL_USER_DISPATCH
#define PR_SET_SYSCALL_USER_DISPATCH 59
#endif
#else
#define TRAP_SYSTEM_CALLS 0
#endif

namespace {

// Constant-initialised, so that reading them in an allocator needs no guard.
constinit thread_local bool armed = false;
constinit thread_local realtime::Offences offences;
constinit thread_local volatile char systemCallsBlocked = 0;

void count(unsigned realtime::Offences::*kind, const char* name) {
    if (!armed) return;
    if (!offences.heapCalls && !offences.locks) offences.first = name;
    ++(offences.*kind);
}

void countHeapCall(const char* name) {
    count(&realtime::Offences::heapCalls, name);
}
void countLock(const char* name) {
    count(&realtime::Offences::locks, name);
}

#if TRAP_SYSTEM_CALLS
// Counts the call, then lets it happen: the instruction is run again with nothing blocked any more.
void onBlockedSystemCall(int, siginfo_t* info, void* context) {
    systemCallsBlocked = 0;
    ++offences.systemCalls;
    offences.firstSystemCall = info->si_syscall;
    constexpr greg_t instructionBytes = 2;
    static_cast<ucontext_t*>(context)->uc_mcontext.gregs[REG_RIP] -= instructionBytes;
}

bool dispatchSystemCalls() {
    struct sigaction action = {};
    action.sa_sigaction = onBlockedSystemCall;
    action.sa_flags = SA_SIGINFO;
    if (sigaction(SIGSYS, &action, nullptr) != 0) return false;
    constexpr unsigned long on = 1;
    return prctl(PR_SET_SYSCALL_USER_DISPATCH, on, 0UL, 0UL, &systemCallsBlocked) == 0;
}
#else
bool dispatchSystemCalls() {
    return false;
}
#endif

} // namespace

namespace realtime {

bool seesSystemCalls() {
    thread_local const bool dispatched = dispatchSystemCalls();
    return dispatched;
}

void arm() {
#if TRAP_WITH_SANITIZER
    static const int installed =
        __sanitizer_install_malloc_and_free_hooks([](const volatile void*, size_t) { countHeapCall("allocation"); },
                                                  [](const volatile void*) { countHeapCall("free"); });
    if (installed == 0) std::abort();
#endif
    const bool block = seesSystemCalls();
    offences = {};
    armed = true;
    systemCallsBlocked = block ? 1 : 0;
}

Offences disarm() {
    systemCallsBlocked = 0;
    armed = false;
    return offences;
}

} // namespace realtime

// The replacements. They must be seen by the libraries too.
#define TRAP_EXPORT extern "C" __attribute__((visibility("default")))

// Counts, then calls the function that this one stands in front of.
#define TRAP_LOCK(name, parameters, arguments)                                                                         \
    TRAP_EXPORT int name parameters noexcept {                                                                         \
        static int(*volatile real) parameters = nullptr;                                                               \
        if (!real) real = reinterpret_cast<int(*) parameters>(dlsym(RTLD_NEXT, #name));                                \
        countLock(#name);                                                                                              \
        return real arguments;                                                                                         \
    }

TRAP_LOCK(pthread_mutex_lock, (pthread_mutex_t * mutex), (mutex))
TRAP_LOCK(pthread_rwlock_rdlock, (pthread_rwlock_t * lock), (lock))
TRAP_LOCK(pthread_rwlock_wrlock, (pthread_rwlock_t * lock), (lock))

#undef TRAP_LOCK

#if !TRAP_WITH_SANITIZER

extern "C" {
void* __libc_malloc(size_t bytes);
void* __libc_calloc(size_t count, size_t bytes);
void* __libc_realloc(void* block, size_t bytes);
void* __libc_memalign(size_t alignment, size_t bytes);
void __libc_free(void* block);
}

TRAP_EXPORT void* malloc(size_t bytes) {
    countHeapCall("malloc");
    return __libc_malloc(bytes);
}

TRAP_EXPORT void* calloc(size_t number, size_t bytes) {
    countHeapCall("calloc");
    return __libc_calloc(number, bytes);
}

TRAP_EXPORT void* realloc(void* block, size_t bytes) {
    countHeapCall("realloc");
    return __libc_realloc(block, bytes);
}

TRAP_EXPORT void* memalign(size_t alignment, size_t bytes) {
    countHeapCall("memalign");
    return __libc_memalign(alignment, bytes);
}

TRAP_EXPORT void* aligned_alloc(size_t alignment, size_t bytes) {
    countHeapCall("aligned_alloc");
    return __libc_memalign(alignment, bytes);
}

TRAP_EXPORT int posix_memalign(void** block, size_t alignment, size_t bytes) {
    countHeapCall("posix_memalign");
    *block = __libc_memalign(alignment, bytes);
    return *block || !bytes ? 0 : ENOMEM;
}

TRAP_EXPORT void free(void* block) {
    countHeapCall("free");
    __libc_free(block);
}

#endif
