// SPDX-License-Identifier: Apache-2.0
#include "voice/FileLookup.h"

#include "platform/Diagnostics.h"
#include "platform/Workspace.h"
#include "voice/FoldedText.h"

#include <QSet>
#include <QStringBuilder>
#include <QStringList>

#include <utility>

namespace skipnest::voice {

using namespace Qt::StringLiterals;
using platform::IndexedFile;

namespace {

// Each word costs a search; nobody names a file by more.
constexpr qsizetype mostWords = 6;
// Shorter words are in every other name.
constexpr qsizetype shortestWord = 3;

QStringList termsOf(const QString& phrase) {
    const QString whole = phrase.simplified();
    QStringList terms = whole.split(u' ');
    terms.removeIf([](const QString& word) { return word.size() < shortestWord; });
    terms = terms.mid(0, mostWords);
    if (!whole.isEmpty())
        terms.prepend(whole);
    terms.removeDuplicates();
    return terms;
}

} // namespace

QString shortPath(const QString& path, const QString& home) {
    if (home.isEmpty() || (path != home && !path.startsWith(home + u'/')))
        return path;
    return u'~' % path.mid(home.size());
}

void FileLookup::find(const QString& phrase, Found found) {
    cancel();
    found_ = std::move(found);
    const QStringList terms = termsOf(phrase);
    answers_.resize(static_cast<std::size_t>(terms.size()));
    open_ = answers_.size();
    for (std::size_t term = 0; term < answers_.size(); ++term) {
        searches_.push_back(ports_.fileIndex.search({.text = terms[static_cast<qsizetype>(term)]},
                                                    [this, term](std::vector<IndexedFile> files) {
                                                        answers_[term] = std::move(files);
                                                        if (--open_ == 0)
                                                            end();
                                                    }));
    }
    const platform::Duration wait = terms.isEmpty() ? platform::Duration::zero() : patience;
    deadline_ = ports_.scheduler.after(wait, "voice file lookup", [this] {
        searches_.clear();
        end();
    });
}

void FileLookup::cancel() {
    searches_.clear();
    answers_.clear();
    deadline_.reset();
    found_ = nullptr;
}

void FileLookup::end() {
    const auto answers = std::exchange(answers_, {});
    const Found found = std::exchange(found_, nullptr);
    // All have answered. Dropped later: one of them may be the one that is telling us.
    ports_.scheduler.post(
        [searches = std::make_shared<std::vector<platform::FileSearch>>(std::move(searches_))] {});
    searches_.clear();
    deadline_.reset();

    std::vector<JumpTarget> targets;
    QSet<QString> seen;
    for (const auto& files : answers) {
        for (const IndexedFile& file : files) {
            if (file.kind == IndexedFile::Kind::application || file.path.endsWith(u".app") ||
                seen.contains(file.path))
                continue;
            seen.insert(file.path);
            const bool isFolder = file.kind == IndexedFile::Kind::folder;
            targets.push_back(
                {.title = file.displayName,
                 .subtitle =
                     shortPath(file.path.left(file.path.lastIndexOf(u'/')), ports_.app.home),
                 .kind = isFolder ? JumpTarget::Kind::folder : JumpTarget::Kind::file,
                 .url = QUrl::fromLocalFile(file.path),
                 .commit = [&workspace = ports_.workspace, &diagnostics = ports_.diagnostics,
                            path = file.path] {
                     workspace.openFile(path, [&diagnostics, path](const platform::Outcome& done) {
                         if (!done)
                             diagnostics.log(u"voice: could not open "_s % path % u": "_s %
                                             done.failure().detail);
                     });
                 }});
        }
    }
    found(std::move(targets));
}

} // namespace skipnest::voice
