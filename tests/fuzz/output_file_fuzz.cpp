// Feeds arbitrary bytes to the output-file reader: it must refuse the file or
// read it as far as it goes, never crash or hang; whatever it read must write
// and read back, and the result tables must build from it.
#include <unistd.h>

#include <cstdint>
#include <string>

#include "core/language.h"
#include "core/text_file.h"
#include "core/utf16.h"
#include "output/output_file.h"
#include "output/result_tables.h"

namespace {

// Half of the inputs get a valid header in front, so that the fuzzer spends
// its time behind the checks of the first three lines.
std::string WithHeader(const uint8_t* data, size_t size) {
    std::string bytes(reinterpret_cast<const char*>(data), size);
    if (size == 0 || (data[0] & 1) == 0) return bytes;
    std::string header = "\xFF\xFE";
    for (char c : std::string("TORMEL NEXT (64 bits) output file\r\nDo NOT manually edit this file\r\n"
                              "Format version: 1.3\r\n")) {
        header += c;
        header += '\0';
    }
    return header + bytes.substr(1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace tormel;
    static const std::string path = "/tmp/tormel-fuzz-o64-" + std::to_string(getpid());
    if (!WriteFileAtomically(path, WithHeader(data, size))) return 0;

    ResultStore store;
    if (ReadOutputFile(path, store, 0)) return 0;
    // a second set behind the first, as a comparison reads it
    if (ReadOutputFile(path, store, 1)) __builtin_trap();

    const std::string text = FormatOutputFile(store, 1);
    ResultStore again;
    if (ReadOutputText(Utf8ToUtf16(text), again, 0)) __builtin_trap();
    if (FormatOutputFile(again, 0) != text) __builtin_trap();

    const Language language;
    OutputOptions options;
    options.showAll = (size & 1) != 0;
    const ResultContext context{language, options, DecimalSeparator{","}};
    const int32_t components = store.sets[0].header.componentCount;
    for (int32_t i = 0; i < components && i < 64; ++i) {
        SummaryTable(store, 0, i, context);
        DetailsTable(store, 0, i, context);
    }
    return 0;
}
