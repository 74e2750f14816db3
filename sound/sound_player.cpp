// One output device, one buffer header: playing an effect cuts off the one before.
#include "sound/sound_player.h"

#include "resources/module.h"

namespace {

/// Where the samples of a WAVE resource begin, in bytes. Its header is not read: every effect plays
/// in the one format of the device.
constexpr DWORD waveHeaderSize = 44;

constexpr WAVEFORMATEX deviceFormat{WAVE_FORMAT_PCM, 1, 22050, 22050, 1, 8, 0};

bool validSlot(int slot) { return slot >= 0 && slot < SoundPlayer::slotCount; }

} // namespace

SoundPlayer soundPlayer;

SoundPlayer::~SoundPlayer()
{
    close();
    unloadAll();
}

MMRESULT SoundPlayer::open()
{
    if (device) {
        return MMSYSERR_NOERROR;
    }
    MMRESULT result = MMSYSERR_BADDEVICEID;
    for (UINT id = 0; id < waveOutGetNumDevs(); ++id) {
        result = waveOutOpen(&device, id, &deviceFormat, 0, 0, CALLBACK_NULL);
        if (result == MMSYSERR_NOERROR) {
            return result;
        }
    }
    device = {};
    return result;
}

bool SoundPlayer::load(int slot, UINT resource)
{
    if (!validSlot(slot)) {
        return false;
    }
    std::unique_ptr<SoundClip> &clip = slots[static_cast<std::size_t>(slot)];
    if (clip) {
        return true;
    }
    const HRSRC found = FindResourceW(moduleInstance, MAKEINTRESOURCEW(resource), u"WAVE");
    const auto *image = static_cast<const BYTE *>(LoadResource(moduleInstance, found));
    const DWORD size = SizeofResource(moduleInstance, found);
    if (!image) {
        return false;
    }
    clip = std::make_unique<SoundClip>(SoundClip{image, size});
    return true;
}

bool SoundPlayer::play(int slot)
{
    if (!validSlot(slot) || !slots[static_cast<std::size_t>(slot)]) {
        return false;
    }
    const SoundClip &clip = *slots[static_cast<std::size_t>(slot)];
    if (clip.size <= waveHeaderSize) {
        return false;
    }
    stop();
    header = {};
    header.lpData = clip.image + waveHeaderSize;
    header.dwBufferLength = clip.size - waveHeaderSize;
    return waveOutPrepareHeader(device, &header, sizeof header) == MMSYSERR_NOERROR &&
           waveOutWrite(device, &header, sizeof header) == MMSYSERR_NOERROR;
}

bool SoundPlayer::stop()
{
    waveOutReset(device);
    return waveOutUnprepareHeader(device, &header, sizeof header) == MMSYSERR_NOERROR;
}

MMRESULT SoundPlayer::close()
{
    if (!device) {
        return MMSYSERR_NOERROR;
    }
    stop();
    const MMRESULT result = waveOutClose(device);
    device = {};
    return result;
}

bool SoundPlayer::unloadAll()
{
    stop();
    slots = {};
    return true;
}
