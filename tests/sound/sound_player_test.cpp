// Which effects are loaded and played.
#include "sound/sound_player.h"

#include <gtest/gtest.h>

#include "support/fake_host.h"

TEST(SoundPlayer, SkipsAnEffectWithoutSamples)
{
    enum Resource
    {
        Nothing = 1,
        HeaderOnly,
        Effect,
        Missing
    };
    SwitchedOn handheld(testResources());
    SoundPlayer player;
    EXPECT_EQ(player.open(), MMSYSERR_NOERROR);
    for (const Resource resource : {Nothing, HeaderOnly, Effect}) {
        EXPECT_TRUE(player.load(resource, resource)) << resource;
    }
    EXPECT_FALSE(player.load(Missing, Missing));
    EXPECT_FALSE(player.load(SoundPlayer::slotCount, Effect));

    EXPECT_TRUE(player.play(Effect));
    for (const int slot : {-1, 0, +Nothing, +HeaderOnly, +Missing, +SoundPlayer::slotCount}) {
        EXPECT_FALSE(player.play(slot)) << slot;
    }
    EXPECT_EQ(handheld.host.queued, (std::vector<std::uint8_t>{0x80, 0x90})); // not cut off
}
