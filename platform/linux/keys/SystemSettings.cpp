// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/SystemSettings.h"

#include <gio/gio.h>

namespace skipnest::linuxdesktop {
namespace {

QStringList listed(char** texts) {
    QStringList list;
    for (char** text = texts; text != nullptr && *text != nullptr; ++text)
        list.append(QString::fromUtf8(*text));
    g_strfreev(texts);
    return list;
}

// GIO ends the program over a path of another form, and this one is out of a setting.
bool isSettingsPath(const QString& path) {
    return path.size() > 1 && path.startsWith(u'/') && path.endsWith(u'/') && !path.contains(u"//");
}

} // namespace

SystemSettings::SystemSettings() = default;
SystemSettings::~SystemSettings() = default;

void SystemSettings::Unref::operator()(_GSettings* settings) const {
    g_object_unref(settings);
}

void SystemSettings::Unref::operator()(_GSettingsSchema* schema) const {
    g_settings_schema_unref(schema);
}

// Asked of the list of schemas first: opening one that is not installed ends the program.
SystemSettings::Schema SystemSettings::find(const QString& schema) {
    GSettingsSchemaSource* source = g_settings_schema_source_get_default();
    if (source == nullptr)
        return nullptr;
    return Schema(g_settings_schema_source_lookup(source, schema.toUtf8().constData(), TRUE));
}

QStringList SystemSettings::keys(const QString& schema) const {
    const Schema found = find(schema);
    return found ? listed(g_settings_schema_list_keys(found.get())) : QStringList();
}

QStringList SystemSettings::texts(const QString& schema, const QString& path,
                                  const QString& key) const {
    const Schema found = find(schema);
    const QByteArray name = key.toUtf8();
    if (!found || g_settings_schema_has_key(found.get(), name.constData()) == FALSE)
        return {};
    const bool isFixed = g_settings_schema_get_path(found.get()) != nullptr;
    if (isFixed != path.isEmpty() || (!isFixed && !isSettingsPath(path)))
        return {};

    Settings relocated;
    GSettings* settings = nullptr;
    if (isFixed) {
        Settings& kept = fixed_[schema];
        if (!kept)
            kept.reset(g_settings_new_full(found.get(), nullptr, nullptr));
        settings = kept.get();
    } else {
        relocated.reset(g_settings_new_full(found.get(), nullptr, path.toUtf8().constData()));
        settings = relocated.get();
    }
    GVariant* value = g_settings_get_value(settings, name.constData());
    QStringList texts;
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING) != FALSE)
        texts.append(QString::fromUtf8(g_variant_get_string(value, nullptr)));
    else if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING_ARRAY) != FALSE)
        texts = listed(g_variant_dup_strv(value, nullptr));
    g_variant_unref(value);
    return texts;
}

} // namespace skipnest::linuxdesktop
