// SPDX-License-Identifier: Apache-2.0
// Target search over a million made-up names: what a keystroke waits for, what a name costs in
// memory, how soon a cached index and a new file are there. plocate and fzf over the same names
// beside it; both start a process for each question, which "true" shows by itself.
#include "bench/Bench.h"
#include "bench/NameWords.h"
#include "bench/ProcessFigures.h"
#include "platform/QtExecutor.h"
#include "platform/QtScheduler.h"
#include "platform/linux/index/FolderReader.h"
#include "platform/linux/index/IndexCache.h"
#include "platform/linux/index/LinuxFileIndex.h"
#include "platform/linux/index/NameTableBuilder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <array>
#include <chrono>
#include <cstdio>
#include <random>
#include <unistd.h>

namespace skipnest::bench {
namespace {

using Clock = std::chrono::steady_clock;
using linuxdesktop::NameTableBuilder;
using platform::FileQuery;
using platform::IndexedFile;

// What programs add to the words of a name, and what it ends in.
constexpr std::array ends{".pdf", ".docx", ".jpg", ".JPG", ".png", ".txt",  ".cpp", ".h",   ".md",
                          ".odt", ".xlsx", ".mp3", ".py",  ".js",  ".html", ".csv", ".svg", ".zip"};

struct Made {
    std::string path; // below home
    std::string name;
};

// The same names in every run. One in twelve is a folder, and the others lie in those.
std::vector<Made> makeNames(NameTableBuilder& builder, NameTableBuilder::Id archive, int count) {
    std::mt19937 random(20260101);
    const auto pick = [&](const auto& from) { return std::string(from[random() % from.size()]); };
    const auto number = [&](unsigned below) { return std::to_string(random() % below); };
    const auto date = [&] {
        return std::string("20") + std::to_string(10 + random() % 16) + "-" +
               std::to_string(10 + random() % 3) + "-" + std::to_string(10 + random() % 20);
    };
    std::vector<Made> made;
    std::vector<std::pair<NameTableBuilder::Id, std::string>> folders{{archive, "archive"}};
    for (int at = 0; at < count; ++at) {
        const bool isFolder = at % 12 == 0;
        std::string name = pick(nameWords);
        switch (random() % 5) {
        case 0:
            name = std::string("IMG_") + number(100000);
            break;
        case 1:
            name += '_';
            name += date();
            break;
        case 2:
            name += ' ' + pick(nameWords) + ' ' + number(3000);
            break;
        case 3:
            name += '-' + pick(nameWords) + '-' + pick(nameWords);
            break;
        case 4:
            name += number(500);
            break;
        }
        name += isFolder ? "" : pick(ends);
        const auto& [parent, path] = folders[random() % folders.size()];
        const auto id = builder.add(
            parent, name, isFolder ? NameTableBuilder::Kind::folder : NameTableBuilder::Kind::file);
        made.push_back({path + '/' + name, name});
        if (isFolder)
            folders.emplace_back(id, made.back().path);
    }
    return made;
}

struct QueryClass {
    const char* name;
    std::vector<QString> texts;
};

// Texts as people type them: beginnings and middles of names that are there, and some that are not.
std::vector<QueryClass> queryClasses(const std::vector<Made>& made) {
    std::mt19937 random(5);
    const auto cut = [&](int length, const auto& isFit) {
        for (;;) {
            const QString name = QString::fromStdString(made[random() % made.size()].name);
            if (name.size() < length)
                continue;
            const auto from =
                static_cast<qsizetype>(random() % static_cast<unsigned>(name.size() - length + 1));
            if (const QString text = name.mid(from, length); isFit(text))
                return text;
        }
    };
    const auto any = [](const QString&) { return true; };
    const auto hasUmlaut = [](const QString& text) {
        return text.contains(u'ü') || text.contains(u'ö') || text.contains(u'Ü');
    };
    QueryClass one{"one letter", {}};
    for (char letter = 'a'; letter <= 'z'; ++letter)
        one.texts.push_back(QString(QLatin1Char(letter)));
    QueryClass two{"two letters", {}};
    QueryClass umlaut{"umlaut", {QStringLiteral("ü"), QStringLiteral("ß")}};
    QueryClass twelve{"12 letters", {}};
    QueryClass none{"no hit", {}};
    for (int at = 0; at < 50; ++at) {
        two.texts.push_back(cut(2, any));
        umlaut.texts.push_back(cut(2 + at % 5, hasUmlaut));
        twelve.texts.push_back(cut(12, any));
        QString text = cut(3 + at % 8, any);
        text[text.size() / 2] = u'~';
        none.texts.push_back(at % 2 == 0 ? text : cut(2 + at % 4, any) + u'q' + cut(2, any) + u'x');
    }
    return {one, {"\"e\"", {QStringLiteral("e")}}, two, umlaut, twelve, none};
}

class SearchBench {
public:
    explicit SearchBench(int names) : count_(names) {}

    int run(int rounds) {
        makeHome();
        if (!wantsJson())
            std::printf("%d names, %d CPUs, load average %.2f\n", count_,
                        static_cast<int>(sysconf(_SC_NPROCESSORS_ONLN)), loadAverage());
        measureStart();
        measureQueries(rounds);
        measureNewFile();
        printJson(result_);
        return 0;
    }

private:
    void makeHome() {
        if (!QDir().mkpath(home() + QStringLiteral("/archive")))
            giveUp(home());
        NameTableBuilder builder;
        const auto root = builder.addRoot(home().toStdString());
        const auto archive = builder.add(root, "archive", NameTableBuilder::Kind::folder);
        made_ = makeNames(builder, archive, count_);
        // The two folders that exist are as they were read; those below the archive do not.
        builder.setTime(root, linuxdesktop::FolderReader::timeOf(home().toStdString()));
        builder.setTime(archive,
                        linuxdesktop::FolderReader::timeOf(home().toStdString() + "/archive"));
        Series build{QStringLiteral("sorting and laying out"), {}, 0};
        const auto begun = Clock::now();
        const linuxdesktop::NameTable table = builder.build();
        build.add(Clock::now() - begun);
        if (!linuxdesktop::saveNames(table, cache()))
            giveUp(cache());
        std::size_t letters = 0;
        for (const Made& one : made_)
            letters += one.name.size();
        const double each = static_cast<double>(table.bytes().size()) / count_;
        result_.insert(QStringLiteral("bytesPerName"), each);
        result_.insert(QStringLiteral("nameLength"), static_cast<double>(letters) / count_);
        result_.insert(QStringLiteral("buildMs"), build.at(0.5));
        if (!wantsJson())
            std::printf("table: %.1f bytes a name all-in, the names themselves %.1f; built in %.0f "
                        "ms\n",
                        each, static_cast<double>(letters) / count_, build.at(0.5));
        QFile list(folder_.filePath(QStringLiteral("list")));
        if (!list.open(QIODevice::WriteOnly))
            giveUp(list.fileName());
        for (const Made& one : made_)
            list.write(QByteArray("/") + one.path.c_str() + '\n');
    }

    void measureStart() {
        Series start{QStringLiteral("start -> index from cache"), {}, 0};
        for (int round = 0; round < 10; ++round) {
            index_.reset();
            const qint64 before = memory(getpid(), "Private_Dirty");
            linuxdesktop::IndexFolders folders;
            folders.home = home();
            folders.cacheFile = cache();
            const auto begun = Clock::now();
            index_ = std::make_unique<linuxdesktop::LinuxFileIndex>(scheduler_, executor_, entries_,
                                                                    folders);
            index_->start();
            while (index_->state().items < count_)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            start.add(Clock::now() - begun);
            if (round == 0 && !wantsJson())
                std::printf("private dirty memory of the running index: %+lld KiB\n",
                            static_cast<long long>(memory(getpid(), "Private_Dirty") - before));
        }
        printTable({start});
        result_.insert(QStringLiteral("start"), toJson({start}));
    }

    // As the search field waits: asked on the main thread, ranked on another, back on the main one.
    std::size_t ask(const QString& text, Series& series) {
        const auto begun = Clock::now();
        std::optional<std::size_t> found;
        const auto search =
            index_->search({text, FileQuery::Contents::everything, 64},
                           [&](const std::vector<IndexedFile>& files) { found = files.size(); });
        while (!found)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        series.add(Clock::now() - begun);
        return *found;
    }

    // Misfire: the program is missing or was ended.
    void askProgram(const QString& program, const QStringList& arguments, const QString& input,
                    Series& series) {
        QProcess process;
        if (!input.isEmpty())
            process.setStandardInputFile(input);
        process.setStandardOutputFile(QProcess::nullDevice());
        const auto begun = Clock::now();
        process.start(program, arguments);
        if (process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit)
            series.add(Clock::now() - begun);
        else
            ++series.misfires;
    }

    void measureQueries(int rounds) {
        const QString list = folder_.filePath(QStringLiteral("list"));
        const QString database = folder_.filePath(QStringLiteral("plocate.db"));
        Series building{QStringLiteral("plocate-build"), {}, 0};
        askProgram(QStringLiteral("plocate-build"), {QStringLiteral("--plaintext"), list, database},
                   {}, building);
        for (const QueryClass& one : queryClasses(made_)) {
            Series ours{QStringLiteral("skipnest, ") + QString::fromLatin1(one.name), {}, 0};
            Series plocate{QStringLiteral("plocate -i -l 24"), {}, 0};
            Series fzf{QStringLiteral("fzf -f"), {}, 0};
            Series floor{QStringLiteral("true (a process and no search)"), {}, 0};
            std::size_t hits = 0;
            for (int round = 0; round < rounds; ++round) {
                const QString& text = one.texts[static_cast<std::size_t>(round) % one.texts.size()];
                hits += ask(text, ours);
                // The others are slow; a tenth of the rounds is enough to tell by how much.
                if (round % 10 != 0)
                    continue;
                askProgram(QStringLiteral("plocate"),
                           {QStringLiteral("-d"), database, QStringLiteral("-i"),
                            QStringLiteral("-l"), QStringLiteral("24"), QStringLiteral("--"), text},
                           {}, plocate);
                askProgram(QStringLiteral("true"), {}, {}, floor);
                if (round % 50 == 0)
                    askProgram(QStringLiteral("fzf"), {QStringLiteral("-f"), text}, list, fzf);
            }
            if (!wantsJson())
                std::printf("\n%.1f results on average\n", static_cast<double>(hits) / rounds);
            printTable({ours, plocate, fzf, floor});
            result_.insert(QString::fromLatin1(one.name), toJson({ours, plocate, fzf, floor}));
        }
    }

    void measureNewFile() {
        Series series{QStringLiteral("new file -> found"), {}, 0};
        for (int round = 0; round < 20; ++round) {
            const QString name = QStringLiteral("fresh-%1.txt").arg(round);
            QFile file(home() + u'/' + name);
            const auto begun = Clock::now();
            if (!file.open(QIODevice::WriteOnly))
                giveUp(file.fileName());
            file.close();
            Series unused;
            const auto wake = scheduler_.every(std::chrono::milliseconds(1), "bench", [] {});
            while (ask(name, unused) == 0 && Clock::now() - begun < std::chrono::seconds(10))
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            if (Clock::now() - begun < std::chrono::seconds(10))
                series.add(Clock::now() - begun);
            else
                ++series.misfires;
        }
        if (!wantsJson())
            std::printf("\n");
        printTable({series});
        result_.insert(QStringLiteral("newFile"), toJson({series}));
    }

    QString home() const { return folder_.filePath(QStringLiteral("home")); }
    QString cache() const { return folder_.filePath(QStringLiteral("cache/names")); }

    const int count_;
    QTemporaryDir folder_;
    std::vector<Made> made_;
    QJsonObject result_;
    platform::QtScheduler scheduler_;
    platform::QtExecutor executor_{scheduler_};
    linuxdesktop::DesktopEntries entries_{scheduler_, executor_};
    std::unique_ptr<linuxdesktop::LinuxFileIndex> index_;
};

} // namespace
} // namespace skipnest::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    using skipnest::bench::numberOption;
    return skipnest::bench::SearchBench(numberOption("names", 1'000'000))
        .run(numberOption("rounds", 200));
}
