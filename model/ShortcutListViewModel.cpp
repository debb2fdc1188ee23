// SPDX-License-Identifier: Apache-2.0
#include "model/ShortcutListViewModel.h"

#include "model/SortOrder.h"
#include "model/StorageService.h"
#include "platform/AppInfo.h"
#include "platform/Bookmarks.h"
#include "platform/Files.h"
#include "platform/WallClock.h"
#include "platform/Workspace.h"

#include <QDir>

#include <algorithm>
#include <tuple>
#include <utility>

namespace skipnest::model {
namespace {

// The last component without its extension. A leading dot begins no extension (".profile"), and
// what holds a blank is none ("Dr. Smith").
QString nameOf(const QString& path) {
    const QString last = path.mid(path.lastIndexOf(u'/') + 1);
    const qsizetype dot = last.lastIndexOf(u'.');
    if (dot <= 0 || dot == last.size() - 1 || last.sliced(dot).contains(u' '))
        return last.isEmpty() ? path : last;
    return last.left(dot);
}

// What the registration of hotkeys depends on besides the list.
auto hotkeySettings(const AppConfiguration& c) {
    return std::tie(c.shiftToHide, c.hideModifierRaw, c.windowCycling, c.nextWindowCombo,
                    c.prevWindowCombo, c.voiceSearch, c.voiceCombo);
}

} // namespace

ShortcutListViewModel::ShortcutListViewModel(StorageService& storage,
                                             platform::Workspace& workspace,
                                             platform::Bookmarks& bookmarks, platform::Files& files,
                                             platform::WallClock& clock,
                                             platform::UserDefaults& defaults,
                                             const platform::AppInfo& app, Callback rebuildHotkeys,
                                             Callback settingsApplied, QObject* parent)
    : QObject(parent), storage_(storage), workspace_(workspace), bookmarks_(bookmarks),
      files_(files), clock_(clock), rebuildHotkeys_(std::move(rebuildHotkeys)),
      settingsApplied_(std::move(settingsApplied)),
      trust_(defaults, workspace, bookmarks, app.installedApplications) {
    takeOver();
    if (settingsApplied_)
        settingsApplied_(config_);
    rebuild();
}

void ShortcutListViewModel::takeOver() {
    config_ = storage_.load();
    sortByOrder(config_.shortcuts);
    shortcuts_ = config_.shortcuts;
}

void ShortcutListViewModel::rebuild() {
    if (hotkeysSuspended_ || !rebuildHotkeys_)
        return;
    const auto waits = [this](const ShortcutItem& item) { return !isConfirmed(item.id); };
    if (std::ranges::none_of(config_.shortcuts, waits))
        return rebuildHotkeys_(config_);
    AppConfiguration confirmed = config_;
    std::erase_if(confirmed.shortcuts, waits);
    rebuildHotkeys_(confirmed);
}

void ShortcutListViewModel::setHotkeysSuspended(bool suspended) {
    if (std::exchange(hotkeysSuspended_, suspended) == suspended)
        return;
    rebuild();
    Q_EMIT hotkeysSuspendedChanged();
}

ShortcutItem::TargetType ShortcutListViewModel::targetType(const QString& path) const {
    if (workspace_.isApplication(path))
        return ShortcutItem::TargetType::application;
    return files_.kind(path) == platform::FileKind::folder ? ShortcutItem::TargetType::folder
                                                           : ShortcutItem::TargetType::file;
}

ShortcutItem ShortcutListViewModel::makeShortcut(const QString& path) const {
    ShortcutItem item;
    item.targetPath = QDir::cleanPath(path);
    item.targetType = targetType(item.targetPath);
    if (item.targetType == ShortcutItem::TargetType::application)
        item.name = workspace_.displayName(item.targetPath);
    if (item.name.isEmpty())
        item.name = nameOf(item.targetPath);
    if (auto bookmark = bookmarks_.create(item.targetPath))
        item.bookmarkData = std::move(bookmark).value();
    // Whole seconds: other readers of the document know no fraction.
    item.createdAt = QDateTime::fromSecsSinceEpoch(clock_.nowUtc().toSecsSinceEpoch(), Qt::UTC);
    return item;
}

ShortcutItem ShortcutListViewModel::addShortcut(const QString& path) {
    return addShortcut(path, std::nullopt, std::nullopt);
}

ShortcutItem ShortcutListViewModel::addShortcut(const QString& path,
                                                std::optional<KeyCombo> keyCombo,
                                                std::optional<KeyCombo> hideKeyCombo) {
    ShortcutItem item = makeShortcut(path);
    item.keyCombo = keyCombo;
    item.hideKeyCombo = hideKeyCombo;
    item.sortOrder = nextSortOrder(shortcuts_);
    shortcuts_.push_back(item);
    commit();
    Q_EMIT shortcutsChanged();
    return item;
}

std::vector<ShortcutItem>::iterator ShortcutListViewModel::position(const RecordId& id) {
    return std::ranges::find(shortcuts_, id, &ShortcutItem::id);
}

bool ShortcutListViewModel::remove(const RecordId& id) {
    const auto found = position(id);
    if (found == shortcuts_.end())
        return false;
    shortcuts_.erase(found);
    commit();
    Q_EMIT shortcutsChanged();
    return true;
}

bool ShortcutListViewModel::update(const ShortcutItem& item) {
    const auto found = position(item.id);
    if (found == shortcuts_.end())
        return false;
    const std::int64_t order = found->sortOrder;
    if (found->targetPath != item.targetPath)
        (void)trust_.confirm(item.id);
    *found = item;
    found->sortOrder = order;
    commit();
    Q_EMIT shortcutsChanged();
    return true;
}

bool ShortcutListViewModel::move(const RecordId& id, qsizetype row) {
    const auto found = position(id);
    if (found == shortcuts_.end())
        return false;
    std::vector<std::int64_t> orders;
    for (const ShortcutItem& item : shortcuts_)
        orders.push_back(item.sortOrder);

    const auto target =
        shortcuts_.begin() + std::clamp<qsizetype>(row, 0, std::ssize(shortcuts_) - 1);
    if (target < found)
        std::rotate(target, found, found + 1);
    else
        std::rotate(found, found + 1, target + 1);
    for (std::size_t i = 0; i < orders.size(); ++i)
        shortcuts_[i].sortOrder = orders[i];
    commit();
    Q_EMIT shortcutsChanged();
    return true;
}

std::optional<ShortcutItem> ShortcutListViewModel::item(const RecordId& id) const {
    const auto found = std::ranges::find(shortcuts_, id, &ShortcutItem::id);
    if (found == shortcuts_.end())
        return std::nullopt;
    return *found;
}

std::optional<ShortcutItem> ShortcutListViewModel::find(const QString& path) const {
    const QString wanted = QDir::cleanPath(path);
    const auto found = std::ranges::find_if(shortcuts_, [&wanted](const ShortcutItem& item) {
        return QDir::cleanPath(item.targetPath) == wanted;
    });
    if (found == shortcuts_.end())
        return std::nullopt;
    return *found;
}

std::vector<ShortcutItem> ShortcutListViewModel::findByName(const QString& name) const {
    const auto matching = [this](auto&& matches) {
        std::vector<ShortcutItem> items;
        std::ranges::copy_if(shortcuts_, std::back_inserter(items),
                             [&](const ShortcutItem& item) { return matches(item.name); });
        return items;
    };
    if (name.isEmpty())
        return {};
    if (auto items = matching([&](const QString& other) { return other == name; }); !items.empty())
        return items;
    if (auto items = matching(
            [&](const QString& other) { return other.compare(name, Qt::CaseInsensitive) == 0; });
        !items.empty())
        return items;
    return matching(
        [&](const QString& other) { return other.startsWith(name, Qt::CaseInsensitive); });
}

void ShortcutListViewModel::changeSettings(const std::function<void(AppConfiguration&)>& change) {
    const AppConfiguration before = config_;
    change(config_);
    config_.shortcuts = shortcuts_;
    storage_.save(config_);
    if (hotkeySettings(before) != hotkeySettings(config_))
        rebuild();
    announceSettings(before);
}

void ShortcutListViewModel::announceSettings(const AppConfiguration& before) {
    if (settingsApplied_)
        settingsApplied_(config_);
    Q_EMIT settingsChanged();
    if (before.menuBarIconName != config_.menuBarIconName)
        Q_EMIT menuBarIconNameChanged();
    if (before.themeOrDefault() != config_.themeOrDefault())
        Q_EMIT themeChanged();
}

void ShortcutListViewModel::addAlias(const QString& heard, const QString& canonical) {
    const QString from = heard.trimmed();
    const QString to = canonical.trimmed();
    if (from.isEmpty() || to.isEmpty())
        return;
    changeSettings([&](AppConfiguration& config) {
        std::vector<VocabAlias> aliases =
            config.vocabularyAliases.value_or(std::vector<VocabAlias>());
        std::erase_if(aliases, [&from](const VocabAlias& alias) {
            return alias.heard.compare(from, Qt::CaseInsensitive) == 0;
        });
        aliases.push_back({from, to, {}});
        config.vocabularyAliases = std::move(aliases);
    });
}

void ShortcutListViewModel::removeAlias(const QString& heard) {
    if (!config_.vocabularyAliases)
        return;
    changeSettings([&heard](AppConfiguration& config) {
        std::erase_if(*config.vocabularyAliases, [&heard](const VocabAlias& alias) {
            return alias.heard.compare(heard.trimmed(), Qt::CaseInsensitive) == 0;
        });
    });
}

void ShortcutListViewModel::addTerm(const QString& term) {
    const QString word = term.trimmed();
    if (word.isEmpty())
        return;
    changeSettings([&word](AppConfiguration& config) {
        QStringList terms = config.vocabularyTerms.value_or(QStringList());
        const auto known = std::ranges::find_if(terms, [&word](const QString& other) {
            return other.compare(word, Qt::CaseInsensitive) == 0;
        });
        if (known == terms.end())
            terms.append(word);
        else
            *known = word;
        config.vocabularyTerms = terms;
    });
}

void ShortcutListViewModel::removeTerm(const QString& term) {
    if (!config_.vocabularyTerms)
        return;
    changeSettings([&term](AppConfiguration& config) {
        config.vocabularyTerms->removeIf([&term](const QString& other) {
            return other.compare(term.trimmed(), Qt::CaseInsensitive) == 0;
        });
    });
}

ImportMerge ShortcutListViewModel::mergeOf(const std::vector<ShortcutItem>& imported) const {
    return mergeImport(shortcuts_, imported,
                       [this](const ShortcutItem& item) { return trust_.isForeign(item); });
}

ImportReport ShortcutListViewModel::previewMerge(const std::vector<ShortcutItem>& imported) const {
    return mergeOf(imported).report;
}

platform::Result<ImportReport>
ShortcutListViewModel::merge(const std::vector<ShortcutItem>& imported) {
    ImportMerge merged = mergeOf(imported);
    // First of all: whatever happens next, none of them runs unasked.
    if (const platform::Outcome noted = trust_.addUnconfirmed(merged.unconfirmed); !noted)
        return noted.failure();
    if (merged.report.added + merged.report.updated > 0) {
        shortcuts_ = std::move(merged.shortcuts);
        commit();
        Q_EMIT shortcutsChanged();
    }
    return merged.report;
}

bool ShortcutListViewModel::confirm(const RecordId& id) {
    if (!trust_.confirm(id))
        return false;
    rebuild();
    Q_EMIT shortcutsChanged();
    return true;
}

bool ShortcutListViewModel::conflicting(const RecordId& id) const {
    const auto found = std::ranges::find(shortcuts_, id, &ShortcutItem::id);
    return found != shortcuts_.end() && sharesCombo(shortcuts_, *found);
}

void ShortcutListViewModel::commit() {
    config_.shortcuts = shortcuts_;
    storage_.save(config_);
    rebuild();
}

void ShortcutListViewModel::reload() {
    const AppConfiguration before = config_;
    takeOver();
    rebuild();
    announceSettings(before);
    Q_EMIT shortcutsChanged();
}

} // namespace skipnest::model
