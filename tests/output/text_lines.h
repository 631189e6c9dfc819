#pragma once
// A text as the lines a test looks through.
#include <string>
#include <vector>

namespace tormel::test {

// `text` split at its line feeds, without them; a last line without a line
// feed counts too.
std::vector<std::string> Lines(const std::string& text);

}  // namespace tormel::test
