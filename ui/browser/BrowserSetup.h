// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/BrowserExtensions.h"
#include "platform/Ports.h"
#include "ui/browser/BrowserRows.h"

#include <QObject>
#include <QString>
#include <qqmlintegration.h>

#include <vector>

namespace skipnest::ui {

// Leads a person through loading the extension: the browsers, and for the chosen one what to open
// and choose there, until its extension says hello.
class BrowserSetup final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
    Q_PROPERTY(skipnest::ui::BrowserRows* rows READ rows CONSTANT)
    // "Chromium: connected · Firefox: not set up"; empty where no browser needs anything.
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    // Nothing, or what keeps every browser from being set up.
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    // A row's id; empty while the person has the list before them. What follows is about it.
    Q_PROPERTY(QString chosen READ chosen NOTIFY changed)
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(QString state READ state NOTIFY changed) // as in the rows
    Q_PROPERTY(bool keepsSignedOnly READ keepsSignedOnly NOTIFY changed)
    Q_PROPERTY(QString extensionsPage READ extensionsPage NOTIFY changed)
    // The folder or file to choose in the browser.
    Q_PROPERTY(QString extension READ extension NOTIFY changed)
    // The file that tells the browser of the host.
    Q_PROPERTY(QString manifest READ manifest NOTIFY changed)
public:
    explicit BrowserSetup(const platform::Ports& ports, QObject* parent = nullptr);

    // The screen is opened: looks again at what is installed.
    void refresh();
    // By its identifier; the list where there is no such browser.
    void open(const QString& identifier);

    [[nodiscard]] BrowserRows* rows() { return &rows_; }
    [[nodiscard]] QString summary() const;
    [[nodiscard]] const QString& problem() const { return problem_; }
    [[nodiscard]] const QString& chosen() const { return chosenId_; }
    [[nodiscard]] QString name() const { return chosenBrowser().name; }
    [[nodiscard]] QString state() const;
    [[nodiscard]] bool keepsSignedOnly() const { return chosenBrowser().keepsSignedOnly; }
    [[nodiscard]] QString extensionsPage() const { return chosenBrowser().extensionsPage; }
    [[nodiscard]] QString extension() const;
    [[nodiscard]] QString manifest() const { return chosenBrowser().manifest; }

    // Tells the browser of the host: whoever opens its page wants it connected.
    Q_INVOKABLE void choose(const QString& id);
    // Back to the list. False where the list is what is shown.
    Q_INVOKABLE bool leave();
    Q_INVOKABLE void copy(const QString& text) const;
    Q_INVOKABLE void openFolder();

Q_SIGNALS:
    void changed();

private:
    using Browser = platform::ExtensibleBrowser;

    // A value without a name where none is chosen.
    [[nodiscard]] Browser chosenBrowser() const;
    void install(const Browser& browser);

    const platform::Ports& ports_;
    std::vector<Browser> browsers_;
    BrowserRows rows_;
    QString chosenId_;
    QString problem_;
    platform::Observation connections_;
};

} // namespace skipnest::ui
