// A word that the render thread and the main thread share.
//
// It is read and written whole and, unless asked otherwise, in no order with other words (relaxed), which costs what a
// plain variable costs. The ordered operations are for flags that say something about other words. Copying copies the
// value, so that records of such words can be copied field by field.
#pragma once

#include "BuildNamespace.h"

#include <atomic>

namespace QVM_NAMESPACE {

template <class T>
class SharedWord {
public:
    SharedWord() = default;
    SharedWord(T value) : word_(value) {}
    SharedWord(const SharedWord& other) : word_(other.load()) {}
    SharedWord& operator=(const SharedWord& other) {
        store(other.load());
        return *this;
    }
    SharedWord& operator=(T value) {
        store(value);
        return *this;
    }

    // Any thread, no order.
    T load() const { return word_.load(std::memory_order_relaxed); }
    void store(T value) { word_.store(value, std::memory_order_relaxed); }
    operator T() const { return load(); }
    // Puts another value in its place and gives the one there was. Any thread, no order.
    T exchange(T value) { return word_.exchange(value, std::memory_order_relaxed); }
    // Puts a greater value in its place; a smaller one and what is no number count for nothing. Any thread, no order:
    // it tries again only when somebody else wrote at that very moment.
    void raiseTo(T value) {
        T seen = load();
        while (value > seen && !word_.compare_exchange_weak(seen, value, std::memory_order_relaxed)) {}
    }

    // Sets the bits that `bits` has. Any thread, no order.
    void setBits(T bits) { word_.fetch_or(bits, std::memory_order_relaxed); }

    // Any thread; all ordered operations, on whatever words, happen in one order that every thread agrees on, and what
    // was written before an ordered store is seen after an ordered load of it.
    T loadOrdered() const { return word_.load(); }
    void storeOrdered(T value) { word_.store(value); }
    T exchangeOrdered(T value) { return word_.exchange(value); }

private:
    std::atomic<T> word_{};
    static_assert(std::atomic<T>::is_always_lock_free, "the render thread must never wait for a word");
};

} // namespace QVM_NAMESPACE
