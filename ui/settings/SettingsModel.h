// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/editor/RecorderFace.h"
#include "ui/settings/AvailabilityRows.h"
#include "ui/settings/KeyLedgerRows.h"
#include "ui/settings/VocabularyRows.h"

#include <QList>
#include <QObject>
#include <QString>
#include <qqmlintegration.h>

#include <map>
#include <memory>
#include <vector>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

class SettingRows;

// The settings screen: every setting by section, the words of the voice search, who has which key,
// and what works here. Verbs name a setting by its key in the document ("themeRaw") or in the user
// defaults ("sk.comboGlyphs"); an unknown one changes nothing.
class SettingsModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
    // Words that must all stand in a setting for it to be shown.
    Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY filterChanged)
    Q_PROPERTY(bool findsNothing READ findsNothing NOTIFY filterChanged)
    Q_PROPERTY(bool showsKeys READ showsKeys NOTIFY filterChanged)
    Q_PROPERTY(bool showsBrowsers READ showsBrowsers NOTIFY filterChanged)
    Q_PROPERTY(bool showsChallenge READ showsChallenge NOTIFY filterChanged)
    Q_PROPERTY(bool showsAbout READ showsAbout NOTIFY filterChanged)
    Q_PROPERTY(QList<QObject*> sections READ sections CONSTANT)
    Q_PROPERTY(skipnest::ui::VocabularyRows* terms READ terms CONSTANT)
    Q_PROPERTY(skipnest::ui::VocabularyRows* aliases READ aliases CONSTANT)
    Q_PROPERTY(skipnest::ui::KeyLedgerRows* ledger READ ledger CONSTANT)
    Q_PROPERTY(skipnest::ui::AvailabilityRows* availability READ availability CONSTANT)
    Q_PROPERTY(QString version READ version CONSTANT)
public:
    explicit SettingsModel(app::AppDelegate& agent, QObject* parent = nullptr);
    ~SettingsModel() override;

    // The screen is opened: what the machine says is asked again.
    void refresh();
    // Ends recordings.
    void pause();

    [[nodiscard]] const QString& filter() const { return filter_; }
    void setFilter(const QString& filter);
    [[nodiscard]] bool findsNothing() const;
    [[nodiscard]] bool showsKeys() const;
    [[nodiscard]] bool showsBrowsers() const;
    [[nodiscard]] bool showsChallenge() const;
    [[nodiscard]] bool showsAbout() const;
    [[nodiscard]] QList<QObject*> sections() const;
    [[nodiscard]] VocabularyRows* terms() const { return terms_.get(); }
    [[nodiscard]] VocabularyRows* aliases() const { return aliases_.get(); }
    [[nodiscard]] KeyLedgerRows* ledger() const { return ledger_.get(); }
    [[nodiscard]] AvailabilityRows* availability() const { return availability_.get(); }
    // "Skipnest 1.2 (345)"
    [[nodiscard]] QString version() const;

    Q_INVOKABLE void setOn(const QString& setting, bool on);
    Q_INVOKABLE void choose(const QString& setting, int option);
    Q_INVOKABLE void setText(const QString& setting, const QString& text);
    Q_INVOKABLE void reset(const QString& setting);
    // The recorder of a setting that is a combo; null for others.
    Q_INVOKABLE skipnest::ui::RecorderFace* recorder(const QString& setting) const;

    Q_INVOKABLE void addTerm(const QString& term);
    Q_INVOKABLE void removeTerm(const QString& term);
    Q_INVOKABLE void addAlias(const QString& heard, const QString& canonical);
    Q_INVOKABLE void removeAlias(const QString& heard);
    // Version and what works here, to the clipboard.
    Q_INVOKABLE void copyReport() const;

Q_SIGNALS:
    void filterChanged();

private:
    void makeRecorders();
    void update();
    [[nodiscard]] bool isFound(const QString& text) const;

    app::AppDelegate& agent_;
    QString filter_;
    std::vector<std::unique_ptr<SettingRows>> sections_;
    std::unique_ptr<VocabularyRows> terms_;
    std::unique_ptr<VocabularyRows> aliases_;
    std::unique_ptr<KeyLedgerRows> ledger_;
    std::unique_ptr<AvailabilityRows> availability_;
    std::map<QString, std::unique_ptr<RecorderFace>> recorders_;
};

} // namespace skipnest::ui
