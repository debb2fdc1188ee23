// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/e2e/Agent.h"
#include "tests/e2e/DesktopSession.h"

#include <QJsonObject>
#include <QString>

#include <chrono>
#include <vector>

namespace skipnest::bench {

// How often one contestant did its task, and how long it took each time.
struct Series {
    QString name;
    std::vector<double> milliseconds;
    int misfires = 0; // tried and not seen to arrive: reported, never a sample

    void add(std::chrono::nanoseconds took);
    // `quantile` from 0 to 1; 0 where there is no sample.
    [[nodiscard]] double at(double quantile) const;
};

// One line a series; ratios of medians against the first.
void printTable(const std::vector<Series>& series);
[[nodiscard]] QJsonObject toJson(const std::vector<Series>& series);

[[nodiscard]] double loadAverage(); // of the last minute

// "--NAME VALUE" or "--NAME=VALUE" of the command line.
[[nodiscard]] int numberOption(const char* name, int otherwise);
// Prints `result` as JSON where --json was given.
void printJson(const QJsonObject& result);
[[nodiscard]] bool wantsJson();

[[nodiscard]] QString floorBinary();

// Ends the program with the reason: there is nothing to measure.
[[noreturn]] void giveUp(const QString& reason);
void requirePrograms(const e2e::DesktopSession& session);

} // namespace skipnest::bench
