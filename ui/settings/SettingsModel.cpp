// SPDX-License-Identifier: Apache-2.0
#include "ui/settings/SettingsModel.h"

#include "app/AppDelegate.h"
#include "ui/settings/SettingRows.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QStringBuilder>

#include <algorithm>
#include <utility>

namespace skipnest::ui {

using model::AppConfiguration;

namespace {

// The combo of a setting, in force or by default.
model::KeyCombo comboOf(const ComboSetting& setting, const AppConfiguration& config) {
    return (config.*setting.value)();
}

// An emptied list leaves the document: no words is the default.
template <auto list> void dropIfEmpty(model::ShortcutListViewModel& settings) {
    const auto& stored = settings.config().*list;
    if (stored && stored->empty())
        settings.changeSettings([](AppConfiguration& config) { (config.*list).reset(); });
}

} // namespace

SettingsModel::SettingsModel(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent), terms_(std::make_unique<VocabularyRows>(this)),
      aliases_(std::make_unique<VocabularyRows>(this)),
      ledger_(std::make_unique<KeyLedgerRows>(agent, this)),
      availability_(std::make_unique<AvailabilityRows>(agent.ports(), this)) {
    for (const SettingSectionInfo& section : settingSections())
        sections_.push_back(std::make_unique<SettingRows>(section, agent, this));
    makeRecorders();
    connect(&agent.viewModel(), &model::ShortcutListViewModel::settingsChanged, this,
            &SettingsModel::update);
    update();
}

SettingsModel::~SettingsModel() = default;

void SettingsModel::makeRecorders() {
    for (const Setting& setting : settings()) {
        if (!std::holds_alternative<ComboSetting>(setting.binding))
            continue;
        auto recorder = std::make_unique<RecorderFace>(agent_);
        // Handed to views by a function, which would make it theirs.
        QJSEngine::setObjectOwnership(recorder.get(), QJSEngine::CppOwnership);
        RecorderFace* face = recorder.get();
        connect(face, &RecorderFace::starting, this, &SettingsModel::pause);
        connect(face, &RecorderFace::chosen, this, [this, face, &setting] {
            const auto& binding = std::get<ComboSetting>(setting.binding);
            const auto combo = face->combo();
            if (!combo)
                return;
            // Its own combo again: nothing is lost to it.
            if (*combo == comboOf(binding, agent_.viewModel().config()))
                face->setCombo(combo);
            setComboSetting(setting, *combo, agent_);
        });
        recorders_.emplace(QString::fromLatin1(setting.key), std::move(recorder));
    }
}

void SettingsModel::refresh() {
    availability_->update();
    agent_.ledger().refresh();
    update();
}

void SettingsModel::pause() {
    for (const auto& [key, recorder] : recorders_)
        recorder->stop();
}

void SettingsModel::update() {
    const QStringList words = filter_.split(u' ', Qt::SkipEmptyParts);
    for (const auto& section : sections_)
        section->update(words);

    const AppConfiguration& config = agent_.viewModel().config();
    std::vector<VocabularyRows::Row> terms;
    for (const QString& term : config.vocabularyTerms.value_or(QStringList()))
        terms.push_back({term, {}});
    terms_->setRows(terms);
    std::vector<VocabularyRows::Row> aliases;
    for (const model::VocabAlias& alias :
         config.vocabularyAliases.value_or(std::vector<model::VocabAlias>()))
        aliases.push_back({alias.heard, alias.canonical});
    aliases_->setRows(aliases);

    for (const auto& [key, recorder] : recorders_) {
        const auto combo = comboOf(std::get<ComboSetting>(findSetting(key)->binding), config);
        // A recorder that has it already keeps its warning.
        if (!recorder->isRecording() && recorder->combo() != combo)
            recorder->setCombo(combo);
    }
    ledger_->update();
}

void SettingsModel::setFilter(const QString& filter) {
    if (std::exchange(filter_, filter) == filter)
        return;
    update();
    Q_EMIT filterChanged();
}

bool SettingsModel::isFound(const QString& text) const {
    const QStringList words = filter_.split(u' ', Qt::SkipEmptyParts);
    return std::ranges::all_of(
        words, [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

bool SettingsModel::showsKeys() const {
    return isFound(tr("Keys Who has which key"));
}

bool SettingsModel::showsBrowsers() const {
    return isFound(tr("Browser tabs extension Chromium Chrome Firefox"));
}

bool SettingsModel::showsChallenge() const {
    return isFound(tr("Global Jump Challenge leaderboard name flag"));
}

bool SettingsModel::showsAbout() const {
    return isFound(tr("About Version What works here"));
}

bool SettingsModel::findsNothing() const {
    return !showsKeys() && !showsBrowsers() && !showsChallenge() && !showsAbout() &&
           std::ranges::all_of(sections_, [](const auto& each) { return each->count() == 0; });
}

QList<QObject*> SettingsModel::sections() const {
    QList<QObject*> list;
    for (const auto& section : sections_)
        list.append(section.get());
    return list;
}

QString SettingsModel::version() const {
    const platform::AppInfo& app = agent_.ports().app;
    return app.build.isEmpty() ? QString(u"Skipnest " % app.version)
                               : QString(u"Skipnest " % app.version % u" (" % app.build % u')');
}

void SettingsModel::setOn(const QString& setting, bool on) {
    if (const Setting* found = findSetting(setting))
        switchSetting(*found, on, agent_);
}

void SettingsModel::choose(const QString& setting, int option) {
    if (const Setting* found = findSetting(setting))
        chooseSetting(*found, option, agent_);
}

void SettingsModel::setText(const QString& setting, const QString& text) {
    if (const Setting* found = findSetting(setting))
        setTextSetting(*found, text, agent_);
}

void SettingsModel::reset(const QString& setting) {
    if (const Setting* found = findSetting(setting))
        resetSetting(*found, agent_);
}

RecorderFace* SettingsModel::recorder(const QString& setting) const {
    const auto found = recorders_.find(setting);
    return found == recorders_.end() ? nullptr : found->second.get();
}

void SettingsModel::addTerm(const QString& term) {
    agent_.viewModel().addTerm(term);
}

void SettingsModel::removeTerm(const QString& term) {
    agent_.viewModel().removeTerm(term);
    dropIfEmpty<&AppConfiguration::vocabularyTerms>(agent_.viewModel());
}

void SettingsModel::addAlias(const QString& heard, const QString& canonical) {
    agent_.viewModel().addAlias(heard, canonical);
}

void SettingsModel::removeAlias(const QString& heard) {
    agent_.viewModel().removeAlias(heard);
    dropIfEmpty<&AppConfiguration::vocabularyAliases>(agent_.viewModel());
}

void SettingsModel::copyReport() const {
    QGuiApplication::clipboard()->setText(version() % u'\n' % availability_->report());
}

} // namespace skipnest::ui
