// A variable of the environment that is another one, or not set, while this lives. Main thread.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace slantwise_tests {

class ScopedVariable {
public:
    ScopedVariable(const char* name, const std::optional<std::string>& value) : name_(name) {
        if (const char* const was = std::getenv(name)) was_ = was;
        set(value);
    }
    ~ScopedVariable() { set(was_); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    void set(const std::optional<std::string>& value) const {
        if (value)
            ::setenv(name_, value->c_str(), 1);
        else
            ::unsetenv(name_);
    }

    const char* name_;
    std::optional<std::string> was_;
};

} // namespace slantwise_tests
