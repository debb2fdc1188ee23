// SPDX-License-Identifier: Apache-2.0
#include "voice/MessagingRouter.h"

namespace skipnest::voice {

const std::vector<MessagingRouter::App>& MessagingRouter::apps() {
    // The odd spellings are what recognisers deliver for these names.
    static const std::vector<App> table{
        {QStringLiteral("WhatsApp"),
         {QStringLiteral("whatsapp"), QStringLiteral("whats app"), QStringLiteral("what's app"),
          QStringLiteral("whatts app"), QStringLiteral("whatsup"), QStringLiteral("voxup")},
         {QStringLiteral("net.whatsapp.WhatsApp"), QStringLiteral("WhatsApp")},
         DeepLinkPhone{QStringLiteral("whatsapp")}},
        {QStringLiteral("Messages"),
         {QStringLiteral("imessage"), QStringLiteral("i message"), QStringLiteral("messages"),
          QStringLiteral("message"), QStringLiteral("nachrichten"), QStringLiteral("nachricht")},
         {QStringLiteral("com.apple.MobileSMS")},
         IMessage{}},
        {QStringLiteral("Slack"),
         {QStringLiteral("slack")},
         {QStringLiteral("com.tinyspeck.slackmacgap")},
         QuickSwitch{QStringLiteral("k")}},
        {QStringLiteral("Discord"),
         {QStringLiteral("discord")},
         {QStringLiteral("com.hnc.Discord")},
         QuickSwitch{QStringLiteral("k")}},
        {QStringLiteral("Telegram"),
         {QStringLiteral("telegram")},
         {QStringLiteral("ru.keepcoder.Telegram"), QStringLiteral("org.telegram.desktop")},
         Search{}},
        {QStringLiteral("Teams"),
         {QStringLiteral("teams"), QStringLiteral("microsoft teams"), QStringLiteral("ms teams")},
         {QStringLiteral("com.microsoft.teams2"), QStringLiteral("com.microsoft.teams")},
         Search{}},
        {QStringLiteral("Signal"),
         {QStringLiteral("signal")},
         {QStringLiteral("org.whispersystems.signal-desktop")},
         Search{}},
    };
    return table;
}

} // namespace skipnest::voice
