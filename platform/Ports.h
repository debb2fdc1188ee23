// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"

namespace skipnest::platform {

class Accessibility;
class Alerts;
class ApplicationControl;
class Bookmarks;
class BrowserExtensions;
class ContactStore;
class CrashCapture;
class DesktopShortcuts;
class Diagnostics;
class DistributedNotifications;
class Executor;
class FileIndex;
class Files;
class HotkeyBackend;
class HttpClient;
class IconSource;
class InstanceLock;
class KeyboardCapture;
class KeyboardLayout;
class KeyEvents;
class LanguageModel;
class LoginItem;
class PanelHost;
class PeerCredentials;
class PointerEvents;
class ProcessLauncher;
class Scheduler;
class ScreenCapture;
class Screens;
class ScriptRunner;
class ServicesMenu;
class StatusItem;
class UserDefaults;
class WallClock;
class Workspace;

// Everything the core may ask of the machine it runs on. A backend owns the objects and outlives
// whoever uses them. None is ever missing: a port that can do nothing says so by availability().
struct Ports {
    AppInfo app;
    Scheduler& scheduler;
    Executor& executor;
    WallClock& wallClock;
    Diagnostics& diagnostics;
    HotkeyBackend& hotkeys;
    KeyboardLayout& keyboardLayout;
    KeyEvents& keyEvents;
    Workspace& workspace;
    ApplicationControl& applications;
    ScriptRunner& scripts;
    Bookmarks& bookmarks;
    Files& files;
    UserDefaults& defaults;
    Alerts& alerts;
    InstanceLock& instances;
    PeerCredentials& peers;
    KeyboardCapture& keyboardCapture;
    DesktopShortcuts& desktopShortcuts;
    FileIndex& fileIndex;
    IconSource& icons;
    StatusItem& statusItem;
    Screens& screens;
    PanelHost& panels;
    LoginItem& loginItem;
    ServicesMenu& servicesMenu;
    ProcessLauncher& processes;
    DistributedNotifications& distributedNotifications;
    HttpClient& http;
    CrashCapture& crashCapture;
    Accessibility& accessibility;
    ScreenCapture& screenCapture;
    PointerEvents& pointer;
    BrowserExtensions& browserExtensions;
    LanguageModel& languageModel;
    ContactStore& contacts;
};

} // namespace skipnest::platform
