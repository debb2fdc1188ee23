// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/contacts/VCardLines.h"

#include <QByteArrayView>
#include <QStringDecoder>

#include <algorithm>
#include <optional>

namespace skipnest::linuxdesktop {
namespace {

using namespace Qt::StringLiterals;

// More is a picture or rubbish, and no name or number.
constexpr qsizetype longestValue = 64 * 1024;

struct Parameters {
    QByteArray name; // of the property, upper case
    QStringList types;
    QByteArray encoding;
    QByteArray charset;
};

QString decoded(const QByteArray& bytes, const QByteArray& charset) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    if (!charset.isEmpty() && charset.compare("UTF-8", Qt::CaseInsensitive) != 0) {
        QStringDecoder named(charset.constData());
        if (named.isValid())
            return named.decode(bytes);
    }
    const QString text = utf8.decode(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

// UTF-16 as UTF-8; a byte order mark is taken off.
QByteArray inUtf8(const QByteArray& file) {
    if (file.startsWith("\xff\xfe") || file.startsWith("\xfe\xff")) {
        QStringDecoder utf16(QStringDecoder::Utf16);
        const QString text = utf16.decode(file);
        return text.toUtf8();
    }
    return file.startsWith("\xef\xbb\xbf") ? file.mid(3) : file;
}

// The lines of a text one after the other, whatever ends them.
class Lines {
public:
    explicit Lines(QByteArrayView text) : text_(text) { find(); }

    [[nodiscard]] bool atEnd() const { return isAtEnd_; }
    [[nodiscard]] QByteArrayView front() const { return text_.sliced(begin_, end_ - begin_); }
    void pop() {
        isAtEnd_ = end_ >= text_.size();
        if (isAtEnd_)
            return;
        const bool isTwo =
            text_[end_] == '\r' && end_ + 1 < text_.size() && text_[end_ + 1] == '\n';
        begin_ = end_ + (isTwo ? 2 : 1);
        find();
    }

private:
    void find() {
        end_ = begin_;
        while (end_ < text_.size() && text_[end_] != '\n' && text_[end_] != '\r')
            ++end_;
    }

    QByteArrayView text_;
    qsizetype begin_ = 0;
    qsizetype end_ = 0;
    bool isAtEnd_ = false;
};

// Where the value begins: the first colon outside quotes.
qsizetype colonOf(QByteArrayView line) {
    bool isQuoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line[i] == '"')
            isQuoted = !isQuoted;
        else if (line[i] == ':' && !isQuoted)
            return i;
    }
    return line.indexOf(':');
}

Parameters parametersOf(QByteArrayView head) {
    std::vector<QByteArray> parts(1);
    bool isQuoted = false;
    for (const char c : head) {
        if (c == '"')
            isQuoted = !isQuoted;
        else if (c == ';' && !isQuoted)
            parts.emplace_back();
        else
            parts.back() += c;
    }
    Parameters found;
    found.name = parts.front().mid(parts.front().lastIndexOf('.') + 1).trimmed().toUpper();
    for (std::size_t i = 1; i < parts.size(); ++i) {
        const qsizetype equals = parts[i].indexOf('=');
        const QByteArray key =
            equals < 0 ? QByteArray() : parts[i].left(equals).trimmed().toUpper();
        const QByteArray value = parts[i].mid(equals + 1).trimmed();
        if (key == "ENCODING")
            found.encoding = value.toUpper();
        else if (key == "CHARSET")
            found.charset = value;
        else if (key == "TYPE" || key.isEmpty())
            found.types += QString::fromLatin1(value).toUpper().split(u',', Qt::SkipEmptyParts);
        else if (key == "PREF")
            found.types += u"PREF"_s;
    }
    // Version 2.1 writes encodings without their key.
    if (found.encoding.isEmpty()) {
        for (const char* encoding : {"QUOTED-PRINTABLE", "BASE64"}) {
            if (found.types.contains(QLatin1StringView(encoding)))
                found.encoding = encoding;
        }
    }
    return found;
}

std::optional<int> hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return std::nullopt;
}

QByteArray fromQuotedPrintable(const QByteArray& text) {
    QByteArray bytes;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto high =
            text[i] == '=' && i + 2 < text.size() ? hexDigit(text[i + 1]) : std::optional<int>();
        const auto low = high ? hexDigit(text[i + 2]) : std::nullopt;
        if (low) {
            bytes += static_cast<char>(*high * 16 + *low);
            i += 2;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

// A line with all that is folded behind it. Version 2.1 folds before a blank of the text itself,
// the later ones before one that they put in.
QByteArray unfolded(Lines& lines, bool isVersion2) {
    QByteArray line = lines.front().toByteArray();
    const qsizetype colon = colonOf(line);
    const bool isQuotedPrintable =
        colon >= 0 &&
        parametersOf(QByteArrayView(line).first(colon)).encoding == "QUOTED-PRINTABLE";
    const auto append = [&line](QByteArrayView more) {
        if (line.size() <= longestValue)
            line.append(more);
    };
    for (lines.pop(); !lines.atEnd(); lines.pop()) {
        const QByteArrayView more = lines.front();
        if (isQuotedPrintable && line.endsWith('=')) {
            line.chop(1);
            append(more);
        } else if (!more.isEmpty() && (more.front() == ' ' || more.front() == '\t')) {
            append(isVersion2 ? more : more.sliced(1));
        } else {
            break;
        }
    }
    return line;
}

std::optional<VCardProperty> propertyOf(const QByteArray& line) {
    const qsizetype colon = colonOf(line);
    if (colon <= 0 || line.size() > longestValue)
        return std::nullopt;
    const Parameters parameters = parametersOf(QByteArrayView(line).first(colon));
    QByteArray bytes = line.mid(colon + 1);
    if (parameters.encoding == "QUOTED-PRINTABLE")
        bytes = fromQuotedPrintable(bytes);
    else if (parameters.encoding == "B" || parameters.encoding == "BASE64")
        bytes = QByteArray::fromBase64(bytes);
    return VCardProperty{QString::fromLatin1(parameters.name), parameters.types,
                         decoded(bytes, parameters.charset)};
}

} // namespace

std::vector<VCardLines> readVCardLines(const QByteArray& file) {
    const QByteArray text = inUtf8(file);
    Lines lines(text);
    std::vector<VCardLines> cards;
    int depth = 0; // 2.1 allows a card inside one: of an agent, which is not the person
    while (!lines.atEnd()) {
        const bool isVersion2 = depth > 0 && cards.back().isVersion2;
        const auto property = propertyOf(unfolded(lines, isVersion2));
        if (!property)
            continue;
        const bool isOfCard =
            property->value.trimmed().compare(u"VCARD"_s, Qt::CaseInsensitive) == 0;
        if (property->name == u"BEGIN" && isOfCard) {
            if (depth++ == 0)
                cards.emplace_back();
        } else if (property->name == u"END" && isOfCard) {
            depth = std::max(depth - 1, 0);
        } else if (depth == 1) {
            if (property->name == u"VERSION")
                cards.back().isVersion2 = property->value.trimmed().startsWith(u"2.");
            cards.back().properties.push_back(*property);
        }
    }
    return cards;
}

QStringList splitVCardValue(const QString& value, QChar separator, bool isVersion2) {
    QStringList parts{QString()};
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value[i];
        if (c == separator) {
            parts.append(QString());
        } else if (c == u'\\' && i + 1 < value.size() && (!isVersion2 || value[i + 1] == u';')) {
            const QChar escaped = value[++i];
            parts.back() += escaped == u'n' || escaped == u'N' ? QChar(u'\n') : escaped;
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

} // namespace skipnest::linuxdesktop
