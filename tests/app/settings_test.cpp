// Which stored blocks are taken, and what becomes of those that are not.
#include "app/settings.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "app/game_app.h"
#include "resources/program_resources.h"
#include "support/fake_host.h"

namespace {

constexpr LPCWSTR keyPath = u"Software\\Apps\\Orvendel Glimra";
using Bytes = std::vector<BYTE>;

Bytes stored(LPCWSTR name)
{
    HKEY key{};
    DWORD size = 0;
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, keyPath, 0, KEY_ALL_ACCESS, &key);
    RegQueryValueExW(key, name, nullptr, nullptr, nullptr, &size);
    Bytes bytes(size);
    RegQueryValueExW(key, name, nullptr, nullptr, bytes.data(), &size);
    RegCloseKey(key);
    return bytes;
}

void store(const Bytes &app, DWORD version)
{
    HKEY key{};
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, keyPath, 0, nullptr, 0, 0, nullptr, &key, nullptr);
    RegSetValueExW(key, u"app", 0, REG_BINARY, app.data(), static_cast<DWORD>(app.size()));
    RegSetValueExW(key, u"version", 0, REG_DWORD, reinterpret_cast<BYTE *>(&version), 4);
    RegCloseKey(key);
}

Bytes imageOf(const GameApp &app)
{
    const auto *bytes = reinterpret_cast<const BYTE *>(&app);
    return {bytes, bytes + sizeof app};
}

/// An app whose image can be stored and loaded.
GameApp goodApp()
{
    GameApp app;
    for (std::size_t i = 0; i < app.highScores.size(); ++i) {
        app.highScores[i].mode = static_cast<std::int32_t>(i);
    }
    return app;
}

/// An offset, and the value put there.
using Change = std::pair<std::size_t, std::int32_t>;

Bytes changed(const Change &change)
{
    Bytes image = imageOf(goodApp());
    std::memcpy(image.data() + change.first, &change.second, sizeof change.second);
    return image;
}

/// What is said when a stored block is refused, and kept under another name; "" if it is taken.
std::string refusal(const Bytes &block, DWORD version = 3)
{
    const SwitchedOn handheld(programResources());
    store(block, version);
    GameApp app;
    const Bytes before = imageOf(app);
    testing::internal::CaptureStderr();
    const bool taken = loadSettings(app);
    EXPECT_EQ(imageOf(app), taken ? block : before);
    EXPECT_EQ(stored(u"app.rejected"), taken ? Bytes{} : block);
    EXPECT_TRUE(saveSettings(goodApp())); // replaces it
    EXPECT_TRUE(loadSettings(app));
    return testing::internal::GetCapturedStderr();
}

TEST(Settings, RefuseWhatTheGameCannotWorkWith)
{
    const Change changes[] = {
        {16, 12},          {24, 0},     {32, 4},   {32, -1}, {36 + 386, 0x701}, {456, 8},
        {460, 19},         {464, 5000}, {472, 4},  {476, 7}, {480, -1},         {504, 17},
        {508, 7},          {572, 7},    {572, -2}, {576, 3}, {612, 3},          {620, -1},
        {624, 2000000000}, {640, 6},    {644, 10}, {648, 7}, {660, 0x10000},    {744, 1},
    };
    for (const Change &change : changes) {
        const std::string said = refusal(changed(change));
        EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << change.first;
    }
}

TEST(Settings, RefuseOtherSizesVersionsAndEndlessNames)
{
    const Bytes good = imageOf(goodApp());
    Bytes longer = good;
    longer.push_back(0);
    Bytes endless = good;
    std::fill_n(endless.begin() + 744 + 16, 24, BYTE{'x'});
    const std::pair<Bytes, std::string> cases[] = {{{good.begin(), good.end() - 1}, "2495 bytes"},
                                                   {longer, "2497 bytes"},
                                                   {{}, "0 bytes"},
                                                   {endless, "highScores[0].entries[0].name"}};
    for (const auto &[block, reason] : cases) {
        EXPECT_NE(refusal(block).find(reason), std::string::npos) << reason;
    }
    EXPECT_NE(refusal(good, 2).find("version is 2"), std::string::npos);
}

TEST(Settings, TakeWhatIsOddButPlayable)
{
    const Change changes[] = {{0, 77},   {4, 9},         {580, -5}, {604, 0},
                              {632, -1}, {640, 5},       {648, 3},  {652, 0x07050302},
                              {724, 99}, {732, -123456}, {460, -3}};
    for (const Change &change : changes) {
        EXPECT_EQ(refusal(changed(change)), "") << change.first;
    }
}

} // namespace
