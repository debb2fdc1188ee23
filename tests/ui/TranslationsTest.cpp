// SPDX-License-Identifier: Apache-2.0
#include "ui/Translations.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <gtest/gtest.h>

namespace skipnest::ui {
namespace {

using namespace Qt::StringLiterals;

// Has the program speak a language for as long as it lives.
class Speaking {
public:
    explicit Speaking(const QString& language) {
        installTranslations(*QCoreApplication::instance(), QLocale(language));
    }
    ~Speaking() {
        // Deleting one removes it.
        qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator*>());
    }
    Speaking(const Speaking&) = delete;
    Speaking& operator=(const Speaking&) = delete;

    [[nodiscard]] static QString next() {
        return QCoreApplication::translate("Onboarding", "Next");
    }
    [[nodiscard]] static QString unbound(int count) {
        return QCoreApplication::translate("skipnest::ui::ListBanner",
                                           "%n of %1 keys are not bound", nullptr, count)
            .arg(9);
    }
};

TEST(Translations, SpeakTheLanguageOfThePersonWithItsPlurals) {
    {
        const Speaking german(u"de_AT"_s);
        EXPECT_EQ(Speaking::next(), u"Weiter"_s);
        EXPECT_EQ(Speaking::unbound(1), u"1 von 9 Tasten wirkt nicht"_s);
        EXPECT_EQ(Speaking::unbound(2), u"2 von 9 Tasten wirken nicht"_s);
    }
    // English, and whatever nobody has translated to.
    for (const auto& language : {u"en_GB"_s, u"fr_FR"_s}) {
        const Speaking english(language);
        EXPECT_EQ(Speaking::next(), u"Next"_s);
        EXPECT_EQ(Speaking::unbound(1), u"1 of 9 keys is not bound"_s);
        EXPECT_EQ(Speaking::unbound(2), u"2 of 9 keys are not bound"_s);
    }
}

} // namespace
} // namespace skipnest::ui
