#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <map>
#include <regex>
#include <set>

#include "core/text_file.h"
#include "core/utf16.h"
#include "input/test_language.h"
#include "core/ini_file.h"
#include "core/language.h"
#include "output/other_info_texts.h"
#include "shell/batch_job.h"
#include "support/temp_folder.h"

namespace tormel {
namespace {

namespace fs = std::filesystem;

using KeySet = std::map<std::string, std::set<std::string>>;  // folded section -> folded keys

KeySet KeysOf(const std::string& path) {
    IniFile ini(path);
    KeySet keys;
    for (const std::string& section : ini.Sections())
        for (const std::string& key : ini.Keys(section)) keys[FoldCase(section)].insert(FoldCase(key));
    return keys;
}

// Every LanguageText / LanguageTextOr / LangQ / LangQOr call in the sources that names its
// section and key as whole literals (a key composed as "Main" + n is not one).
std::vector<std::pair<std::string, std::string>> LookupsInSources() {
    const std::regex call(R"re((?:LanguageText|LangQ)(?:Or)?\s*\(\s*[^,()]+,\s*"([^"]+)"\s*,\s*"([^"]+)"\s*[,)])re");
    std::vector<std::pair<std::string, std::string>> lookups;
    for (const auto& entry : fs::recursive_directory_iterator(std::string(TORMEL_SOURCE_DIR) + "/src")) {
        const std::string ext = entry.path().extension().string();
        if (!entry.is_regular_file() || (ext != ".cpp" && ext != ".h")) continue;
        const std::string text = test::ReadBytes(entry.path().string());
        for (std::sregex_iterator it(text.begin(), text.end(), call), end; it != end; ++it)
            lookups.emplace_back((*it)[1].str(), (*it)[2].str());
    }
    return lookups;
}

const char* const kFiles[] = {"0default.lang", "deutsch.lang"};

TEST(LanguageFiles, BothFilesHoldTheSameSectionsAndKeys) {
    const KeySet english = KeysOf(test::DeliveredLanguagePath("0default.lang"));
    const KeySet german = KeysOf(test::DeliveredLanguagePath("deutsch.lang"));
    EXPECT_GT(english.size(), 25u);
    EXPECT_EQ(english, german);
}

// Each delivered file: UTF-16 with a byte order mark and CR LF line ends,
// every text present and on one line, six distinct tile accelerators. (The
// display names on their first lines are checked by LanguageSetupTest.)
TEST(LanguageFiles, AreUtf16CrLfWithEveryTextAndDistinctTileAccelerators) {
    for (const char* name : kFiles) {
        SCOPED_TRACE(name);
        const auto bytes = ReadBinaryFile(test::DeliveredLanguagePath(name));
        ASSERT_TRUE(bytes);
        ASSERT_GE(bytes->size(), 2u);
        EXPECT_EQ(bytes->substr(0, 2), "\xFF\xFE");
        EXPECT_EQ(bytes->size() % 2, 0u);
        for (size_t i = 2; i + 1 < bytes->size(); i += 2) {
            if (bytes->compare(i, 2, std::string("\n\0", 2)) != 0) continue;
            ASSERT_GE(i, 4u);
            ASSERT_EQ(bytes->compare(i - 2, 2, std::string("\r\0", 2)), 0) << "bare line feed at byte " << i;
        }

        Language language(test::DeliveredLanguagePath(name));
        IniFile ini(test::DeliveredLanguagePath(name));
        for (const std::string& section : ini.Sections())
            for (const std::string& key : ini.Keys(section))
                EXPECT_NE(LanguageTextOr(language, section, key, "\x01missing"), "") << section << "/" << key;

        std::set<char> letters;
        for (int k = 1; k <= 6; ++k) {
            const std::string caption = LanguageText(language, "MainMenu", "Main" + std::to_string(k));
            const size_t amp = caption.find('&');
            ASSERT_TRUE(amp != std::string::npos && amp + 1 < caption.size()) << caption;
            letters.insert(static_cast<char>(std::toupper(static_cast<unsigned char>(caption[amp + 1]))));
        }
        EXPECT_EQ(letters.size(), 6u);
    }
}

TEST(LanguageFiles, HoldEveryKeyTheProgramLooksUp) {
    std::vector<std::pair<std::string, std::string>> lookups = LookupsInSources();
    ASSERT_GT(lookups.size(), 20u);  // the scan finds the program's lookups
    // keys the program composes at run time
    for (int k = 1; k <= 5; ++k) lookups.emplace_back("Input", "ErrorOpen" + std::to_string(k));
    for (int k = 1; k <= 22; ++k) lookups.emplace_back("Input", "ConsistencyError" + std::to_string(k));
    for (int k = 1; k <= 43; ++k) lookups.emplace_back("MENUTOOLTIPS", "ToolTip" + std::to_string(k));
    for (int k = 1; k <= 7; ++k) lookups.emplace_back("OtherInfo", "InpTabName" + std::to_string(k));
    for (int k = 1; k <= 7; ++k) lookups.emplace_back("DB_VIEW", "EqType" + std::to_string(k));
    for (int k = 1; k <= 9; ++k) lookups.emplace_back("Output", "ToolTip" + std::to_string(k));
    for (int k = 1; k <= 5; ++k) lookups.emplace_back("InputEdit", "ToolTip" + std::to_string(k));
    for (int k = 1; k <= 6; ++k) lookups.emplace_back("MainMenu", "Main" + std::to_string(k));
    for (const std::string_view key : kOtherInfoTextKeys) lookups.emplace_back("OtherInfo", key);
    for (const std::string_view key : kBatchWaitKeys) lookups.emplace_back("Batch", key);

    for (const char* name : kFiles) {
        const KeySet keys = KeysOf(test::DeliveredLanguagePath(name));
        for (const auto& [section, key] : lookups) {
            auto it = keys.find(FoldCase(section));
            EXPECT_TRUE(it != keys.end() && it->second.count(FoldCase(key)))
                << name << " lacks " << section << "/" << key;
        }
    }
}

TEST(LanguageText, LooksUpBySectionAndKeyIgnoringLetterCase) {
    Language english = test::English();
    EXPECT_EQ(LanguageText(english, "TOOLS", "BtnOK"), "OK");
    EXPECT_EQ(LanguageText(english, "Tools", "btnok"), "OK");
    EXPECT_EQ(LanguageText(english, "EQDEF", "AddInfoSolid"), LanguageText(english, "EqDef", "AddInfoSolid"));
    EXPECT_EQ(LanguageText(english, "Input", "NoSuchKey"), "");
    EXPECT_EQ(LanguageText(english, "NoSuchSection", "BtnOK"), "");
    EXPECT_EQ(LanguageTextOr(english, "Input", "NoSuchKey", "fallback"), "fallback");
    EXPECT_EQ(LanguageTextOr(english, "TOOLS", "WaitHead", "Please wait"), LanguageText(english, "TOOLS", "WaitHead"));
    // a blank that matters is kept (the value is quoted in the file)
    EXPECT_EQ(LanguageText(english, "OtherInfo", "GasLong4").front(), ' ');
    EXPECT_EQ(LanguageTextLength(test::German(), "OtherInfo", "InpTypeFreeAct"), 15);  // "freie Aktivität"
}

TEST(LanguageText, MissingFileGivesTheDefaults) {
    Language none;
    EXPECT_EQ(LanguageText(none, "TOOLS", "BtnOK"), "");
    EXPECT_EQ(LanguageTextOr(none, "TOOLS", "Init", "Initializing..."), "Initializing...");
    Language absent("/nonexistent/LANG.INI");
    EXPECT_EQ(LanguageTextOr(absent, "Languages", "LangCaption", "Select language"), "Select language");
}

}  // namespace
}  // namespace tormel
