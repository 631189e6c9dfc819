// Feeds arbitrary bytes to the input file reader through a file on disk (so
// the UTF-16 decoding is exercised too). The first byte chooses the file's
// extension. A file that reads without error must also survive the round
// trip: what the writer makes of it reads back to the same text.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "../input/input_test_system.h"
#include "core/text_file.h"
#include "core/utf16.h"
#include "input/consistency_check.h"
#include "input/input_file_reader.h"
#include "input/input_file_writer.h"
#include "input/program_defaults.h"
#include "core/language.h"

namespace {

const char* const kExtensions[] = {".i64", ".inp", ".I64", ".txt"};

std::string TempPath(const char* extension) {
    return "/tmp/tormel_input_fuzz_" + std::to_string(getpid()) + extension;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const char* extension = kExtensions[data[0] % 4];
    const std::string path = TempPath(extension);
    if (!tormel::WriteFileAtomically(path, std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1)))
        return 0;

    tormel::Database chem = tormel::test::InputTestSystem();
    tormel::InputProblem input;
    tormel::SetProgramDefaults(input, chem);
    auto error = tormel::LoadInputFile(path, input, chem);
    std::remove(path.c_str());
    if (error) {
        if (error->key.rfind("Error", 0) != 0) std::abort();
        return 0;
    }

    tormel::Language noTexts;
    tormel::CheckConsistency(input, chem, noTexts);

    // every number was read whole and every code is within its set, so
    // every file that reads writes a file that reads back the same
    const std::string written = tormel::FormatInputFile(input, chem);
    tormel::Database chemBack = tormel::test::InputTestSystem();
    tormel::InputProblem back;
    auto again = tormel::ReadInputText(tormel::Utf8ToUtf16(written), ".i64", back, chemBack);
    if (again) std::abort();
    if (tormel::FormatInputFile(back, chemBack) != written) std::abort();
    return 0;
}
