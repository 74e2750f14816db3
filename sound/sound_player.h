// Plays the sound effects, one at a time: a new one cuts off the one before.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include <windows.h>

#include <mmsystem.h>

/// A loaded effect: the bytes of a WAVE resource, in place.
struct SoundClip
{
    const BYTE *image;
    DWORD size; ///< bytes
};

struct SoundPlayer
{
    static constexpr int slotCount = 16;

    HWAVEOUT device{};
    WAVEHDR header{};
    std::array<std::unique_ptr<SoundClip>, slotCount> slots; ///< by SoundEvent

    SoundPlayer() = default;
    ~SoundPlayer();
    SoundPlayer(const SoundPlayer &) = delete;
    SoundPlayer &operator=(const SoundPlayer &) = delete;

    /// Opens the first device that plays 22,050 8-bit samples a second, mono. 0 on success or when
    /// open already, else the last error.
    MMRESULT open();
    /// Puts WAVE resource `resource` into an empty slot, 0 to 15. Returns whether the slot holds a
    /// clip afterwards.
    bool load(int slot, UINT resource);
    /// Returns whether the device took the effect. Does nothing for a clip without samples.
    bool play(int slot);
    bool stop();
    MMRESULT close();
    bool unloadAll();
};

extern SoundPlayer soundPlayer;
