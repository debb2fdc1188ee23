// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QImage>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace skipnest::switcher {

// What the bar shows. The switcher writes it, views read it and hear which part has changed.
class SwitcherModel final : public QObject {
    Q_OBJECT
public:
    enum class Level { windows, tabs, search };

    struct WinVM {
        int id = 0; // index in the session
        QString title;
        QImage image;         // null while there is none
        QString fallbackIcon; // path of the application whose icon stands for it
        std::optional<int> tabCount;
        bool isFocused = false;

        bool operator==(const WinVM&) const = default;
    };
    struct TabVM {
        int id = 0;
        QString title;
        QString letter;

        bool operator==(const TabVM&) const = default;
    };
    struct ResultVM {
        int id = 0;
        QString title;
        QString domain;
        QString winName;
        QString letter;

        bool operator==(const ResultVM&) const = default;
    };

    // All that the bar shows at one moment.
    struct Content {
        Level level = Level::windows;
        bool isBrowser = false;
        bool isPinned = false;
        QString appName;
        QString appIcon;        // path of the application
        double cardWidth = 220; // in device-independent pixels
        std::vector<WinVM> windows;
        int selWin = 0;
        std::vector<TabVM> tabs;
        int selTab = 0;
        QString drillWinName;
        QString query;
        std::vector<ResultVM> results;
        int selResult = 0;
        int totalTabs = 0;

        bool operator==(const Content&) const = default;
    };

    using QObject::QObject;

    [[nodiscard]] const Content& content() const { return content_; }
    // Tells the views once, where anything differs.
    void setContent(Content content);
    void setImage(int window, const QImage& image);

    // Set by the switcher; an index that is out of range does nothing.
    std::function<void(int)> onPickWindow;
    std::function<void(int)> onPickTab;
    std::function<void(int)> onPickResult;
    std::function<void(int)> onHoverWindow;

Q_SIGNALS:
    void changed();
    void imageChanged(int window);

private:
    Content content_;
};

} // namespace skipnest::switcher
