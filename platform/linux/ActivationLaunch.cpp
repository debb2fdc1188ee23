// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/ActivationLaunch.h"

#include <QFile>

#include <memory>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

namespace skipnest::linuxdesktop {

using platform::Done;
using platform::Failure;
using platform::Outcome;

namespace {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <typename T> using GObjectPtr = std::unique_ptr<T, Unref>;

constexpr const char* tokenKey = "skipnest-activation-token";

char* startupNotifyId(GAppLaunchContext* context, GAppInfo*, GList*) {
    return g_strdup(static_cast<const char*>(g_object_get_data(G_OBJECT(context), tokenKey)));
}

void initializeClass(gpointer type, gpointer) {
    static_cast<GAppLaunchContextClass*>(type)->get_startup_notify_id = startupNotifyId;
}

// A D-Bus activated program gets the token from the launch context's own method alone, so the
// environment is not enough and a class is needed.
GType launchContextType() {
    static const GType type = [] {
        GTypeInfo info{};
        info.class_size = sizeof(GAppLaunchContextClass);
        info.class_init = initializeClass;
        info.instance_size = sizeof(GAppLaunchContext);
        return g_type_register_static(G_TYPE_APP_LAUNCH_CONTEXT, "SkipnestLaunchContext", &info,
                                      G_TYPE_FLAG_NONE);
    }();
    return type;
}

GObjectPtr<GAppLaunchContext> launchContext(const QString& activationToken) {
    GObjectPtr<GAppLaunchContext> context(
        static_cast<GAppLaunchContext*>(g_object_new(launchContextType(), nullptr)));
    for (const char* variable : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"}) {
        // A token that the agent itself was started with is spent.
        if (activationToken.isEmpty())
            g_app_launch_context_unsetenv(context.get(), variable);
        else
            g_app_launch_context_setenv(context.get(), variable,
                                        activationToken.toUtf8().constData());
    }
    if (!activationToken.isEmpty())
        g_object_set_data_full(G_OBJECT(context.get()), tokenKey,
                               g_strdup(activationToken.toUtf8().constData()), g_free);
    return context;
}

Outcome launch(const QString& entryPath, GList* files, const QString& activationToken) {
    const GObjectPtr<GDesktopAppInfo> entry(
        g_desktop_app_info_new_from_filename(QFile::encodeName(entryPath).constData()));
    if (!entry)
        return Failure{Failure::Kind::malformed,
                       QStringLiteral("%1 is no desktop entry that can be started").arg(entryPath)};
    const auto context = launchContext(activationToken);
    GError* error = nullptr;
    if (g_app_info_launch(G_APP_INFO(entry.get()), files, context.get(), &error) != FALSE)
        return Done{};
    const Failure failure{Failure::Kind::system, QStringLiteral("%1: %2").arg(
                                                     entryPath, QString::fromUtf8(error->message))};
    g_error_free(error);
    return failure;
}

} // namespace

Outcome launchEntry(const QString& entryPath, const QString& activationToken) {
    return launch(entryPath, nullptr, activationToken);
}

Outcome launchEntryOn(const QString& entryPath, const QString& filePath,
                      const QString& activationToken) {
    const GObjectPtr<GFile> file(g_file_new_for_path(QFile::encodeName(filePath).constData()));
    GList files{file.get(), nullptr, nullptr};
    return launch(entryPath, &files, activationToken);
}

std::optional<QString> defaultEntryFor(const QString& filePath) {
    const GObjectPtr<GFile> file(g_file_new_for_path(QFile::encodeName(filePath).constData()));
    const GObjectPtr<GAppInfo> application(
        g_file_query_default_handler(file.get(), nullptr, nullptr));
    if (!application || !G_IS_DESKTOP_APP_INFO(application.get()))
        return std::nullopt;
    const char* path = g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(application.get()));
    if (path == nullptr)
        return std::nullopt;
    return QFile::decodeName(path);
}

} // namespace skipnest::linuxdesktop
