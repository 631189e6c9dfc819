#include "output/result_set_list.h"

#include <algorithm>

#include "core/text_file.h"
#include "core/utf16.h"
#include "output/build_other_info.h"

namespace tormel {

namespace {

constexpr size_t kNumberChars = 3;
constexpr int kDescriptionLine = 4;

// The n-th line (1-based) of a file, without its line feed; empty when the
// file cannot be read or is shorter.
std::string FileLine(const std::string& path, int n) {
    const std::optional<std::u16string> text = ReadUtf16File(path);
    if (!text) return std::string();
    size_t start = 0;
    for (int line = 1; line < n; ++line) {
        const size_t end = text->find(u'\n', start);
        if (end == std::u16string::npos) return std::string();
        start = end + 1;
    }
    const size_t end = text->find(u'\n', start);
    return Utf16ToUtf8(std::u16string_view(*text).substr(start, end == std::u16string::npos ? end : end - start));
}

}  // namespace

std::string ComparisonNumber(int32_t position) {
    std::string number = "#" + std::to_string(position);
    if (number.size() > kNumberChars) number.resize(kNumberChars);
    return number;
}

std::optional<OutputFileError> AddToComparison(ResultStore& store, ComparisonList& list, const std::string& path,
                                               const ResultContext& context, InputProblem* currentInput,
                                               const UiServices* ui) {
    const int32_t s = static_cast<int32_t>(list.rows.size());
    if (std::optional<OutputFileError> error = ReadOutputFile(path, store, s, currentInput, ui)) {
        while (s > 0 && store.SetCount() > s) RemoveResultSet(store, store.SetCount() - 1);
        return error;
    }
    BuildOtherInfo(store, s, context);
    list.rows.push_back({ComparisonNumber(s + 1), path, FileLine(path, kDescriptionLine)});
    return std::nullopt;
}

void RemoveResultSet(ResultStore& store, int32_t s) {
    if (s < 0 || s >= store.SetCount()) return;
    if (store.SetCount() == 1) {
        ResetResultStore(store, 0);
        return;
    }
    StoreSetRecords(store, s, SetRecords{});  // the set's records leave the arrays
    store.sets.erase(store.sets.begin() + s);
}

void RemoveFromComparison(ResultStore& store, ComparisonList& list, int32_t s) {
    if (store.SetCount() <= 1) {
        CloseComparison(store, list);
        return;
    }
    RemoveResultSet(store, s);
    if (s < 0 || static_cast<size_t>(s) >= list.rows.size()) return;
    list.rows.erase(list.rows.begin() + s);
    for (size_t row = 0; row < list.rows.size(); ++row)
        list.rows[row].number = ComparisonNumber(static_cast<int32_t>(row) + 1);
}

void CloseComparison(ResultStore& store, ComparisonList& list) {
    ResetResultStore(store, 0);
    store.holdsLoadedOutput = false;
    list.rows.clear();
}

}  // namespace tormel
