#include "windows/registration.h"

#include <windows.h>

#include <shlobj.h>

#include <string>

namespace windows {

namespace {

std::wstring const classes = L"Software\\Classes\\";
std::wstring const ending = classes + L".krt";
std::wstring const kind = L"Kehystin.Card";
std::wstring const kindKey = classes + kind;
/// Of the ending: whom "Open with" offers.
std::wstring const offeredKey = ending + L"\\OpenWithProgids";
/// Of the kind: the other that opened cards before.
constexpr wchar_t before[] = L"Before";

bool put(std::wstring const& key, wchar_t const* name, std::wstring const& text) {
    auto const bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), name, REG_SZ, text.c_str(), bytes) ==
           ERROR_SUCCESS;
}

std::wstring textOf(std::wstring const& key, wchar_t const* name = nullptr) {
    wchar_t text[1024] = {};
    DWORD bytes = sizeof text;
    RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &bytes);
    return text;
}

bool remove(std::wstring const& key) {
    auto const result = RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str());
    return result == ERROR_SUCCESS || result == ERROR_FILE_NOT_FOUND;
}

bool removeIfEmpty(std::wstring const& name) {
    DWORD values = 1;
    DWORD keys = 1;
    HKEY key = nullptr;
    auto const opened = RegOpenKeyExW(HKEY_CURRENT_USER, name.c_str(), 0, KEY_READ, &key);
    if (opened != ERROR_SUCCESS)
        return opened == ERROR_FILE_NOT_FOUND;
    RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                     nullptr, nullptr, nullptr);
    RegCloseKey(key);
    return keys != 0 || values != 0 || remove(name);
}

/// Cards are opened by who opened them before.
bool giveBack() {
    auto const other = textOf(kindKey, before);
    if (!other.empty())
        return put(ending, nullptr, other);
    RegDeleteKeyValueW(HKEY_CURRENT_USER, ending.c_str(), nullptr);
    return true;
}

/// What others have said of cards stays.
bool offerNoMore() {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, offeredKey.c_str(), kind.c_str());
    return removeIfEmpty(offeredKey) && removeIfEmpty(ending);
}

std::wstring ownPath() {
    std::wstring path(32768, L'\0'); // as long as any path can be
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

int told(bool done) {
    SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
    return done ? 0 : 1;
}

} // namespace

int registerCards() {
    auto const program = L"\"" + ownPath() + L"\"";
    auto const other = textOf(ending);
    if (other.empty()) // who was there at another registration has gone
        RegDeleteKeyValueW(HKEY_CURRENT_USER, kindKey.c_str(), before);
    bool const kept = other.empty() || other == kind || put(kindKey, before, other);
    return told(kept && put(kindKey, nullptr, L"Korttimalli") &&
                put(kindKey + L"\\DefaultIcon", nullptr, program + L",0") &&
                put(kindKey + L"\\shell\\open\\command", nullptr, program + L" -- \"%1\"") &&
                put(offeredKey, kind.c_str(), {}) && put(ending, nullptr, kind));
}

int unregisterCards() {
    // Who opens the files by now may be another program.
    bool const ours = textOf(ending) == kind;
    return told((!ours || giveBack()) && offerNoMore() && remove(kindKey));
}

} // namespace windows
