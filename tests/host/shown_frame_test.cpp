// What of a frame is drawn again.
#include <gtest/gtest.h>

#include "host/shown_frame.h"

namespace {

using host::Area;

struct Shown : testing::Test
{
    std::vector<host::Pixel> pixels = std::vector<host::Pixel>(240 * 320);
    host::ShownFrame shown;

    Area update(const Area &changed, int width = 240)
    {
        return shown.update({pixels.data(), width, 240 * 320 / width}, changed);
    }
};

void expectArea(const Area &area, const Area &wanted)
{
    EXPECT_EQ(area.left, wanted.left);
    EXPECT_EQ(area.top, wanted.top);
    EXPECT_EQ(area.right, wanted.right);
    EXPECT_EQ(area.bottom, wanted.bottom);
}

TEST_F(Shown, KnowsWhatDiffers)
{
    const Area all{0, 0, 240, 320};
    expectArea(update({10, 10, 20, 20}), all);
    expectArea(update(all), {});
    pixels[7 * 240 + 5] = 1;
    pixels[9 * 240 + 239] = 1;
    expectArea(update({0, 0, 240, 9}), {4, 7, 8, 8});
    expectArea(update(all), {236, 9, 240, 10});
    pixels[0] = 1;
    pixels[319 * 240 + 4] = 1;
    expectArea(update(all), {0, 0, 8, 320});
    expectArea(update(all), {});
}

TEST_F(Shown, KnowsNothingOfATurnedScreen)
{
    update({});
    expectArea(update({}, 320), {0, 0, 320, 240});
    expectArea(update({0, 0, 320, 240}, 320), {});
}

} // namespace
