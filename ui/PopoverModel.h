// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/PanelHost.h"
#include "ui/browser/BrowserSetup.h"
#include "ui/challenge/ChallengeScreenModel.h"
#include "ui/crash/CrashReportModel.h"
#include "ui/editor/ShortcutEditor.h"
#include "ui/feedback/FeedbackForm.h"
#include "ui/list/ShortcutListScreenModel.h"
#include "ui/settings/SettingsModel.h"
#include "ui/stats/StatisticsCardModel.h"
#include "ui/transfer/ExportModel.h"
#include "ui/transfer/ImportModel.h"

#include <QObject>
#include <QString>
#include <qqmlintegration.h>

#include <memory>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

// What the popover shows, and the way between its screens: "list", "add" (also edits), "import",
// "export", "settings", "feedback", "statistics", "challenge", "crash", "browsers". The list is
// home; every other screen goes back to it, the browsers by way of the settings.
class PopoverModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
    Q_PROPERTY(QString screen READ screen NOTIFY screenChanged)
    Q_PROPERTY(skipnest::ui::ShortcutListScreenModel* list READ list CONSTANT)
    Q_PROPERTY(skipnest::ui::ShortcutEditor* editor READ editor CONSTANT)
    Q_PROPERTY(skipnest::ui::ImportModel* importer READ importer CONSTANT)
    Q_PROPERTY(skipnest::ui::ExportModel* exporter READ exporter CONSTANT)
    Q_PROPERTY(skipnest::ui::SettingsModel* settings READ settings CONSTANT)
    Q_PROPERTY(skipnest::ui::FeedbackForm* feedback READ feedback CONSTANT)
    Q_PROPERTY(skipnest::ui::StatisticsCardModel* statistics READ statistics CONSTANT)
    Q_PROPERTY(skipnest::ui::ChallengeScreenModel* challenge READ challenge CONSTANT)
    Q_PROPERTY(skipnest::ui::CrashReportModel* crash READ crash CONSTANT)
    Q_PROPERTY(skipnest::ui::BrowserSetup* browsers READ browsers CONSTANT)
public:
    explicit PopoverModel(app::AppDelegate& agent, QObject* parent = nullptr);
    ~PopoverModel() override;

    [[nodiscard]] QString screen() const;
    [[nodiscard]] const platform::PopoverRoute& route() const { return route_; }
    [[nodiscard]] ShortcutListScreenModel* list() const { return list_.get(); }
    [[nodiscard]] ShortcutEditor* editor() const { return editor_.get(); }
    [[nodiscard]] ImportModel* importer() const { return importer_.get(); }
    [[nodiscard]] ExportModel* exporter() const { return exporter_.get(); }
    [[nodiscard]] SettingsModel* settings() const { return settings_.get(); }
    [[nodiscard]] FeedbackForm* feedback() const { return feedback_.get(); }
    [[nodiscard]] StatisticsCardModel* statistics() const { return statistics_.get(); }
    [[nodiscard]] ChallengeScreenModel* challenge() const { return challenge_.get(); }
    [[nodiscard]] CrashReportModel* crash() const { return crash_.get(); }
    [[nodiscard]] BrowserSetup* browsers() const { return browsers_.get(); }

    void setRoute(const platform::PopoverRoute& route);
    // The popover comes into view for this. Asked for the list, as every click on the icon does, it
    // comes back to a shortcut that was being made when the person went elsewhere.
    void willShow(const platform::PopoverRoute& route);
    // By a screen's name; an unknown one changes nothing.
    Q_INVOKABLE void open(const QString& screen);
    // The add screen for an existing record, by the text of its id.
    Q_INVOKABLE void edit(const QString& id);
    Q_INVOKABLE void back();
    Q_INVOKABLE void close();
    // Dropped on the popover: URLs of files and folders. An import takes the first for its file.
    Q_INVOKABLE void addDropped(const QStringList& urls);
    // What is shown is followed in another program's window: the popover stays when that gets the
    // keyboard.
    [[nodiscard]] bool isReadElsewhere() const;
    // The popover was hidden: recordings, searches and the like end.
    void wasHidden();

Q_SIGNALS:
    void screenChanged();
    // Something dropped or asked for could not be used; for the banner of the screen shown.
    void problem(const QString& message);

private:
    void show(platform::PopoverScreen screen);
    void tellScreens();

    app::AppDelegate& agent_;
    platform::PopoverRoute route_;
    bool isShown_ = false;
    std::unique_ptr<ShortcutListScreenModel> list_;
    std::unique_ptr<ShortcutEditor> editor_;
    std::unique_ptr<ImportModel> importer_;
    std::unique_ptr<ExportModel> exporter_;
    std::unique_ptr<SettingsModel> settings_;
    std::unique_ptr<FeedbackForm> feedback_;
    std::unique_ptr<StatisticsCardModel> statistics_;
    std::unique_ptr<ChallengeScreenModel> challenge_;
    std::unique_ptr<CrashReportModel> crash_;
    std::unique_ptr<BrowserSetup> browsers_;
};

} // namespace skipnest::ui
