// The registry: saved values, files of other editors, damaged files.
#include <gtest/gtest.h>

#include <numeric>

#include "support/fake_host.h"
#include "winreg.h"

namespace {

const std::string header = "Windows Registry Editor Version 5.00\n";
constexpr LPCWSTR gamePath = u"Software\\Apps\\Game";

struct RegistryTest : testing::Test
{
    /// Switches the handheld on with this file as its store.
    void restart(std::string_view file)
    {
        const auto bytes = std::as_bytes(std::span(file));
        handheld_.emplace().host.store.emplace(bytes.begin(), bytes.end());
    }
    FakeHost &host() { return handheld_->host; }
    std::string file()
    {
        const std::vector<std::byte> &bytes = host().store.value();
        return {reinterpret_cast<const char *>(bytes.data()), bytes.size()};
    }

    HKEY create(LPCWSTR path)
    {
        HKEY key{};
        RegCreateKeyExW(HKEY_LOCAL_MACHINE, path, 0, nullptr, 0, 0, nullptr, &key, nullptr);
        return key;
    }

    /// A value as "TYPE:bytes in hex", or "none".
    static std::string value(LPCWSTR path, LPCWSTR name)
    {
        HKEY key{};
        DWORD type = 0;
        DWORD size = 0;
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path, 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) {
            return "no key";
        }
        std::string text = "none";
        if (RegQueryValueExW(key, name, nullptr, &type, nullptr, &size) == ERROR_SUCCESS) {
            std::vector<BYTE> data(size);
            EXPECT_EQ(RegQueryValueExW(key, name, nullptr, &type, data.data(), &size),
                      ERROR_SUCCESS);
            text = std::to_string(type) + ":";
            for (const BYTE byte : data) {
                text += {"0123456789abcdef"[byte >> 4U], "0123456789abcdef"[byte & 15U]};
            }
        }
        EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
        return text;
    }

    std::optional<SwitchedOn> handheld_ = std::make_optional<SwitchedOn>();
};

TEST_F(RegistryTest, SavesAKeyWhenItIsClosedAndOnlyIfSomethingChanged)
{
    std::vector<BYTE> block(60);
    std::iota(block.begin(), block.end(), BYTE{0});
    const DWORD version = 3;
    const auto save = [&] {
        const HKEY key = create(gamePath);
        RegDeleteValueW(key, u"app");
        RegSetValueExW(key, u"app", 0, REG_BINARY, block.data(), 60);
        RegDeleteValueW(key, u"version");
        RegSetValueExW(key, u"version", 0, REG_DWORD, reinterpret_cast<const BYTE *>(&version), 4);
        const int before = host().saves;
        RegCloseKey(key);
        return host().saves - before;
    };
    EXPECT_EQ(value(gamePath, u"app"), "no key");
    EXPECT_EQ(save(), 1);
    EXPECT_EQ(
        file(),
        header +
            "\n[HKEY_LOCAL_MACHINE\\Software]\n"
            "\n[HKEY_LOCAL_MACHINE\\Software\\Apps]\n"
            "\n[HKEY_LOCAL_MACHINE\\Software\\Apps\\Game]\n"
            "\"app\"=hex:00,01,02,03,04,05,06,07,08,09,0a,0b,0c,0d,0e,0f,10,11,12,13,14,15,16,\\\n"
            "  17,18,19,1a,1b,1c,1d,1e,1f,20,21,22,23,24,25,26,27,28,29,2a,2b,2c,2d,2e,2f,\\\n"
            "  30,31,32,33,34,35,36,37,38,39,3a,3b\n"
            "\"version\"=dword:00000003\n");
    EXPECT_EQ(save(), 0); // the same again
    restart(file());
    EXPECT_EQ(save(), 0);
    EXPECT_EQ(value(u"SOFTWARE\\apps\\game", u"VERSION"), "4:03000000");
    EXPECT_EQ(value(u"Software", u""), "none"); // it has no values, only keys below it
    block[0] = 9;
    host().storeFails = true;
    EXPECT_EQ(save(), 0);
    EXPECT_EQ(value(gamePath, u"app").substr(0, 6), "3:0901");
    host().storeFails = false;
    EXPECT_EQ(save(), 1); // saves what could not be saved before
}

TEST_F(RegistryTest, QueriesReportTheSizeAndRefuseASmallBuffer)
{
    const HKEY key = create(gamePath);
    const BYTE data[] = {1, 2, 3};
    EXPECT_EQ(RegSetValueExW(key, nullptr, 0, 77, data, 3), ERROR_SUCCESS);
    EXPECT_EQ(RegSetValueExW(key, u"two\nlines", 0, 77, data, 3), ERROR_INVALID_PARAMETER);
    BYTE buffer[4] = {};
    DWORD size = 2;
    EXPECT_EQ(RegQueryValueExW(key, u"", nullptr, nullptr, buffer, &size), ERROR_MORE_DATA);
    EXPECT_EQ(size, 3U);
    EXPECT_EQ(buffer[0], 0);
    EXPECT_EQ(RegQueryValueExW(key, u"other", nullptr, nullptr, buffer, &size),
              ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegDeleteValueW(key, u"other"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegDeleteValueW(key, u""), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegQueryValueExW(key, u"", nullptr, nullptr, buffer, &size), ERROR_INVALID_HANDLE);
}

TEST_F(RegistryTest, KeepsWhatOtherEditorsWrote)
{
    const std::string whole = header + "\n[HKEY_USERS\\Other]\n"
                                       "@=\"\xC3\xA9 \xF0\x9F\x98\x80 \\\"quoted\\\" \\\\ back\"\n"
                                       "\"a\\\\b\\\"c\"=hex(7):61,00,00,00,00,00\n"
                                       "\"odd text\"=hex(1):61\n"
                                       "\"odder text\"=hex(1):61,00,00\n"
                                       "\"no text\"=hex(1):\n"
                                       "\"two lines\"=hex(1):61,00,0a,00,00,00\n"
                                       "\"no end\"=hex(1):61,00,0a,00\n"
                                       "\"empty\"=hex:\n"
                                       "\"as long as a number\"=hex:01,02,03,04\n"
                                       "\"odd number\"=hex(4):01,02,03\n"
                                       "\"type\"=hex(80000000):ff\n"
                                       "\n[HKEY_LOCAL_MACHINE\\k]\n"
                                       "\"n\"=dword:89abcdef\n";
    // With the byte-order mark and line ends of an export, in either encoding, it is the same.
    std::string crlf;
    std::string wide = "\xFF\xFE";
    std::string bigEndian = "\xFE\xFF";
    const std::u16string_view name = u"\r\n[HKEY_LOCAL_MACHINE\\k]\r\n\"\u0142\"=\"x\"\r\n";
    for (const char c : whole) {
        crlf += c == '\n' ? "\r\n" : std::string(1, c);
    }
    for (const char16_t c : u"Windows Registry Editor Version 5.00\r\n" + std::u16string(name)) {
        wide += {static_cast<char>(c & 0xFFU), static_cast<char>(c >> 8U)};
        bigEndian += {static_cast<char>(c >> 8U), static_cast<char>(c & 0xFFU)};
    }
    for (const std::string &text : {whole, "\xEF\xBB\xBF" + crlf}) {
        restart(text);
        RegCloseKey(create(u"k\\new"));
        EXPECT_EQ(file(), whole + "\n[HKEY_LOCAL_MACHINE\\k\\new]\n");
    }
    restart(header + "[k\\b\\c]\n[K\\B]\n@=\"x\"\n");
    RegCloseKey(create(u"l"));
    EXPECT_EQ(file(), header + "\n[K\\B]\n@=\"x\"\n\n[k\\b\\c]\n\n[HKEY_LOCAL_MACHINE\\l]\n")
        << "what is above a key comes before it";
    for (const std::string &text : {wide, bigEndian}) {
        restart(text);
        EXPECT_EQ(value(u"k", u"\u0142"), "1:78000000");
    }
    EXPECT_TRUE(host().reports.empty());
}

TEST_F(RegistryTest, ReadsAsAnImporterDoes)
{
    restart(R"(; a comment

REGEDIT4
; a comment
[HKEY_LOCAL_MACHINE\]
[HKEY_LOCAL_MACHINE\k] ; a note [1]
"n"=dword:1
"N"= hex(2):61,0 ; texts are bytes here
"gone"="x"
"gone"=-
"wrapped"=HEX:\
 1,\ ; the first
; another
	2,\
; the last
	3,
"number"=DWORD:0A
[HKEY_LOCAL_MACHINE\]k]
[HKEY_LOCAL_MACHINE\k\below]
@="x"
[HKEY_LOCAL_MACHINE\kk]
[-hkey_local_machine\K\below]
@="y")");
    for (const auto &[key, name, expected] : {std::tuple(u"k", u"n", "2:61000000"),
                                              {u"k", u"gone", "none"},
                                              {u"k", u"wrapped", "3:010203"},
                                              {u"k", u"number", "4:0a000000"},
                                              {u"]k", u"", "none"},
                                              {u"k\\below", u"", "no key"},
                                              {u"kk", u"", "none"}})
    {
        EXPECT_EQ(value(key, name), expected);
    }
    EXPECT_TRUE(host().reports.empty());
}

TEST_F(RegistryTest, SetsADamagedFileAsideAndReportsTheLine)
{
    const std::tuple<int, std::string, std::vector<std::string>> damages[] = {
        {1, "", {"", "Windows Registry Editor Version 6.00\n", "\xFF\xFEW"}},
        {2,
         header,
         {"\xC3(", "\"a\"=hex:00\n", "[HKEY_LOCAL_MACHINE\\k\n", "[-]\n", "[k] rubbish\n"}},
        {3,
         header + "[k]\n",
         {"rubbish\n", "\"a=1\n\"b\"=\"2\"\n", "\"a\"=\"1\n\n", "\"a\"=\"\\n\"\n", "\"a\"\n",
          "\"a\"=1\n", "\"a\"=dword:123456789\n", "\"a\"=dword:\n", "\"a\"=hex(g):00\n",
          "\"a\"=hex(123456789):00\n", "\"a\"=hex 00\n", "\"a\"=hex:000\n", "\"a\"=hex:00,01,",
          "\"a\"=hex:00,\\", "\"a\"=hex:00,\\ 01\n", "\"a\"=\"x\" \"y\"\n"}},
        {4, header + "[k]\n", {"\"a\"=hex:00,\\\n  01,zz\n", "\"a\"=hex:00,\\\n; x"}},
    };
    for (const auto &[line, before, texts] : damages) {
        for (const std::string &text : texts) {
            restart(before + text);
            EXPECT_EQ(value(u"k", u"a"), "no key") << text;
            EXPECT_TRUE(host().setAside && !host().store) << text;
            const std::string start = "registry.reg line " + std::to_string(line) + ": ";
            EXPECT_EQ(host().reports.size(), 1U) << text;
            EXPECT_TRUE(host().reports.at(0).starts_with(start)) << text;
        }
    }
}

} // namespace
