// SPDX-License-Identifier: Apache-2.0
#include "ui/Translations.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

namespace skipnest::ui {

void installTranslations(QCoreApplication& application, const QLocale& locale) {
    const QString folder = QStringLiteral(":/translations");
    const QString name = QStringLiteral("skipnest");
    const auto install = [&](const QLocale& wanted) {
        auto* translator = new QTranslator(&application);
        if (translator->load(wanted, name, QStringLiteral("_"), folder))
            QCoreApplication::installTranslator(translator);
        else
            delete translator;
    };
    // The last one is asked first. English has an entry for each text with a number in it: "1
    // shortcut", "2 shortcuts".
    install(QLocale(QLocale::English));
    install(locale);
}

} // namespace skipnest::ui
