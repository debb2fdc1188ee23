// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <compare>
#include <cstddef>
#include <functional>
#include <optional>

namespace skipnest::model {

// The identity of a record: a UUID that keeps the 36 characters it was read as, so that a file
// written in lower case stays that way. Two that differ only in case are the same.
class RecordId {
public:
    // A new random one, in upper case.
    [[nodiscard]] static RecordId make();
    // Nothing unless `text` is the canonical 36-character form.
    [[nodiscard]] static std::optional<RecordId> fromText(const QString& text);

    [[nodiscard]] const QString& text() const { return text_; }

    friend bool operator==(const RecordId& a, const RecordId& b) {
        return a.text_.compare(b.text_, Qt::CaseInsensitive) == 0;
    }
    friend std::weak_ordering operator<=>(const RecordId& a, const RecordId& b) {
        return a.text_.compare(b.text_, Qt::CaseInsensitive) <=> 0;
    }

private:
    explicit RecordId(QString text);

    QString text_;
};

[[nodiscard]] std::size_t qHash(const RecordId& id, std::size_t seed = 0);

} // namespace skipnest::model

template <> struct std::hash<skipnest::model::RecordId> {
    std::size_t operator()(const skipnest::model::RecordId& id) const {
        return skipnest::model::qHash(id);
    }
};
