#include "output/other_info_texts.h"

namespace tormel {

std::shared_ptr<const IniFile::Table> OtherInfoTexts(const Language& language) {
    static const IniFile::KeyList kList{"OtherInfo", kOtherInfoTextKeys, kLanguageTextLimit};
    return LanguageTexts(language, kList);
}

}  // namespace tormel
