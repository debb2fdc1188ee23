// SPDX-License-Identifier: Apache-2.0
#include "app/DroppedTarget.h"

#include <QCoreApplication>
#include <QDir>
#include <QSysInfo>
#include <QUrl>

namespace skipnest::app {
namespace {

constexpr const char* context = "MenuBarShell";

const char* sentence(DropRefusal::Kind kind) {
    switch (kind) {
    case DropRefusal::Kind::nothing:
        return QT_TRANSLATE_NOOP("MenuBarShell", "Nothing was dropped.");
    case DropRefusal::Kind::notAFile:
        return QT_TRANSLATE_NOOP("MenuBarShell", "“%1” is not a file or folder on this computer.");
    case DropRefusal::Kind::vanished:
        return QT_TRANSLATE_NOOP("MenuBarShell", "“%1” is not there any more.");
    }
    Q_UNREACHABLE();
}

QString withName(const QString& text, const DropRefusal& refusal) {
    return refusal.kind == DropRefusal::Kind::nothing ? text : text.arg(refusal.name);
}

// One line that fits an alert. Its end says more than its beginning.
QString shortened(const QString& text) {
    constexpr qsizetype longest = 120;
    const QString line = text.simplified();
    return line.size() <= longest ? line : u'…' + line.last(longest);
}

// Empty where it means no file of this computer.
QString pathOf(const QString& text) {
    if (text.startsWith(u'/'))
        return text;
    // A list of URLs ends its lines with a carriage return.
    const QUrl url(text.trimmed());
    if (!url.isLocalFile())
        return {};
    // Some file managers name this computer in the URL.
    const QString host = url.host();
    const bool isHere = host.isEmpty() || host == u"localhost" ||
                        host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
    return isHere ? url.path(QUrl::FullyDecoded) : QString();
}

} // namespace

std::variant<QString, DropRefusal> droppedTarget(const QStringList& urls,
                                                 const platform::Files& files) {
    DropRefusal refusal;
    for (const QString& text : urls) {
        const QString path = pathOf(text);
        if (!path.isEmpty() && files.kind(path) != platform::FileKind::none)
            return QDir::cleanPath(path);
        if (refusal.kind == DropRefusal::Kind::nothing)
            refusal = path.isEmpty() ? DropRefusal{DropRefusal::Kind::notAFile, shortened(text)}
                                     : DropRefusal{DropRefusal::Kind::vanished, shortened(path)};
    }
    return refusal;
}

QString refusalText(const DropRefusal& refusal) {
    return withName(QString::fromUtf8(sentence(refusal.kind)), refusal);
}

QString translatedRefusal(const DropRefusal& refusal) {
    return withName(QCoreApplication::translate(context, sentence(refusal.kind)), refusal);
}

} // namespace skipnest::app
