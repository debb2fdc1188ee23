// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>

namespace skipnest::bench {

// Words of file names in the two languages.
inline constexpr std::array nameWords{
    "Rechnung", "Angebot",   "Übersicht", "Protokoll",  "Vertrag",      "Bewerbung", "Lebenslauf",
    "Urlaub",   "Grüße",     "Straße",    "Prüfung",    "Lösung",       "Anhang",    "Entwurf",
    "report",   "invoice",   "meeting",   "notes",      "summary",      "draft",     "final",
    "project",  "holiday",   "backup",    "screenshot", "photo",        "budget",    "schedule",
    "main",     "test",      "index",     "config",     "server",       "client",    "parser",
    "module",   "component", "template",  "document",   "presentation", "reference", "manual",
    "Mueller",  "Schmidt",   "Anna",      "Jonas",      "Berlin",       "München",   "Köln",
    "garden",   "kitchen",   "school",    "insurance",  "tax",          "music",     "recipe",
    "camera",   "scan",      "letter",    "contract",   "warranty",     "travel",    "ticket",
};

} // namespace skipnest::bench
