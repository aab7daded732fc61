// Who opens cards at a double click, and who does again when that has been taken back.
#include "windows/registration.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include <windows.h>

namespace windows {

namespace {

std::wstring const ending = L".krt";
std::wstring const kind = L"Kehystin.Card";
std::wstring const offered = ending + L"\\OpenWithProgids";

std::wstring key_of(std::wstring const& name) {
    return L"Software\\Classes\\" + name;
}

std::optional<std::wstring> text_of(std::wstring const& name, wchar_t const* value = nullptr) {
    wchar_t text[1024] = {};
    DWORD size = sizeof text;
    auto const result = ::RegGetValueW(HKEY_CURRENT_USER, key_of(name).c_str(), value,
                                       RRF_RT_REG_SZ, nullptr, text, &size);
    return result == ERROR_SUCCESS ? std::optional<std::wstring>(text) : std::nullopt;
}

/// Another program takes cards.
void put(std::wstring const& program, wchar_t const* value = nullptr,
         std::wstring const& name = ending) {
    ::RegSetKeyValueW(HKEY_CURRENT_USER, key_of(name).c_str(), value, REG_SZ, program.c_str(),
                      static_cast<DWORD>((program.size() + 1) * sizeof(wchar_t)));
}

bool is_known(std::wstring const& name) {
    HKEY key = nullptr;
    bool const found =
        ::RegOpenKeyExW(HKEY_CURRENT_USER, key_of(name).c_str(), 0, KEY_READ, &key) == 0;
    ::RegCloseKey(key);
    return found;
}

} // namespace

/// On a machine of the tests' own.
class Registration : public testing::Test {
  protected:
    void SetUp() override { forget(); }
    void TearDown() override { forget(); }

    static void forget() {
        for (auto const& name : {ending, kind})
            ::RegDeleteTreeW(HKEY_CURRENT_USER, key_of(name).c_str());
    }
};

TEST_F(Registration, ACardIsOpenedByThisProgramAsAName) {
    for (int i = 0; i < 2; ++i) {
        ASSERT_EQ(registerCards(), 0);
        EXPECT_EQ(text_of(ending), kind);
        auto const command = text_of(kind + L"\\shell\\open\\command").value_or(L"");
        EXPECT_TRUE(command.starts_with(L'"'));
        EXPECT_TRUE(command.ends_with(L"kehystin_unit_tests.exe\" -- \"%1\""));
    }
    EXPECT_EQ(unregisterCards(), 0);
    EXPECT_FALSE(is_known(ending));
    EXPECT_FALSE(is_known(kind));
    EXPECT_EQ(unregisterCards(), 0);
}

TEST_F(Registration, WhoOpenedCardsBeforeDoesSoAgain) {
    put(L"Toinen");
    put(L"text/plain", L"Content Type");
    for (int i = 0; i < 2; ++i)
        ASSERT_EQ(registerCards(), 0);
    EXPECT_EQ(text_of(ending), kind);
    EXPECT_EQ(text_of(offered, kind.c_str()), L"");
    EXPECT_EQ(unregisterCards(), 0);
    EXPECT_FALSE(is_known(offered));
    EXPECT_EQ(text_of(ending), L"Toinen");
    EXPECT_EQ(text_of(ending, L"Content Type"), L"text/plain");
    EXPECT_FALSE(is_known(kind));
}

TEST_F(Registration, WhoHasTakenCardsSinceKeepsThem) {
    ASSERT_EQ(registerCards(), 0);
    put(L"Kolmas");
    put(L"", L"Kolmas", offered);
    EXPECT_EQ(unregisterCards(), 0);
    EXPECT_EQ(text_of(ending), L"Kolmas");
    EXPECT_EQ(text_of(offered, L"Kolmas"), L"");
    EXPECT_EQ(text_of(offered, kind.c_str()), std::nullopt);
    EXPECT_FALSE(is_known(kind));
}

TEST_F(Registration, WhoHasGoneMeanwhileDoesNotComeBack) {
    put(L"Toinen");
    ASSERT_EQ(registerCards(), 0);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, key_of(ending).c_str());
    ASSERT_EQ(registerCards(), 0);
    EXPECT_EQ(unregisterCards(), 0);
    EXPECT_FALSE(is_known(ending));
}

} // namespace windows
