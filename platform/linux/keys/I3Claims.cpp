// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/DesktopClaims.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace skipnest::linuxdesktop {
namespace {

// Configurations that include each other would never end.
constexpr int deepestInclude = 8;
constexpr int mostFiles = 100;
// Longer ones are no bindings; with variables that hold variables a short file could mean
// gigabytes.
constexpr qsizetype longestLine = 4096;
constexpr qsizetype longestValue = 1024;

class Reader {
public:
    explicit Reader(const I3Include& include) : include_(include) {}

    void read(const I3ConfigFile& file, int depth = 0);
    [[nodiscard]] DesktopClaims claims() const;

private:
    struct Binding {
        QString combo;
        KeySpelling key;
        QString command;
    };

    void line(const QString& text, const QString& folder, int depth);
    void openBlock(const QString& head);
    void bind(const QString& arguments, bool isKeycode);
    void unbind(const QString& combo);
    [[nodiscard]] QString replaced(QString text) const;

    const I3Include& include_;
    int files_ = 0;
    // Longest name first: $mod must not be found in $modifier.
    std::vector<std::pair<QString, QString>> variables_;
    std::vector<Binding> bindings_;
    // Of the blocks that are open, innermost last: whether lines in it are bindings ("bindsym {").
    enum class Block { bindSymbols, bindCodes, other };
    std::vector<Block> blocks_;
};

// The first word and what follows it.
std::pair<QString, QString> cut(const QString& text) {
    static const QRegularExpression blank(QStringLiteral("\\s"));
    const qsizetype end = text.indexOf(blank);
    if (end < 0)
        return {text, {}};
    return {text.left(end), text.sliced(end).trimmed()};
}

QString unquoted(const QString& text) {
    const bool isQuoted = text.size() > 1 && text.startsWith(u'"') && text.endsWith(u'"');
    return isQuoted ? text.sliced(1, text.size() - 2) : text;
}

void Reader::read(const I3ConfigFile& file, int depth) {
    if (depth > deepestInclude || ++files_ > mostFiles)
        return;
    // A block ends with its file, however it was written.
    const auto outerBlocks = std::exchange(blocks_, {});
    QString pending;
    for (const QString& part : QString::fromUtf8(file.text).split(u'\n')) {
        pending += part.trimmed();
        const bool isComment = pending.startsWith(u'#');
        if (!isComment && pending.endsWith(u'\\')) {
            pending.chop(1);
            continue;
        }
        if (!pending.isEmpty() && !isComment && pending.size() <= longestLine)
            line(pending, file.folder, depth);
        pending.clear();
    }
    blocks_ = outerBlocks;
}

void Reader::line(const QString& text, const QString& folder, int depth) {
    if (text == u"}") {
        if (!blocks_.empty())
            blocks_.pop_back();
        return;
    }
    if (text.endsWith(u'{')) {
        openBlock(replaced(text));
        return;
    }
    if (!blocks_.empty()) {
        if (blocks_.size() == 1 && blocks_.front() != Block::other)
            bind(replaced(text), blocks_.front() == Block::bindCodes);
        return;
    }
    const auto [word, rest] = cut(text);
    if (word == u"set" || word == u"set_from_resource") {
        const auto variable = cut(rest);
        const QString& name = variable.first;
        const QString& value = variable.second;
        if (!name.startsWith(u'$') || name.size() < 2)
            return;
        // The second form names a resource and then what holds without it.
        const QString chosen = replaced(unquoted(word == u"set" ? value : cut(value).second));
        if (chosen.size() > longestValue)
            return;
        std::erase_if(variables_, [&](const auto& known) { return known.first == name; });
        variables_.emplace_back(name, chosen);
        std::ranges::stable_sort(variables_, [](const auto& a, const auto& b) {
            return a.first.size() > b.first.size();
        });
    } else if (word == u"bindsym" || word == u"bindcode") {
        bind(replaced(rest), word == u"bindcode");
    } else if (word == u"unbindsym" || word == u"unbindcode") {
        unbind(cut(replaced(rest)).first);
    } else if (word == u"include") {
        for (const I3ConfigFile& file : include_(unquoted(replaced(rest)), folder))
            read(file, depth + 1);
    }
}

void Reader::openBlock(const QString& head) {
    const QString word = cut(head).first;
    blocks_.push_back(word == u"bindsym"    ? Block::bindSymbols
                      : word == u"bindcode" ? Block::bindCodes
                                            : Block::other);
}

void Reader::bind(const QString& arguments, bool isKeycode) {
    auto [word, rest] = cut(arguments);
    while (word.startsWith(u"--"))
        std::tie(word, rest) = cut(rest);
    auto key = i3Spelling(word);
    if (!key)
        return;
    if (isKeycode) {
        bool ok = false;
        const uint keycode = key->keysym.toUInt(&ok);
        if (!ok || keycode < 8 || keycode > 0xff)
            return;
        key->keycode = static_cast<std::uint8_t>(keycode);
        key->keysym.clear();
    }
    unbind(word);
    bindings_.push_back({word, *key, rest});
}

void Reader::unbind(const QString& combo) {
    std::erase_if(bindings_, [&combo](const Binding& binding) { return binding.combo == combo; });
}

QString Reader::replaced(QString text) const {
    // A variable may stand in another's value.
    for (int round = 0; round < 4 && text.contains(u'$'); ++round) {
        for (const auto& [name, value] : variables_) {
            if (text.size() > longestLine)
                return text;
            text.replace(name, value);
        }
    }
    return text;
}

DesktopClaims Reader::claims() const {
    DesktopClaims claims;
    for (const Binding& binding : bindings_)
        claims.add(binding.key, binding.command);
    return claims;
}

} // namespace

DesktopClaims i3Claims(const I3ConfigFile& configuration, const I3Include& include) {
    Reader reader(include);
    reader.read(configuration);
    return reader.claims();
}

} // namespace skipnest::linuxdesktop
