// SPDX-License-Identifier: Apache-2.0
#include "ui/onboarding/FirstShortcut.h"

#include "app/AppDelegate.h"
#include "platform/Files.h"
#include "platform/KeyboardLayout.h"
#include "platform/Workspace.h"
#include "ui/ComboWording.h"
#include "ui/editor/PlainLine.h"
#include "ui/onboarding/ComboSuggestion.h"

#include <algorithm>

namespace skipnest::ui {

using model::ShortcutItem;
using platform::FileKind;

namespace {

constexpr std::size_t mostSuggestions = 8;

// Found by name, because no desktop says which terminal is the default one.
constexpr int mostTerminals = 2;

} // namespace

FirstShortcut::FirstShortcut(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent), recorder_(agent),
      search_(agent.ports().fileIndex, agent.ports().scheduler) {
    connect(&search_, &TargetSearchService::resultsChanged, this, [this] { showChoices(); });
    connect(&search_, &TargetSearchService::isSearchingChanged, this,
            &FirstShortcut::searchChanged);
}

void FirstShortcut::start() {
    const platform::Ports& ports = agent_.ports();
    suggestions_.clear();
    for (const auto& application : ports.workspace.runningApplications())
        if (application.pid != ports.app.pid)
            suggest(application.bundlePath, tr("Running now"));
    // Only the names count: the kind of file says which program it is for.
    const auto suggestDefault = [&](const QString& path, const QString& detail) {
        if (const auto application = ports.workspace.defaultApplication(path))
            suggest(*application, detail);
    };
    suggestDefault(ports.app.home + QStringLiteral("/page.html"), tr("Web browser"));
    suggestDefault(ports.app.home, tr("File manager"));
    suggestDefault(ports.app.home + QStringLiteral("/letter.eml"), tr("Mail"));
    suggestTerminals();
    showChoices();
}

void FirstShortcut::suggest(const QString& path, const QString& detail) {
    const auto isThere =
        std::ranges::find(suggestions_, path, &TargetChoice::id) != suggestions_.end();
    if (isThere || suggestions_.size() == mostSuggestions ||
        !agent_.ports().workspace.isApplication(path) || agent_.viewModel().find(path))
        return;
    suggestions_.push_back({path, plainLine(agent_.ports().workspace.displayName(path)), detail});
}

void FirstShortcut::suggestTerminals() {
    using Contents = platform::FileQuery::Contents;
    terminals_ = agent_.ports().fileIndex.search(
        {QStringLiteral("terminal"), Contents::applications, mostTerminals},
        [this](const std::vector<platform::IndexedFile>& found) {
            for (const auto& file : found)
                suggest(file.path, tr("Terminal"));
            showChoices();
        });
}

void FirstShortcut::pause() {
    recorder_.stop();
    search_.cancel();
    terminals_.reset();
}

void FirstShortcut::search(const QString& text) {
    searchText_ = text;
    search_.search(text, SearchScope::everything);
    showChoices();
    Q_EMIT searchChanged();
}

void FirstShortcut::showChoices() {
    if (searchText_.isEmpty()) {
        choices_.setRows(suggestions_);
        return;
    }
    std::vector<TargetChoice> rows;
    for (const SearchResult& result : search_.results())
        rows.push_back({result.id, plainLine(result.name),
                        result.kind == ShortcutItem::TargetType::application
                            ? tr("Application")
                            : shownFolder(result.id, agent_.ports().app.home)});
    choices_.setRows(rows);
}

void FirstShortcut::choose(const QString& path) {
    const auto& rows = choices_.rows();
    const auto row = std::ranges::find(rows, path, &TargetChoice::id);
    if (row == rows.end())
        return;
    recorder_.stop();
    if (agent_.ports().files.kind(path) == FileKind::none) {
        setTarget({}, {});
        problem_ = tr("“%1” is not there any more.").arg(row->name);
        Q_EMIT targetChanged();
        return;
    }
    // A copy: what is told of the new target may change the rows.
    const QString name = row->name;
    const auto existing = agent_.viewModel().find(path);
    recorder_.setEditingItemId(existing ? std::optional(existing->id) : std::nullopt);
    recorder_.setCombo(existing && existing->keyCombo ? existing->keyCombo
                                                      : suggestedCombo(name, agent_));
    setTarget(path, name);
}

void FirstShortcut::setTarget(const QString& path, const QString& name) {
    targetPath_ = path;
    targetName_ = name;
    problem_.clear();
    Q_EMIT targetChanged();
}

void FirstShortcut::save() {
    if (!isComplete())
        return;
    recorder_.stop();
    auto& list = agent_.viewModel();
    if (auto existing = list.find(targetPath_)) {
        existing->keyCombo = recorder_.combo();
        list.update(*existing);
        savedId_ = existing->id;
    } else {
        savedId_ = list.addShortcut(targetPath_, recorder_.combo(), std::nullopt).id;
    }
    recorder_.setEditingItemId({});
    recorder_.setCombo(std::nullopt);
    setTarget({}, {});
    Q_EMIT saved();
}

std::optional<ShortcutItem> FirstShortcut::savedItem() const {
    return savedId_ ? agent_.viewModel().item(*savedId_) : std::nullopt;
}

QString FirstShortcut::savedName() const {
    const auto item = savedItem();
    return item ? plainLine(item->name) : QString();
}

QStringList FirstShortcut::savedKeys() const {
    const auto item = savedItem();
    const platform::Ports& ports = agent_.ports();
    return comboKeys(item ? item->keyCombo : std::nullopt, ports.keyboardLayout,
                     modifierStyle(ports.app, ports.defaults));
}

QString FirstShortcut::savedCombo() const {
    const auto item = savedItem();
    const platform::Ports& ports = agent_.ports();
    return comboText(item ? item->keyCombo : std::nullopt, ports.keyboardLayout,
                     modifierStyle(ports.app, ports.defaults));
}

} // namespace skipnest::ui
