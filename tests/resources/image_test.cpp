// Resources found in an image, whole or damaged.
#include <gtest/gtest.h>

#include "resources/image.h"
#include "support/fake_host.h"

TEST(Resources, AreFoundByNumberAndName)
{
    SwitchedOn handheld(testResources());
    const HRSRC wave = FindResourceW({}, MAKEINTRESOURCEW(114), u"wave");
    EXPECT_EQ(SizeofResource({}, wave), 6U);
    EXPECT_EQ(static_cast<const std::uint16_t *>(LoadResource({}, wave))[2], 3);
    EXPECT_TRUE(FindResourceW({}, u"LOGO", RT_BITMAP));
    EXPECT_FALSE(FindResourceW({}, MAKEINTRESOURCEW(108), RT_BITMAP));
    EXPECT_FALSE(FindResourceW({}, u"107", RT_BITMAP));
    EXPECT_FALSE(FindResourceW({}, nullptr, nullptr));
    EXPECT_FALSE(FindResourceW(LoadLibraryW(u"coredll.dll"), u"LOGO", RT_BITMAP));
    for (const HRSRC none : {HRSRC{}, HRSRC{wave.value + 1}, HRSRC{1 << 30}}) {
        EXPECT_EQ(LoadResource({}, none), nullptr);
        EXPECT_EQ(SizeofResource({}, none), 0U);
    }
}

TEST(Resources, StringsAreCopiedAsFarAsTheyFit)
{
    SwitchedOn handheld(testResources());
    WCHAR buffer[8] = u"???????";
    EXPECT_EQ(LoadStringW({}, 40007, buffer, 8), 3);
    EXPECT_EQ(std::u16string(buffer), u"abc");
    EXPECT_EQ(LoadStringW({}, 40008, buffer, 2), 1);
    EXPECT_EQ(std::u16string(buffer), u"d");
    for (const UINT missing : {40009U, 40000U, 0U, 1U << 20U}) {
        buffer[0] = u'?';
        EXPECT_EQ(LoadStringW({}, missing, buffer, 8), 0);
        EXPECT_EQ(buffer[0], 0);
    }
}

TEST(Resources, OfADamagedImageNothingOutsideIsRead)
{
    const std::vector<std::byte> whole(testResources().begin(), testResources().end());
    const auto readAll = [](std::vector<std::byte> bytes) {
        bytes.shrink_to_fit(); // so that a sanitizer finds any read beyond the end
        SwitchedOn handheld(bytes);
        WCHAR buffer[300];
        std::size_t read = resources::find({0, u"WAVE"}, {114, {}}).size();
        for (const UINT id : {40007U, 40008U, 40015U}) {
            read += static_cast<std::size_t>(LoadStringW({}, id, buffer, 300));
        }
        return read + SizeofResource({}, FindResourceW({}, u"Logo", RT_BITMAP));
    };
    EXPECT_EQ(readAll(whole), 6U + 3 + 2 + 6);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        readAll({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)});
    }
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const int value : {0x00, 0x01, 0x7F, 0xFF}) {
            std::vector<std::byte> changed = whole;
            changed[at] = static_cast<std::byte>(value);
            EXPECT_LT(readAll(changed), whole.size());
        }
    }
}
