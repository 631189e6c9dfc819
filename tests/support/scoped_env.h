#pragma once
// An environment variable set (or, with nullopt, unset) while the object
// lives; the old value comes back at its end.
#include <cstdlib>
#include <optional>
#include <string>

namespace tormel::test {

class ScopedEnv {
public:
    ScopedEnv(const char* name, std::optional<std::string> value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        Set(value);
    }
    ~ScopedEnv() { Set(old_); }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

    void Set(const std::optional<std::string>& value) {
        if (value) setenv(name_.c_str(), value->c_str(), 1);
        else unsetenv(name_.c_str());
    }

private:
    std::string name_;
    std::optional<std::string> old_;
};

}  // namespace tormel::test
