// SPDX-License-Identifier: Apache-2.0
#include "model/AppConfiguration.h"

namespace skipnest::model {

Theme AppConfiguration::themeOrDefault() const {
    for (const Theme theme : {Theme::light, Theme::dark}) {
        if (themeRaw == themeName(theme))
            return theme;
    }
    return Theme::brand;
}

QString themeName(Theme theme) {
    switch (theme) {
    case Theme::light:
        return QStringLiteral("light");
    case Theme::dark:
        return QStringLiteral("dark");
    case Theme::brand:
        return QStringLiteral("brand");
    }
    return {};
}

} // namespace skipnest::model
