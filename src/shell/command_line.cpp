#include "shell/command_line.h"

#include "core/ini_file.h"
#include "core/utf16.h"

namespace tormel {

namespace {

struct SwitchForm {
    std::string_view longForm;  // "--run"
    std::string_view prefix;    // "/run:"
};

constexpr SwitchForm kSwitches[] = {{"--run", "/run:"}, {"--batch", "/batch:"}, {"--print", "/print:"}};

bool StartsWithIgnoringCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() && EqualIgnoringCase(text.substr(0, prefix.size()), prefix);
}

}  // namespace

std::string CommandLineArgument(const CommandLine& line, int n) {
    if (n > 0) return static_cast<size_t>(n) <= line.arguments.size() ? line.arguments[n - 1] : std::string();
    std::string joined;
    for (const std::string& argument : line.arguments) joined += argument + " ";
    joined = CutToUtf16Units(joined, kJoinedArgumentsLimit);
    const size_t first = joined.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    const size_t last = joined.find_last_not_of(' ');
    return joined.substr(first, last - first + 1);
}

CommandLineAction ClassifyCommandLine(const CommandLine& line) {
    const std::string joined = CommandLineArgument(line, 0);
    if (joined.empty()) return CommandLineAction::None;
    if (StartsWithIgnoringCase(joined, "/run:")) return CommandLineAction::Run;
    if (StartsWithIgnoringCase(joined, "/batch:")) return CommandLineAction::Batch;
    if (StartsWithIgnoringCase(joined, "/print:")) return CommandLineAction::Print;
    return CommandLineAction::OpenFile;
}

CommandLine NormaliseCommandLine(std::vector<std::string> arguments) {
    CommandLine line{std::move(arguments)};
    if (line.arguments.empty()) return line;
    const std::string first = line.arguments.front();
    for (const SwitchForm& form : kSwitches) {
        if (first == form.longForm && line.arguments.size() >= 2) {
            line.arguments[1] = std::string(form.prefix) + line.arguments[1];
            line.arguments.erase(line.arguments.begin());
            break;
        }
        if (first.size() > form.longForm.size() && first.compare(0, form.longForm.size(), form.longForm) == 0 &&
            first[form.longForm.size()] == '=') {
            line.arguments[0] = std::string(form.prefix) + first.substr(form.longForm.size() + 1);
            break;
        }
    }
    return line;
}

bool HasExtension(std::string_view path, std::string_view extension) {
    return path.size() >= extension.size() && EqualIgnoringCase(path.substr(path.size() - extension.size()), extension);
}

std::string FileNamePart(std::string_view path) {
    const size_t slash = path.rfind('/');
    return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

std::string CompleteWithFolder(const std::string& name, const std::string& folder) {
    if (name.empty() || name.find('/') != std::string::npos) return name;  // empty, or a folder is named
    std::string completed;
    completed.reserve(folder.size() + name.size());
    completed.append(folder).append(name);
    if (Utf16Length(completed) >= kMaxPathChars) return name;
    return completed;
}

std::string ReplaceExtension(const std::string& name, std::string_view extension) {
    const size_t slash = name.rfind('/');
    const size_t start = slash == std::string::npos ? 0 : slash + 1;
    const size_t dot = name.rfind('.');
    if (dot == std::string::npos || dot < start) return name + std::string(extension);
    return name.substr(0, dot) + std::string(extension);
}

}  // namespace tormel
