#include "shell/association_state.h"

#include <array>
#include <cstdio>

#include "shell/file_associations.h"

namespace tormel {

namespace {

bool IsDefaultForType(const char* mimeType) {
    const std::string command = std::string("xdg-mime query default ") + mimeType + " 2>/dev/null";
    std::string answer;
    if (FILE* pipe = popen(command.c_str(), "r")) {
        std::array<char, 256> buffer{};
        while (fgets(buffer.data(), buffer.size(), pipe)) answer += buffer.data();
        pclose(pipe);
    }
    while (!answer.empty() && (answer.back() == '\n' || answer.back() == ' ')) answer.pop_back();
    return answer == kDesktopEntryName;
}

}  // namespace

AssociationState QueryFileAssociations() { return {IsDefaultForType(kInputMimeType), IsDefaultForType(kOutputMimeType)}; }

std::string AssociationText(const Language& language, AssociationState state) {
    auto text = [&](const char* key) { return LanguageText(language, "Options", key); };
    auto opens = [&](bool associated) { return text(associated ? "Txt3-3" : "Txt3-4"); };
    return text("Txt3-1") + "\n" + text("Txt3-2") + " " + opens(state.input) + ";\n" + text("Txt3-5") + " " +
           opens(state.output) + ".\n" + text("Txt3-6");
}

}  // namespace tormel
