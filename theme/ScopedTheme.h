// Another theme than the two for the life of this object, so that what is drawn can be held against its colours.
#pragma once

#include "theme/QVMUITheme.h"

namespace QVM_NAMESPACE {

class ScopedTheme {
public:
    // From here on QVMUITheme::theme() is the given one, and all views are told. Scopes nest: they end in the reverse
    // order of their beginning. Main thread.
    explicit ScopedTheme(QVMUITheme theme);
    // The theme that was current before is current again.
    ~ScopedTheme();

    ScopedTheme(const ScopedTheme&) = delete;
    ScopedTheme& operator=(const ScopedTheme&) = delete;

private:
    const QVMUITheme theme_;
    const QVMUITheme* const outer_;
};

} // namespace QVM_NAMESPACE
