// Writes the GameApp to the registry and reads it back. What it cannot use it keeps beside.
#include "app/settings.h"

#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "app/game_app.h"
#include "app/settings_check.h"
#include "app/window.h"
#include "resources/resource.h"

namespace {

/// Goes up when the layout of the record changes.
constexpr DWORD formatNumber = 3;
constexpr LPCWSTR appValue = u"app";
constexpr LPCWSTR versionValue = u"version";
constexpr LPCWSTR rejectedValue = u"app.rejected";

struct KeyPath
{
    WCHAR text[256];

    KeyPath() { LoadStringW(moduleInstance, IDS_REGISTRY_KEY, text, 256); }
};

DWORD readVersion(HKEY key)
{
    DWORD version = 0;
    DWORD size = sizeof version;
    RegQueryValueExW(key, versionValue, nullptr, nullptr, reinterpret_cast<BYTE *>(&version),
                     &size);
    return version;
}

/// The stored bytes, whatever their number; nothing when there is no such value.
std::optional<std::vector<BYTE>> readApp(HKEY key)
{
    DWORD size = 0;
    if (RegQueryValueExW(key, appValue, nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS) {
        return {};
    }
    std::vector<BYTE> bytes(size);
    if (RegQueryValueExW(key, appValue, nullptr, nullptr, bytes.data(), &size) != ERROR_SUCCESS) {
        return {};
    }
    return bytes;
}

/// Why stored bytes cannot be used; nothing when they can, and then `app` has them.
std::optional<std::string> takeBytes(GameApp &app, const std::vector<BYTE> &bytes, DWORD version)
{
    if (version != formatNumber) {
        return "its version is " + std::to_string(version) + ", not " +
               std::to_string(formatNumber);
    }
    if (bytes.size() != sizeof(GameApp)) {
        return "it has " + std::to_string(bytes.size()) + " bytes, not " +
               std::to_string(sizeof(GameApp));
    }
    GameApp stored = app;
    std::memcpy(&stored, bytes.data(), sizeof stored);
    std::optional<std::string> fault = findFault(stored);
    if (!fault) {
        app = stored;
    }
    return fault;
}

void keepRejected(HKEY key, const std::vector<BYTE> &bytes, const std::string &reason)
{
    RegSetValueExW(key, rejectedValue, 0, REG_BINARY, bytes.data(),
                   static_cast<DWORD>(bytes.size()));
    std::fprintf(stderr,
                 "glimra: the stored game is not used (%s); it is kept under the name "
                 "app.rejected\n",
                 reason.c_str());
}

} // namespace

bool saveSettings(const GameApp &app)
{
    const KeyPath path;
    HKEY key{};
    DWORD disposition = 0;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.text, 0, nullptr, 0, 0, nullptr, &key,
                        &disposition) != ERROR_SUCCESS)
    {
        return false;
    }
    const DWORD version = formatNumber;
    RegDeleteValueW(key, appValue);
    RegSetValueExW(key, appValue, 0, REG_BINARY, reinterpret_cast<const BYTE *>(&app), sizeof app);
    RegSetValueExW(key, versionValue, 0, REG_DWORD, reinterpret_cast<const BYTE *>(&version),
                   sizeof version);
    RegCloseKey(key);
    return true;
}

bool loadSettings(GameApp &app)
{
    const KeyPath path;
    HKEY key{};
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.text, 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) {
        return false;
    }
    bool loaded = false;
    if (const std::optional<std::vector<BYTE>> bytes = readApp(key)) {
        const std::optional<std::string> reason = takeBytes(app, *bytes, readVersion(key));
        loaded = !reason;
        if (reason) {
            keepRejected(key, *bytes, *reason);
        }
    }
    RegCloseKey(key);
    return loaded;
}
