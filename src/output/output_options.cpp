#include "output/output_options.h"

namespace tormel {

std::string ScientificFormat(int32_t numDec) {
    std::string format = "%.3E";
    format[2] = static_cast<char>('0' + numDec);
    return format;
}

void RebuildNumberFormats(OutputOptions& options) {
    options.formats.scientific = ScientificFormat(options.units.numDec);
    options.formats.percentage = "%.2f%%";
    options.formats.logarithm = "%9.3f";
}

}  // namespace tormel
