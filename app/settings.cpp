// Writes the record to the registry and reads it back.
#include "app/settings.h"

#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "app/settings_check.h"
#include "resources/module.h"
#include "resources/resource.h"

namespace {

/// Goes up when the layout of the record changes.
constexpr DWORD formatNumber = 3;
constexpr LPCWSTR appValue = u"app";
constexpr LPCWSTR versionValue = u"version";
constexpr LPCWSTR rejectedValue = u"app.rejected";

DWORD readVersion(HKEY key)
{
    DWORD version = 0;
    DWORD size = sizeof version;
    RegQueryValueExW(key, versionValue, nullptr, nullptr, reinterpret_cast<BYTE *>(&version),
                     &size);
    return version;
}

/// A value's bytes, however many; nothing when there is no such value.
std::optional<std::vector<BYTE>> readBytes(HKEY key, LPCWSTR name)
{
    DWORD size = 0;
    if (RegQueryValueExW(key, name, nullptr, nullptr, nullptr, &size) != ERROR_SUCCESS) {
        return {};
    }
    std::vector<BYTE> bytes(size);
    if (RegQueryValueExW(key, name, nullptr, nullptr, bytes.data(), &size) != ERROR_SUCCESS) {
        return {};
    }
    return bytes;
}

/// Copies stored bytes to `app`, or returns why they cannot be used.
std::optional<std::string> takeBytes(AppRecord &app, const std::vector<BYTE> &bytes, DWORD version)
{
    if (version != formatNumber) {
        return "its version is " + std::to_string(version) + ", not " +
               std::to_string(formatNumber);
    }
    if (bytes.size() != sizeof(AppRecord)) {
        return "it has " + std::to_string(bytes.size()) + " bytes, not " +
               std::to_string(sizeof(AppRecord));
    }
    AppRecord stored = app;
    std::memcpy(&stored, bytes.data(), sizeof stored);
    std::optional<std::string> fault = findFault(stored);
    if (!fault) {
        app = stored;
    }
    return fault;
}

void writeBytes(HKEY key, LPCWSTR name, const std::vector<BYTE> &bytes)
{
    RegSetValueExW(key, name, 0, REG_BINARY, bytes.data(), static_cast<DWORD>(bytes.size()));
}

/// Keeps a rejected record as "app.rejected". Another one that is there already is renamed: it gets
/// the first free number.
void keepRejected(HKEY key, const std::vector<BYTE> &bytes, const std::string &reason)
{
    const auto before = readBytes(key, rejectedValue);
    if (before && *before != bytes) {
        std::u16string name;
        int number = 0;
        WCHAR digits[33];
        do {
            name = std::u16string(rejectedValue) + u'.' + _itow(++number, digits, 10);
        } while (readBytes(key, name.c_str()));
        writeBytes(key, name.c_str(), *before);
    }
    writeBytes(key, rejectedValue, bytes);
    std::fprintf(stderr,
                 "glimra: the stored game is not used (%s); it is kept under the name "
                 "app.rejected\n",
                 reason.c_str());
}

} // namespace

bool saveSettings(const AppRecord &app)
{
    const std::u16string path = loadText(IDS_REGISTRY_KEY);
    HKEY key{};
    DWORD disposition = 0;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, 0, nullptr, &key,
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

bool loadSettings(AppRecord &app)
{
    const std::u16string path = loadText(IDS_REGISTRY_KEY);
    HKEY key{};
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) {
        return false;
    }
    bool loaded = false;
    if (const std::optional<std::vector<BYTE>> bytes = readBytes(key, appValue)) {
        const std::optional<std::string> reason = takeBytes(app, *bytes, readVersion(key));
        loaded = !reason;
        if (reason) {
            keepRejected(key, *bytes, *reason);
        }
    }
    RegCloseKey(key);
    return loaded;
}
