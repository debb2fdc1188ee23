// SPDX-License-Identifier: Apache-2.0
#include "ui/editor/TargetChooser.h"

#include "app/AppDelegate.h"
#include "platform/Executor.h"
#include "platform/FileIndex.h"
#include "platform/Files.h"
#include "ui/editor/PlainLine.h"

#include <QDir>
#include <QPointer>

#include <memory>

namespace skipnest::ui {

using model::ShortcutItem;
using platform::FileKind;

namespace {

constexpr platform::Duration untilAgain = std::chrono::seconds(2);

// Empty where the text is no path.
QString typedPath(const QString& text, const QString& home) {
    const QString typed = text.trimmed();
    if (typed == u"~" || typed.startsWith(u"~/"))
        return QDir::cleanPath(home + typed.sliced(1));
    if (typed.startsWith(u'/'))
        return QDir::cleanPath(typed);
    const QUrl url(typed);
    return url.isLocalFile() ? QDir::cleanPath(url.toLocalFile()) : QString();
}

} // namespace

TargetChooser::TargetChooser(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent), service_(agent.ports().fileIndex, agent.ports().scheduler) {
    connect(&service_, &TargetSearchService::resultsChanged, this, &TargetChooser::serviceChanged);
    connect(&service_, &TargetSearchService::isSearchingChanged, this,
            &TargetChooser::serviceChanged);
}

void TargetChooser::setText(const QString& text) {
    if (std::exchange(text_, text) == text)
        return;
    search();
    Q_EMIT textChanged();
}

void TargetChooser::setScope(int scope) {
    const auto wanted = scope == 0 ? SearchScope::apps : SearchScope::everything;
    if (std::exchange(scope_, wanted) == wanted)
        return;
    search();
    Q_EMIT scopeChanged();
}

void TargetChooser::search() {
    chooseFirst_ = false;
    again_.reset();
    isLooking_ = false;
    ++look_;
    const QString path = typedPath(text_, agent_.ports().app.home);
    isPath_ = !path.isEmpty();
    if (isPath_) {
        service_.cancel();
        lookAtPath(path);
        return;
    }
    service_.search(text_.trimmed(), scope_);
    if (text_.trimmed().isEmpty())
        show({});
    if (agent_.ports().fileIndex.state().isBuilding && !text_.trimmed().isEmpty())
        again_ = agent_.ports().scheduler.after(untilAgain, "search of an unfinished index",
                                                [this] { search(); });
}

// Not on the main thread: what is typed may lie on a server that does not answer.
void TargetChooser::lookAtPath(const QString& path) {
    isLooking_ = true;
    Q_EMIT stateChanged();
    const auto& ports = agent_.ports();
    auto kind = std::make_shared<FileKind>(FileKind::none);
    ports.executor.background(
        [path, kind, &files = ports.files] { *kind = files.kind(path); },
        [self = QPointer<TargetChooser>(this), path, kind, look = look_] {
            if (!self || look != self->look_)
                return;
            using enum ShortcutItem::TargetType;
            self->isLooking_ = false;
            const platform::Workspace& workspace = self->agent_.ports().workspace;
            const bool isApplication = workspace.isApplication(path);
            const QString name = isApplication ? workspace.displayName(path) : QString();
            const QString last = path.section(u'/', -1);
            std::vector<FoundTarget> there;
            if (*kind != FileKind::none)
                there.push_back(self->found(path,
                                            !name.isEmpty()  ? name
                                            : last.isEmpty() ? path
                                                             : last,
                                            isApplication               ? application
                                            : *kind == FileKind::folder ? folder
                                                                        : file));
            self->show(std::move(there));
        });
}

void TargetChooser::serviceChanged() {
    if (isPath_)
        return;
    std::vector<FoundTarget> all;
    for (const SearchResult& result : service_.results())
        all.push_back(found(result.id, result.name, result.kind));
    show(std::move(all));
}

FoundTarget TargetChooser::found(const QString& path, const QString& name,
                                 ShortcutItem::TargetType type) const {
    const bool isApplication = type == ShortcutItem::TargetType::application;
    return {path, plainLine(name),
            isApplication ? tr("Application") : shownFolder(path, agent_.ports().app.home),
            agent_.viewModel().find(path).has_value()};
}

void TargetChooser::show(std::vector<FoundTarget> found) {
    results_.setRows(found);
    Q_EMIT stateChanged();
    if (chooseFirst_ && !isSearching()) {
        chooseFirst_ = false;
        choose(0);
    }
}

bool TargetChooser::isSearching() const {
    return isLooking_ || (!isPath_ && service_.isSearching());
}

QString TargetChooser::note() const {
    const QString typed = plainLine(text_);
    if (typed.isEmpty())
        return {};
    const platform::FileIndex& index = agent_.ports().fileIndex;
    const bool isEmpty = results_.rows().empty() && !isSearching();
    if (isPath_)
        return isEmpty ? tr("There is nothing at “%1”.").arg(typed) : QString();
    if (const auto can = index.availability();
        isEmpty && can.state == platform::Availability::State::unavailable)
        return can.reason;
    if (index.state().isBuilding)
        return isEmpty ? tr("Nothing found yet: the names on this computer are still being read.")
                       : tr("The names on this computer are still being read; more may follow.");
    if (!isEmpty)
        return {};
    return scope_ == SearchScope::apps ? tr("No application is called “%1”.").arg(typed)
                                       : tr("Nothing is called “%1”.").arg(typed);
}

bool TargetChooser::canWiden() const {
    return scope_ == SearchScope::apps && !isPath_ && !isSearching() &&
           !text_.trimmed().isEmpty() && results_.rows().empty();
}

void TargetChooser::choose(int row) {
    if (isSearching()) {
        chooseFirst_ = true;
        return;
    }
    if (row >= 0 && row < results_.rowCount())
        Q_EMIT chosen(QString(results_.rows()[static_cast<std::size_t>(row)].id));
}

void TargetChooser::reset() {
    pause();
    setScope(static_cast<int>(SearchScope::apps));
    setText({});
}

void TargetChooser::pause() {
    chooseFirst_ = false;
    again_.reset();
    ++look_;
    isLooking_ = false;
    service_.cancel();
    Q_EMIT stateChanged();
}

} // namespace skipnest::ui
