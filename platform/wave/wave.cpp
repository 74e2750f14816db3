// Sound output over the host's queue of samples: the one device and the buffers it holds.
//
// The host reports only whether any samples are left, so all buffers are marked as done together,
// when the last one has been played.
#include "wave/wave.h"

#include <span>
#include <vector>

#include "host/current.h"
#include "mmsystem.h"

namespace {

constexpr HWAVEOUT theDevice{1};

bool isOpen = false;
/// Never destroyed: a program's own objects may play, or stop to, until the process has ended.
std::vector<WAVEHDR *> &queued = *new std::vector<WAVEHDR *>;

void markDone()
{
    for (WAVEHDR *header : queued) {
        header->dwFlags = (header->dwFlags & ~WHDR_INQUEUE) | WHDR_DONE;
    }
    queued.clear();
}

MMRESULT checkDevice(HWAVEOUT device)
{
    if (!isOpen || device != theDevice) {
        return MMSYSERR_INVALHANDLE;
    }
    if (!queued.empty() && !host::current().samplesQueued()) {
        markDone();
    }
    return MMSYSERR_NOERROR;
}

MMRESULT checkHeader(HWAVEOUT device, const WAVEHDR *header, UINT size)
{
    if (const MMRESULT error = checkDevice(device); error != MMSYSERR_NOERROR) {
        return error;
    }
    return header && size >= sizeof(WAVEHDR) ? MMSYSERR_NOERROR : MMSYSERR_INVALPARAM;
}

bool isTheFormat(const WAVEFORMATEX &format)
{
    return format.wFormatTag == WAVE_FORMAT_PCM && format.nChannels == 1 &&
           format.nSamplesPerSec == 22050 && format.nAvgBytesPerSec == 22050 &&
           format.nBlockAlign == 1 && format.wBitsPerSample == 8;
}

} // namespace

void wave::reset()
{
    if (isOpen) {
        host::current().dropSamples();
    }
    queued.clear();
    isOpen = false;
}

UINT waveOutGetNumDevs() { return host::current().hasLoudspeaker() ? 1 : 0; }

MMRESULT waveOutOpen(HWAVEOUT *device, UINT id, const WAVEFORMATEX *format, DWORD, DWORD, DWORD)
{
    if (id >= waveOutGetNumDevs()) {
        return MMSYSERR_BADDEVICEID;
    }
    if (!device || !format) {
        return MMSYSERR_INVALPARAM;
    }
    if (!isTheFormat(*format)) {
        return WAVERR_BADFORMAT;
    }
    if (isOpen) {
        return MMSYSERR_ALLOCATED;
    }
    isOpen = true;
    *device = theDevice;
    return MMSYSERR_NOERROR;
}

MMRESULT waveOutClose(HWAVEOUT device)
{
    if (const MMRESULT error = checkDevice(device); error != MMSYSERR_NOERROR) {
        return error;
    }
    if (!queued.empty()) {
        return WAVERR_STILLPLAYING;
    }
    isOpen = false;
    return MMSYSERR_NOERROR;
}

MMRESULT waveOutPrepareHeader(HWAVEOUT device, WAVEHDR *header, UINT size)
{
    const MMRESULT result = checkHeader(device, header, size);
    if (result == MMSYSERR_NOERROR) {
        header->dwFlags |= WHDR_PREPARED;
    }
    return result;
}

MMRESULT waveOutUnprepareHeader(HWAVEOUT device, WAVEHDR *header, UINT size)
{
    if (const MMRESULT error = checkHeader(device, header, size); error != MMSYSERR_NOERROR) {
        return error;
    }
    if ((header->dwFlags & WHDR_INQUEUE) != 0) {
        return WAVERR_STILLPLAYING;
    }
    header->dwFlags &= ~WHDR_PREPARED;
    return MMSYSERR_NOERROR;
}

MMRESULT waveOutWrite(HWAVEOUT device, WAVEHDR *header, UINT size)
{
    if (const MMRESULT error = checkHeader(device, header, size); error != MMSYSERR_NOERROR) {
        return error;
    }
    if ((header->dwFlags & WHDR_PREPARED) == 0) {
        return WAVERR_UNPREPARED;
    }
    if ((header->dwFlags & WHDR_INQUEUE) != 0) {
        return WAVERR_STILLPLAYING;
    }
    header->dwFlags = (header->dwFlags & ~WHDR_DONE) | WHDR_INQUEUE;
    queued.push_back(header);
    host::current().playSamples(std::span(header->lpData, header->dwBufferLength));
    return MMSYSERR_NOERROR;
}

MMRESULT waveOutReset(HWAVEOUT device)
{
    const MMRESULT result = checkDevice(device);
    if (result == MMSYSERR_NOERROR) {
        host::current().dropSamples();
        markDone();
    }
    return result;
}
