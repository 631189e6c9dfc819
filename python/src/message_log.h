#pragma once
// UI services for calculations run from Python: no windows; every message
// box is kept (and answered as the command line answers it) so that its
// text can become the message of a Python exception.
#include <string>
#include <vector>

#include "core/ui_services.h"

namespace tormel::python {

// `text` without the line feeds it starts with (messages of the program
// often begin with one).
std::string WithoutLeadingLineFeeds(std::string text);

class MessageLog {
public:
    MessageLog();
    MessageLog(const MessageLog&) = delete;
    MessageLog& operator=(const MessageLog&) = delete;

    const UiServices& Services() const { return services_; }
    // The lines of every message kept, one per line, without leading line feeds.
    std::string Text() const;
    void Clear() { messages_.clear(); }

private:
    UiServices services_;
    std::vector<MessageBoxRequest> messages_;
};

}  // namespace tormel::python
