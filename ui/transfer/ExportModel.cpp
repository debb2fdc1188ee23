// SPDX-License-Identifier: Apache-2.0
#include "ui/transfer/ExportModel.h"

#include "app/AppDelegate.h"
#include "platform/Files.h"
#include "ui/editor/PlainLine.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QStringBuilder>

#include <array>

namespace skipnest::ui {

using model::ExportDestination;
using platform::FileKind;

namespace {

constexpr auto folders = std::to_array<ExportDestination>(
    {ExportDestination::downloads, ExportDestination::desktop, ExportDestination::documents});

} // namespace

QVariant ExportDestinations::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = rows()[static_cast<std::size_t>(index.row())];
    switch (role) {
    case nameRole:
        return row.name;
    case detailRole:
        return row.detail;
    default:
        return {};
    }
}

QHash<int, QByteArray> ExportDestinations::roleNames() const {
    return {{nameRole, "name"}, {detailRole, "detail"}};
}

ExportModel::ExportModel(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent), destinations_(this) {}

void ExportModel::reset() {
    path_.clear();
    message_.clear();
    listDestinations();
    Q_EMIT changed();
}

void ExportModel::listDestinations() {
    fileName_ = agent_.transfer().suggestedName();
    const platform::Ports& ports = agent_.ports();
    std::vector<ExportDestinations::Row> rows;
    for (const ExportDestination destination : folders) {
        const QString folder = agent_.transfer().folder(destination);
        const QString shown = shownPath(folder, ports.app.home);
        const bool exists = ports.files.kind(folder % u'/' % fileName_) == FileKind::file;
        rows.push_back({folder, plainLine(folder.mid(folder.lastIndexOf(u'/') + 1)),
                        exists ? tr("%1 · replaces today's export there").arg(shown) : shown});
    }
    destinations_.setRows(rows);
}

QString ExportModel::contents() const {
    const auto count = agent_.viewModel().shortcuts().size();
    return count == 1 ? tr("1 shortcut and all settings")
                      : tr("%n shortcuts and all settings", nullptr, static_cast<int>(count));
}

void ExportModel::exportTo(int destination) {
    if (destination < 0 || destination >= std::ssize(folders))
        return;
    const auto written = agent_.transfer().exportTo(folders[static_cast<std::size_t>(destination)]);
    path_ = written ? *written : QString();
    message_ = written ? tr("Exported to %1").arg(shownPath(*written, agent_.ports().app.home))
                       : tr("The export couldn't be written: %1").arg(written.failure().detail);
    listDestinations();
    Q_EMIT changed();
}

void ExportModel::copyPath() const {
    QGuiApplication::clipboard()->setText(path_);
}

} // namespace skipnest::ui
