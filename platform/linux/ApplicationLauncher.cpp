// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/ApplicationLauncher.h"

#include <QFile>
#include <QFileInfo>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

using platform::Failure;
using platform::Result;

struct Unreference {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <typename T> using GObjectPtr = std::unique_ptr<T, Unreference>;

QString takeMessage(GError* error) {
    const QString message = error ? QString::fromUtf8(error->message) : QString();
    g_clear_error(&error);
    return message;
}

constexpr char startupIdKey[] = "skipnest-startup-id";

// GIO asks the context for the startup id, for the environment as well as for D-Bus activation.
struct StartupContext {
    GAppLaunchContext parent;
};
struct StartupContextClass {
    GAppLaunchContextClass parent;
};
G_DEFINE_TYPE(StartupContext, startup_context, G_TYPE_APP_LAUNCH_CONTEXT)

char* startupId(GAppLaunchContext* context, GAppInfo*, GList*) {
    return g_strdup(static_cast<const char*>(g_object_get_data(G_OBJECT(context), startupIdKey)));
}

void startup_context_class_init(StartupContextClass* type) {
    type->parent.get_startup_notify_id = startupId;
}

void startup_context_init(StartupContext*) {}

GObjectPtr<GAppLaunchContext> makeContext(const QByteArray& id) {
    GObjectPtr<GAppLaunchContext> context(
        static_cast<GAppLaunchContext*>(g_object_new(startup_context_get_type(), nullptr)));
    if (!id.isEmpty()) {
        g_object_set_data_full(G_OBJECT(context.get()), startupIdKey, g_strdup(id.constData()),
                               g_free);
    }
    // Some programs take a Wayland token though their entry does not say so, and GIO would leave it
    // out. An id that this program was itself started with is spent, and must not reach another
    // one.
    for (const char* variable : {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"}) {
        if (id.isEmpty())
            g_app_launch_context_unsetenv(context.get(), variable);
        else
            g_app_launch_context_setenv(context.get(), variable, id.constData());
    }
    return context;
}

// GIO says nothing of why it does not take an entry.
Failure whyNot(const QByteArray& path) {
    const QString shown = QFile::decodeName(path);
    if (!QFileInfo::exists(shown))
        return {Failure::Kind::notFound, QStringLiteral("%1 does not exist").arg(shown)};
    const std::unique_ptr<GKeyFile, decltype(&g_key_file_free)> file(g_key_file_new(),
                                                                     &g_key_file_free);
    GError* error = nullptr;
    if (!g_key_file_load_from_file(file.get(), path.constData(), G_KEY_FILE_NONE, &error))
        return {Failure::Kind::malformed, QStringLiteral("%1: %2").arg(shown, takeMessage(error))};
    for (const char* key : {G_KEY_FILE_DESKTOP_KEY_TRY_EXEC, G_KEY_FILE_DESKTOP_KEY_EXEC}) {
        char* value = g_key_file_get_string(file.get(), G_KEY_FILE_DESKTOP_GROUP, key, nullptr);
        char** words = nullptr;
        const bool split = value && g_shell_parse_argv(value, nullptr, &words, nullptr);
        char* program = split ? g_find_program_in_path(words[0]) : nullptr;
        const QString missing = split && !program ? QString::fromUtf8(words[0]) : QString();
        g_free(program);
        g_strfreev(words);
        g_free(value);
        if (!missing.isEmpty())
            return {Failure::Kind::notFound,
                    QStringLiteral("%1: the program %2 is not installed").arg(shown, missing)};
    }
    return {Failure::Kind::malformed,
            QStringLiteral("%1 is not the desktop entry of an application").arg(shown)};
}

std::optional<QString> entryOf(GAppInfo* handler) {
    if (handler == nullptr || !G_IS_DESKTOP_APP_INFO(handler))
        return std::nullopt;
    const char* entry = g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(handler));
    if (entry == nullptr)
        return std::nullopt;
    return QFile::decodeName(entry);
}

void ownSession(gpointer) {
    ::setsid();
}

void notePid(GDesktopAppInfo*, GPid pid, gpointer launched) {
    static_cast<Launched*>(launched)->pid = pid;
}

Result<Launched> launchNow(const LaunchRequest& request) {
    const QByteArray path = QFile::encodeName(request.entryPath);
    const GObjectPtr<GDesktopAppInfo> info(g_desktop_app_info_new_from_filename(path.constData()));
    if (!info)
        return whyNot(path);
    const GObjectPtr<GAppLaunchContext> context = makeContext(request.startupId);
    GList* uris = nullptr;
    for (const QString& file : request.files)
        uris = g_list_append(
            uris, g_filename_to_uri(QFile::encodeName(file).constData(), nullptr, nullptr));
    if (!request.url.isEmpty())
        uris = g_list_append(uris, g_strdup(request.url.toEncoded().constData()));
    const int nowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    Launched launched;
    GError* error = nullptr;
    const bool taken = g_desktop_app_info_launch_uris_as_manager_with_fds(
                           info.get(), uris, context.get(), G_SPAWN_SEARCH_PATH, ownSession,
                           nullptr, notePid, &launched, nowhere, nowhere, nowhere, &error) != 0;
    if (nowhere >= 0)
        ::close(nowhere);
    g_list_free_full(uris, g_free);
    if (!taken)
        return Failure{Failure::Kind::refused,
                       QStringLiteral("%1: %2").arg(request.entryPath, takeMessage(error))};
    return launched;
}

} // namespace

void ApplicationLauncher::launch(const LaunchRequest& request, Completion completion) {
    const auto result = std::make_shared<Result<Launched>>(Launched{});
    executor_.background([result, request] { *result = launchNow(request); },
                         [result, completion = std::move(completion)] { completion(*result); });
}

std::optional<QString> defaultApplicationFor(const QString& path) {
    const QByteArray encoded = QFile::encodeName(path);
    gboolean uncertain = FALSE;
    char* type = nullptr;
    if (QFileInfo(path).isDir())
        type = g_strdup("inode/directory");
    else
        type = g_content_type_guess(encoded.constData(), nullptr, 0, &uncertain);
    if (uncertain) {
        const GObjectPtr<GFile> file(g_file_new_for_path(encoded.constData()));
        const GObjectPtr<GFileInfo> info(
            g_file_query_info(file.get(), G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE,
                              G_FILE_QUERY_INFO_NONE, nullptr, nullptr));
        if (info) {
            g_free(type);
            type = g_strdup(g_file_info_get_content_type(info.get()));
        }
    }
    const GObjectPtr<GAppInfo> handler(type ? g_app_info_get_default_for_type(type, FALSE)
                                            : nullptr);
    g_free(type);
    return entryOf(handler.get());
}

std::optional<QString> defaultApplicationForScheme(const QString& scheme) {
    const GObjectPtr<GAppInfo> handler(
        g_app_info_get_default_for_uri_scheme(scheme.toLower().toUtf8().constData()));
    return entryOf(handler.get());
}

} // namespace skipnest::linuxdesktop
