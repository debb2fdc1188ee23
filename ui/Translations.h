// SPDX-License-Identifier: Apache-2.0
#pragma once

class QCoreApplication;
class QLocale;

namespace skipnest::ui {

// Has the program speak the language of this locale from now on, before anything is shown. Texts
// are English in the source; languages that nobody has translated to stay so.
void installTranslations(QCoreApplication& application, const QLocale& locale);

} // namespace skipnest::ui
