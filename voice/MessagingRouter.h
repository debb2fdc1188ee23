// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <variant>
#include <vector>

namespace skipnest::voice {

// Which messaging application and which person a phrase is for.
class MessagingRouter {
public:
    // How an application opens the chat with a person.
    struct DeepLinkPhone {
        QString scheme; // scheme + "://send?phone=" + number
    };
    struct QuickSwitch {
        QString key; // Command + key, the name, Return
    };
    struct IMessage {}; // "imessage://" + number or address
    struct Search {};   // Command-F, the name, Down, Return
    using Open = std::variant<DeepLinkPhone, QuickSwitch, IMessage, Search>;

    struct App {
        QString display;
        QStringList names;     // as they are said and misheard, lower case
        QStringList bundleIds; // in order of preference
        Open open;
    };

    struct Route {
        const App* app = nullptr; // of apps(), never null
        QString contact;          // as spoken
        std::optional<QString> message;
    };

    // In the order in which they are looked for.
    [[nodiscard]] static const std::vector<App>& apps();
    [[nodiscard]] static bool isMessagingApp(const QString& name);

    // Nothing where no application of the table is named, or no contact remains. An application
    // that is searched for, closed, or only written about is not named.
    [[nodiscard]] static std::optional<Route> route(const QString& phrase);
    // From what was already told apart.
    [[nodiscard]] static std::optional<Route> route(const QString& target, const QString& contact,
                                                    const QString& message);
};

} // namespace skipnest::voice
