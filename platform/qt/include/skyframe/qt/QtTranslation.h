#pragma once

#include <string_view>

namespace skyframe {

/// Qt's own texts, of file dialogs, buttons and menus, in the language of a locale like "zh_CN" from now on; false, and
/// English, when there is no translation for it. Needs a QApplication. What is open already keeps its texts.
bool UseQtTranslation(std::string_view strLocale);

}  // namespace skyframe
