// SPDX-License-Identifier: Apache-2.0
#include "ui/transfer/ImportModel.h"

#include "app/AppDelegate.h"
#include "model/ConfigurationCoding.h"
#include "platform/Files.h"
#include "ui/editor/PlainLine.h"

#include <QDir>
#include <QLocale>
#include <QRegularExpression>
#include <QStringBuilder>
#include <QUrl>

namespace skipnest::ui {

using model::ImportReport;
using platform::Failure;
using platform::FileKind;

namespace {

QString nameOf(const QString& path) {
    return plainLine(path.mid(path.lastIndexOf(u'/') + 1));
}

// The date that export files carry in their name.
QDate dateIn(const QString& name) {
    static const QRegularExpression pattern(QStringLiteral("\\d{4}-\\d{2}-\\d{2}"));
    return QDate::fromString(pattern.match(name).captured(), Qt::ISODate);
}

// "12 new, 3 updated": what there is none of is left out.
QString changes(const ImportReport& report) {
    QStringList parts;
    if (report.added > 0)
        parts.append(ImportModel::tr("%n new", nullptr, report.added));
    if (report.updated > 0)
        parts.append(ImportModel::tr("%n updated", nullptr, report.updated));
    if (report.unchanged > 0)
        parts.append(ImportModel::tr("%n unchanged", nullptr, report.unchanged));
    if (report.conflicting > 0)
        parts.append(report.conflicting == 1
                         ? ImportModel::tr("1 conflict")
                         : ImportModel::tr("%n conflicts", nullptr, report.conflicting));
    if (report.unconfirmed > 0)
        parts.append(report.unconfirmed == 1 ? ImportModel::tr("1 application to confirm")
                                             : ImportModel::tr("%n applications to confirm",
                                                               nullptr, report.unconfirmed));
    return parts.join(QStringLiteral(", "));
}

} // namespace

QVariant ImportCandidates::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = rows()[static_cast<std::size_t>(index.row())];
    switch (role) {
    case pathRole:
        return row.path;
    case nameRole:
        return row.name;
    case detailRole:
        return row.detail;
    default:
        return {};
    }
}

QHash<int, QByteArray> ImportCandidates::roleNames() const {
    return {{pathRole, "path"}, {nameRole, "name"}, {detailRole, "detail"}};
}

ImportModel::ImportModel(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent), candidates_(this) {}

void ImportModel::refresh() {
    const QString& home = agent_.ports().app.home;
    std::vector<ImportCandidates::Row> rows;
    for (const QString& path : agent_.transfer().candidates()) {
        const QString name = nameOf(path);
        const QDate date = dateIn(name);
        const QString folder = shownFolder(path, home);
        rows.push_back({path, name,
                        date.isValid() ? QString(QLocale().toString(date, QLocale::LongFormat) %
                                                 u" · " % folder)
                                       : folder});
    }
    candidates_.setRows(rows);
    chosenPath_.clear();
    document_.reset();
    preview_.clear();
    say({}, {});
}

QString ImportModel::chosenName() const {
    return nameOf(chosenPath_);
}

QString ImportModel::located(const QString& file) const {
    const platform::Ports& ports = agent_.ports();
    const QString text = file.trimmed();
    if (text.startsWith(u"file:"))
        return QUrl(text).toLocalFile();
    if (text == u"~" || text.startsWith(u"~/"))
        return QDir::cleanPath(ports.app.home % text.sliced(1));
    if (QDir::isAbsolutePath(text))
        return QDir::cleanPath(text);
    for (const QString& folder : {ports.app.downloadsFolder, ports.app.desktopFolder,
                                  ports.app.documentsFolder, ports.app.home}) {
        for (const QString& ending : {QString(), QStringLiteral(".json")}) {
            const QString path = QDir::cleanPath(folder % u'/' % text % ending);
            if (ports.files.kind(path) == FileKind::file)
                return path;
        }
    }
    return {};
}

QString ImportModel::wording(const Failure& failure) {
    switch (failure.kind) {
    case Failure::Kind::tooLarge:
        return tr("That file is larger than 16 MB, and no Skipnest export is.");
    case Failure::Kind::malformed:
    case Failure::Kind::notFound:
    case Failure::Kind::refused:
    case Failure::Kind::timedOut:
    case Failure::Kind::unavailable:
    case Failure::Kind::system:
        return tr("That file couldn't be read as a Skipnest export - pick another one.");
    }
    Q_UNREACHABLE();
}

void ImportModel::choose(const QString& file) {
    chosenPath_ = located(file);
    document_.reset();
    preview_.clear();
    if (chosenPath_.isEmpty()) {
        say(QStringLiteral("danger"), file.trimmed().isEmpty()
                                          ? QString()
                                          : tr("No file of that name was found. A whole path works "
                                               "too, and so does dropping the file here."));
        return;
    }
    auto read = agent_.ports().files.read(chosenPath_, model::largestConfiguration);
    if (!read)
        return say(QStringLiteral("danger"), wording(read.failure()));
    const auto report = agent_.transfer().preview(*read);
    if (!report)
        return say(QStringLiteral("danger"), wording(report.failure()));
    if (report->added + report->updated == 0) {
        say(QStringLiteral("info"), report->unchanged == 0
                                        ? tr("There is no shortcut in that file.")
                                        : tr("Nothing new: all of that file is here already."));
        return;
    }
    document_ = std::move(read).value();
    preview_ = changes(*report);
    say({}, {});
}

void ImportModel::importChosen() {
    if (!document_)
        return;
    const auto report = agent_.transfer().importDocument(*document_);
    if (!report)
        return say(QStringLiteral("danger"),
                   tr("Nothing was imported: %1").arg(report.failure().detail));
    document_.reset();
    preview_.clear();
    QString line =
        (report->takenOver() == 1 ? tr("Imported 1 shortcut: ")
                                  : tr("Imported %n shortcuts: ", nullptr, report->takenOver())) %
        changes(*report);
    if (report->unconfirmed > 0)
        line += u". " % tr("Confirm new applications in the list before their keys work.");
    say(QStringLiteral("success"), line);
}

void ImportModel::say(const QString& kind, const QString& message) {
    messageKind_ = kind;
    message_ = message;
    Q_EMIT changed();
}

} // namespace skipnest::ui
