// Sound output: what reaches the loudspeaker, and when a buffer is done.
#include <gtest/gtest.h>

#include "mmsystem.h"
#include "support/fake_host.h"

namespace {

constexpr WAVEFORMATEX format{WAVE_FORMAT_PCM, 1, 22050, 22050, 1, 8, 0};

struct WaveTest : testing::Test
{
    MMRESULT open() { return waveOutOpen(&device, 0, &format, CALLBACK_NULL, 0, 0); }

    SwitchedOn handheld_;
    FakeHost &host = handheld_.host;
    HWAVEOUT device{};
};

TEST_F(WaveTest, OpensOneDeviceInOneFormat)
{
    WAVEFORMATEX slow = format;
    slow.nSamplesPerSec = 8000;
    EXPECT_EQ(waveOutOpen(&device, 0, &slow, CALLBACK_NULL, 0, 0), WAVERR_BADFORMAT);
    EXPECT_EQ(waveOutOpen(&device, 1, &format, CALLBACK_NULL, 0, 0), MMSYSERR_BADDEVICEID);
    EXPECT_EQ(open(), MMSYSERR_NOERROR);
    EXPECT_EQ(open(), MMSYSERR_ALLOCATED);
    EXPECT_EQ(waveOutClose(device), MMSYSERR_NOERROR);
    EXPECT_EQ(waveOutClose(device), MMSYSERR_INVALHANDLE);
    host.loudspeaker = false;
    EXPECT_EQ(open(), MMSYSERR_BADDEVICEID);
    EXPECT_EQ(waveOutReset({}), MMSYSERR_INVALHANDLE);
}

TEST_F(WaveTest, PlaysBuffersUntilTheyEndOrAreCutOff)
{
    const BYTE samples[] = {1, 2, 3};
    WAVEHDR header{samples, sizeof samples, 0, 0, 0, 0, nullptr, 0};
    ASSERT_EQ(open(), MMSYSERR_NOERROR);
    EXPECT_EQ(waveOutWrite(device, &header, sizeof header), WAVERR_UNPREPARED);
    EXPECT_EQ(waveOutPrepareHeader(device, &header, sizeof header), MMSYSERR_NOERROR);
    EXPECT_EQ(waveOutWrite(device, &header, sizeof header), MMSYSERR_NOERROR);
    EXPECT_EQ(host.queued, (std::vector<std::uint8_t>{1, 2, 3}));
    EXPECT_EQ(header.dwFlags, WHDR_PREPARED | WHDR_INQUEUE);
    EXPECT_EQ(waveOutWrite(device, &header, sizeof header), WAVERR_STILLPLAYING);
    EXPECT_EQ(waveOutUnprepareHeader(device, &header, sizeof header), WAVERR_STILLPLAYING);
    EXPECT_EQ(waveOutClose(device), WAVERR_STILLPLAYING);

    EXPECT_EQ(waveOutReset(device), MMSYSERR_NOERROR);
    EXPECT_TRUE(host.queued.empty());
    EXPECT_EQ(header.dwFlags, WHDR_PREPARED | WHDR_DONE);

    EXPECT_EQ(waveOutWrite(device, &header, sizeof header), MMSYSERR_NOERROR);
    host.queued.clear(); // it has been played
    EXPECT_EQ(waveOutUnprepareHeader(device, &header, sizeof header), MMSYSERR_NOERROR);
    EXPECT_EQ(header.dwFlags, WHDR_DONE);
    EXPECT_EQ(waveOutClose(device), MMSYSERR_NOERROR);
}

} // namespace
