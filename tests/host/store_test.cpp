// The store on disk, and texts on their way to the host.
#include <cerrno>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "base/utf.h"
#include "host/store_file.h"

static std::deque<int> fsyncErrors; ///< what the next calls come to; then all of them work

/// In the place of the system's.
extern "C" int fsync(int)
{
    if (fsyncErrors.empty()) {
        return 0;
    }
    errno = fsyncErrors.front();
    fsyncErrors.pop_front();
    return errno == 0 ? 0 : -1;
}

namespace {

namespace fs = std::filesystem;

class StoreTest : public testing::Test
{
protected:
    StoreTest()
    {
        std::string name = fs::temp_directory_path() / "glimra-store-XXXXXX";
        folder = mkdtemp(name.data());
    }
    ~StoreTest() override { fs::remove_all(folder); }

    static std::span<const std::byte> bytes(std::string_view text)
    {
        return std::as_bytes(std::span(text));
    }
    std::string content(const std::string &name) const
    {
        std::ostringstream text;
        text << std::ifstream(folder / name).rdbuf();
        return text.str();
    }
    auto count() const { return std::distance(fs::directory_iterator(folder), {}); }

    fs::path folder;
};

TEST_F(StoreTest, MakesItsFolderAndReplacesItsFileAsAWhole)
{
    const fs::path deep = folder / "a" / "b";
    host::StoreFile store(deep);
    EXPECT_FALSE(store.makeFolder());
    const auto nothing = store.load();
    EXPECT_FALSE(nothing.value || nothing.problem);
    EXPECT_FALSE(store.save(bytes("first, and longer")));
    EXPECT_FALSE(store.save(bytes("second")));
    EXPECT_EQ(content("a/b/registry.reg"), "second");
    EXPECT_EQ(std::distance(fs::directory_iterator(deep), {}), 1) << "nothing else stays";
    EXPECT_EQ(store.load().value.value().size(), 6U);
    for (const fs::path &place : {deep / "registry.reg", deep / "registry.reg" / "below"}) {
        const auto problem = host::StoreFile(place).save(bytes("lost"));
        EXPECT_EQ(problem, place.string() + ": Not a directory");
    }
    fs::remove_all(folder / "a");
    EXPECT_FALSE(store.save(bytes("third"))) << "its folder is made again";
    EXPECT_EQ(content("a/b/registry.reg"), "third");
    for (const fs::path &made : {folder / "a", deep}) {
        EXPECT_EQ(fs::status(made).permissions(), fs::perms::owner_all);
    }
}

TEST_F(StoreTest, WhatIsSetAsideIsNeverLost)
{
    host::StoreFile store(folder);
    for (const char *text : {"one", "two", "three"}) {
        ASSERT_FALSE(store.save(bytes(text)));
        ASSERT_FALSE(store.setAside());
    }
    EXPECT_EQ(content("registry.reg.bad"), "three");
    EXPECT_EQ(content("registry.reg.bad.1"), "one");
    EXPECT_EQ(content("registry.reg.bad.2"), "two");
    EXPECT_TRUE(store.setAside()) << "there is nothing to set aside";
    EXPECT_TRUE(store.save(bytes("four"))) << "what could not be set aside is not replaced";
}

TEST_F(StoreTest, WhatIsNoFileToReadIsNamedAndNotReplaced)
{
    const fs::path file = folder / "registry.reg";
    const std::function<void()> kinds[] = {
        [&] { fs::create_directory(file); },
        [&] { mkfifo(file.c_str(), 0600); },
        [&] { std::ofstream(file) << std::string((1 << 20) + 1, ' '); },
        [&] { fs::create_symlink("/dev/zero", file); },
        [&] { fs::create_symlink("registry.reg", file); }, // leads to itself
    };
    for (const auto &make : kinds) {
        make();
        host::StoreFile store(folder);
        const std::string problem = store.load().problem.value_or("none");
        EXPECT_TRUE(problem.starts_with(file.string())) << problem;
        EXPECT_TRUE(store.save(bytes("new"))) << problem;
        EXPECT_EQ(count(), 1) << problem;
        fs::remove(file);
    }
}

TEST_F(StoreTest, ALinkStaysAndItsFileKeepsItsPermissions)
{
    fs::create_directory(folder / "files");
    fs::create_symlink("files/game", folder / "registry.reg");
    host::StoreFile store(folder);
    EXPECT_FALSE(store.save(bytes("one"))) << "the file may be missing";
    chmod((folder / "files/game").c_str(), 0604);
    EXPECT_FALSE(store.save(bytes("two")));
    EXPECT_EQ(content("files/game"), "two");
    EXPECT_EQ(fs::status(folder / "files/game").permissions(), fs::perms{0604});
    fs::create_symlink("game.bad", folder / "files/game.bad"); // leads to itself
    EXPECT_FALSE(store.setAside());
    EXPECT_EQ(content("files/game.bad"), "two");
    EXPECT_TRUE(fs::is_symlink(folder / "files/game.bad.1"));
    EXPECT_TRUE(fs::is_symlink(folder / "registry.reg"));
}

TEST_F(StoreTest, GoesOnWhereTheDiskCannotBeWaitedFor)
{
    host::StoreFile store(folder);
    for (const auto &[errors, works] : {std::pair(std::deque{EINTR, EINTR, 0, EINTR}, true),
                                        {{EINVAL, ENOSYS}, true},
                                        {{EIO}, false}})
    {
        fsyncErrors = errors;
        EXPECT_EQ(!store.save(bytes("text")), works);
        EXPECT_TRUE(fsyncErrors.empty());
    }
}

TEST(Text, ConvertsBothWaysAndSurvivesNonsense)
{
    const std::u16string text = u"Aé€😀";
    EXPECT_EQ(base::toUtf8(text), "A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(base::toUtf16(base::toUtf8(text)), text);
    EXPECT_EQ(base::toUtf8(u"\xD83D!\xDE00"), "\xEF\xBF\xBD!\xEF\xBF\xBD");
    for (const char *nonsense : {"\x80", "\xC3", "\xC0\xAF", "\xED\xA0\x80", "\xF8", "\xE2\x82"}) {
        EXPECT_EQ(base::toUtf16(nonsense).front(), u'\uFFFD') << nonsense;
    }
}

} // namespace
