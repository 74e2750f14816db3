// Sound output: one device that plays 8-bit mono samples at 22,050 a second.
#pragma once

#include "windef.h"

using HWAVEOUT = Handle<struct WaveOutKind>;
using MMRESULT = UINT;

constexpr MMRESULT MMSYSERR_NOERROR = 0;
constexpr MMRESULT MMSYSERR_BADDEVICEID = 2;
constexpr MMRESULT MMSYSERR_ALLOCATED = 4;
constexpr MMRESULT MMSYSERR_INVALHANDLE = 5;
constexpr MMRESULT MMSYSERR_INVALPARAM = 11;
constexpr MMRESULT WAVERR_BADFORMAT = 32;
constexpr MMRESULT WAVERR_STILLPLAYING = 33;
constexpr MMRESULT WAVERR_UNPREPARED = 34;

constexpr WORD WAVE_FORMAT_PCM = 1;
constexpr DWORD CALLBACK_NULL = 0;
constexpr DWORD WHDR_DONE = 0x01;
constexpr DWORD WHDR_PREPARED = 0x02;
constexpr DWORD WHDR_INQUEUE = 0x10;

struct WAVEFORMATEX
{
    WORD wFormatTag;
    WORD nChannels;
    DWORD nSamplesPerSec;
    DWORD nAvgBytesPerSec;
    WORD nBlockAlign;
    WORD wBitsPerSample;
    WORD cbSize;
};

/// A buffer of samples. It belongs to the caller, who must not move or free it while it plays.
struct WAVEHDR
{
    const BYTE *lpData;
    DWORD dwBufferLength; ///< bytes
    DWORD dwBytesRecorded;
    DWORD dwUser;
    DWORD dwFlags; ///< WHDR_...
    DWORD dwLoops;
    WAVEHDR *lpNext;
    DWORD reserved;
};

/// 1 where the host has a loudspeaker, else 0.
UINT waveOutGetNumDevs();
/// Opens device `id` (0). The only format is unsigned 8-bit mono PCM at 22,050 samples a second;
/// others fail with WAVERR_BADFORMAT. There are no callbacks: the last three are 0.
/// MMSYSERR_ALLOCATED while it is open.
MMRESULT waveOutOpen(HWAVEOUT *device, UINT id, const WAVEFORMATEX *format, DWORD callback,
                     DWORD instance, DWORD flags);
/// Fails with WAVERR_STILLPLAYING while a buffer is queued.
MMRESULT waveOutClose(HWAVEOUT device);
MMRESULT waveOutPrepareHeader(HWAVEOUT device, WAVEHDR *header, UINT size);
/// Fails with WAVERR_STILLPLAYING while the buffer is queued; succeeds on a header that is not
/// prepared.
MMRESULT waveOutUnprepareHeader(HWAVEOUT device, WAVEHDR *header, UINT size);
/// Queues a prepared buffer behind the ones that are playing. Any of these functions marks the
/// buffers that have been played to their end as WHDR_DONE.
MMRESULT waveOutWrite(HWAVEOUT device, WAVEHDR *header, UINT size);
/// Stops the sound at once and marks every queued buffer as WHDR_DONE.
MMRESULT waveOutReset(HWAVEOUT device);
