// SPDX-License-Identifier: Apache-2.0
#include "bench/Bench.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace skipnest::bench {

void Series::add(std::chrono::nanoseconds took) {
    milliseconds.push_back(std::chrono::duration<double, std::milli>(took).count());
}

double Series::at(double quantile) const {
    if (milliseconds.empty())
        return 0;
    std::vector<double> sorted = milliseconds;
    std::ranges::sort(sorted);
    const double index = quantile * static_cast<double>(sorted.size() - 1);
    return sorted[static_cast<std::size_t>(std::lround(index))];
}

void printTable(const std::vector<Series>& series) {
    if (wantsJson())
        return;
    std::printf("%-34s %5s %8s %9s %8s %8s %8s\n", "", "n", "misfires", "median ms", "p95 ms",
                "max ms", "ratio");
    const double base = series.empty() ? 0 : series.front().at(0.5);
    for (const Series& one : series) {
        std::printf("%-34s %5zu %8d %9.3f %8.3f %8.3f %8.2f\n", qPrintable(one.name),
                    one.milliseconds.size(), one.misfires, one.at(0.5), one.at(0.95), one.at(1),
                    base > 0 ? one.at(0.5) / base : 0);
    }
    std::printf("ratio: median against %s; load average %.2f\n",
                series.empty() ? "" : qPrintable(series.front().name), loadAverage());
}

QJsonObject toJson(const std::vector<Series>& series) {
    QJsonArray rows;
    const double base = series.empty() ? 0 : series.front().at(0.5);
    for (const Series& one : series) {
        QJsonArray samples;
        for (const double value : one.milliseconds)
            samples.append(value);
        rows.append(QJsonObject{
            {QStringLiteral("name"), one.name},
            {QStringLiteral("n"), static_cast<int>(one.milliseconds.size())},
            {QStringLiteral("misfires"), one.misfires},
            {QStringLiteral("medianMs"), one.at(0.5)},
            {QStringLiteral("p95Ms"), one.at(0.95)},
            {QStringLiteral("ratio"), base > 0 ? one.at(0.5) / base : 0},
            {QStringLiteral("ms"), samples},
        });
    }
    return {{QStringLiteral("loadAverage"), loadAverage()}, {QStringLiteral("series"), rows}};
}

double loadAverage() {
    double minute = 0;
    return getloadavg(&minute, 1) == 1 ? minute : -1;
}

int numberOption(const char* name, int otherwise) {
    const QString option = QStringLiteral("--") + QString::fromLatin1(name);
    const QStringList arguments = QCoreApplication::arguments();
    for (qsizetype index = 1; index < arguments.size(); ++index) {
        const QString& argument = arguments[index];
        if (argument == option && index + 1 < arguments.size())
            return arguments[index + 1].toInt();
        if (argument.startsWith(option + u'='))
            return argument.mid(option.size() + 1).toInt();
    }
    return otherwise;
}

bool wantsJson() {
    return QCoreApplication::arguments().contains(QStringLiteral("--json"));
}

void printJson(const QJsonObject& result) {
    if (wantsJson())
        std::printf("%s\n", QJsonDocument(result).toJson(QJsonDocument::Compact).constData());
}

QString floorBinary() {
    return QStringLiteral(SKIPNEST_FLOOR_BINARY);
}

void giveUp(const QString& reason) {
    std::fprintf(stderr, "%s: %s\n", qPrintable(QCoreApplication::applicationName()),
                 qPrintable(reason));
    // Nothing is left behind: the kernel ends what this process started.
    std::exit(1);
}

void requirePrograms(const e2e::DesktopSession& session) {
    if (!session.failure().isEmpty())
        giveUp(session.failure());
    if (!e2e::Agent::missing().isEmpty())
        giveUp(e2e::Agent::missing() + QStringLiteral(" is missing"));
}

} // namespace skipnest::bench
