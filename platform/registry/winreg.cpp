// The registry's functions: keys that programs hold open, over the hive loaded from the store.
#include "winreg.h"

#include <algorithm>
#include <map>
#include <optional>
#include <span>
#include <string>

#include "host/current.h"
#include "registry/registry.h"
#include "registry/text.h"

namespace {

using registry::Hive;
using registry::Key;
using registry::Value;

struct OpenKey
{
    std::u16string path;
    bool changed = false;
};

struct Registry
{
    Hive hive;
    std::string stored; ///< the text in the store; empty when there is none
    std::map<std::uint32_t, OpenKey> openKeys;
    std::uint32_t nextHandle = 1;
};

std::optional<Registry> loaded;

void load(Registry &target)
{
    host::Host &host = host::current();
    const std::optional<std::vector<std::byte>> bytes = host.loadStore();
    if (!bytes) {
        return;
    }
    if (const auto problem = registry::readText(*bytes, target.hive)) {
        host.report("registry.reg " + *problem + "; it is put aside as registry.reg.bad");
        host.setStoreAside(); // the host reports if that fails
        return;
    }
    target.stored.assign(reinterpret_cast<const char *>(bytes->data()), bytes->size());
}

Registry &theRegistry()
{
    if (!loaded) {
        load(loaded.emplace());
    }
    return *loaded;
}

/// After a failure `stored` stays as it was, so the next call tries again.
void save(Registry &source)
{
    std::string text = registry::writeText(source.hive);
    if (text != source.stored && host::current().saveStore(std::as_bytes(std::span(text)))) {
        source.stored = std::move(text);
    }
}

/// The opened key behind a handle, or null.
OpenKey *openKey(HKEY key)
{
    const auto found = theRegistry().openKeys.find(key.value);
    return found == theRegistry().openKeys.end() ? nullptr : &found->second;
}

std::u16string_view textOf(LPCWSTR text) { return text ? text : u""; }

/// A name must fit on one line of the store.
bool isName(std::u16string_view name)
{
    return name.find_first_of(u"\r\n") == std::u16string_view::npos;
}

/// The whole path of `path` below `key`; none when `key` is not open.
std::optional<std::u16string> wholePath(HKEY key, LPCWSTR path)
{
    const OpenKey *open = openKey(key);
    if (!open && key != HKEY_LOCAL_MACHINE) {
        return std::nullopt;
    }
    std::u16string whole = open ? open->path : u"HKEY_LOCAL_MACHINE";
    if (const std::u16string_view below = textOf(path); !below.empty()) {
        whole.append(u"\\").append(below);
    }
    return whole;
}

HKEY addOpenKey(std::u16string path, bool changed)
{
    Registry &registry = theRegistry();
    const HKEY handle{registry.nextHandle++};
    registry.openKeys.emplace(handle.value, OpenKey{std::move(path), changed});
    return handle;
}

bool exists(const std::u16string &path)
{
    Hive &hive = theRegistry().hive;
    return hive.find(path) || hive.holdsAny(path + u'\\');
}

} // namespace

void registry::reset() { loaded.reset(); }

LONG RegCreateKeyExW(HKEY key, LPCWSTR path, DWORD, LPWSTR, DWORD, DWORD, SECURITY_ATTRIBUTES *,
                     HKEY *result, DWORD *disposition)
{
    std::optional<std::u16string> whole = wholePath(key, path);
    if (!whole) {
        return ERROR_INVALID_HANDLE;
    }
    if (!result || !isName(*whole)) {
        return ERROR_INVALID_PARAMETER;
    }
    const bool isNew = !exists(*whole);
    if (isNew) {
        theRegistry().hive.obtain(*whole);
    }
    if (disposition) {
        *disposition = isNew ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
    }
    *result = addOpenKey(std::move(*whole), isNew);
    return ERROR_SUCCESS;
}

LONG RegOpenKeyExW(HKEY key, LPCWSTR path, DWORD, DWORD, HKEY *result)
{
    std::optional<std::u16string> whole = wholePath(key, path);
    if (!whole) {
        return ERROR_INVALID_HANDLE;
    }
    if (!result) {
        return ERROR_INVALID_PARAMETER;
    }
    if (!exists(*whole)) {
        return ERROR_FILE_NOT_FOUND;
    }
    *result = addOpenKey(std::move(*whole), false);
    return ERROR_SUCCESS;
}

LONG RegCloseKey(HKEY key)
{
    const OpenKey *open = openKey(key);
    if (!open) {
        return ERROR_INVALID_HANDLE;
    }
    if (open->changed) {
        save(theRegistry());
    }
    theRegistry().openKeys.erase(key.value);
    return ERROR_SUCCESS;
}

LONG RegQueryValueExW(HKEY key, LPCWSTR name, DWORD *, DWORD *type, BYTE *data, DWORD *size)
{
    const OpenKey *open = openKey(key);
    if (!open) {
        return ERROR_INVALID_HANDLE;
    }
    if (data && !size) {
        return ERROR_INVALID_PARAMETER;
    }
    Key *holder = theRegistry().hive.find(open->path);
    const Value *value = holder ? holder->values.find(textOf(name)) : nullptr;
    if (!value) {
        return ERROR_FILE_NOT_FOUND;
    }
    if (type) {
        *type = value->type;
    }
    if (!size) {
        return ERROR_SUCCESS;
    }
    const DWORD capacity = *size;
    *size = static_cast<DWORD>(value->data.size());
    if (!data) {
        return ERROR_SUCCESS;
    }
    if (value->data.size() > capacity) {
        return ERROR_MORE_DATA;
    }
    std::copy(value->data.begin(), value->data.end(), data);
    return ERROR_SUCCESS;
}

LONG RegSetValueExW(HKEY key, LPCWSTR name, DWORD, DWORD type, const BYTE *data, DWORD size)
{
    OpenKey *open = openKey(key);
    if (!open) {
        return ERROR_INVALID_HANDLE;
    }
    if ((!data && size > 0) || !isName(textOf(name))) {
        return ERROR_INVALID_PARAMETER;
    }
    Value &value = theRegistry().hive.obtain(open->path).values.obtain(textOf(name));
    value.type = type;
    value.data.assign(data, data + size);
    open->changed = true;
    return ERROR_SUCCESS;
}

LONG RegDeleteValueW(HKEY key, LPCWSTR name)
{
    OpenKey *open = openKey(key);
    if (!open) {
        return ERROR_INVALID_HANDLE;
    }
    Key *holder = theRegistry().hive.find(open->path);
    if (!holder || !holder->values.erase(textOf(name))) {
        return ERROR_FILE_NOT_FOUND;
    }
    open->changed = true;
    return ERROR_SUCCESS;
}
