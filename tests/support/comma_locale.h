#pragma once
// Switches the process to a locale with a decimal comma while it lives, when
// one is installed (Debian's locales-all has them).
#include <clocale>
#include <string>

namespace tormel::test {

class CommaLocale {
public:
    CommaLocale() {
        const char* old = std::setlocale(LC_ALL, nullptr);
        old_ = old ? old : "C";
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "nl_NL.UTF-8"})
            if (std::setlocale(LC_ALL, name)) {
                active_ = true;
                break;
            }
    }
    ~CommaLocale() { std::setlocale(LC_ALL, old_.c_str()); }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    bool active() const { return active_; }

private:
    std::string old_;
    bool active_ = false;
};

}  // namespace tormel::test
